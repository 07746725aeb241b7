#include "support/numeric.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "support/failure.h"

namespace tabulon {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

struct Prefix {
    std::size_t begin = 0;  // first character of the number (sign included)
    std::size_t end = 0;    // one past the last character taken
};

Prefix FindPrefix(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size() && (text[i] == ' ' || text[i] == '\t'))
        ++i;
    Prefix p{i, i};
    std::size_t j = i;
    if (j < text.size() && (text[j] == '+' || text[j] == '-')) ++j;
    const std::size_t intStart = j;
    while (j < text.size() && IsDigit(text[j]))
        ++j;
    const bool intDigits = j > intStart;
    bool fracDigits = false;
    std::size_t afterMantissa = j;
    if (j < text.size() && text[j] == '.') {
        std::size_t k = j + 1;
        while (k < text.size() && IsDigit(text[k]))
            ++k;
        fracDigits = k > j + 1;
        if (intDigits || fracDigits) afterMantissa = k;
    }
    if (!intDigits && !fracDigits) return p;  // nothing numeric
    j = afterMantissa;
    if (j < text.size() && (text[j] == 'e' || text[j] == 'E')) {
        std::size_t k = j + 1;
        if (k < text.size() && (text[k] == '+' || text[k] == '-')) ++k;
        const std::size_t expStart = k;
        while (k < text.size() && IsDigit(text[k]))
            ++k;
        if (k > expStart) j = k;
    }
    p.end = j;
    return p;
}

}  // namespace

std::size_t NumericPrefixLength(std::string_view text) {
    const Prefix p = FindPrefix(text);
    return p.end == p.begin ? 0 : p.end;
}

double ReadNumber(std::string_view text) {
    const Prefix p = FindPrefix(text);
    if (p.end == p.begin) return 0.0;
    std::string_view number = text.substr(p.begin, p.end - p.begin);
    bool negative = false;
    if (number.front() == '+' || number.front() == '-') {
        negative = number.front() == '-';
        number.remove_prefix(1);
    }
    double value = 0.0;
    const auto [ptr, ec] = std::from_chars(number.data(), number.data() + number.size(), value,
                                           std::chars_format::general);
    if (ec == std::errc::result_out_of_range) {
        // from_chars leaves the value untouched on range errors: decide by the exponent sign.
        const std::size_t e = number.find_first_of("eE");
        const bool tiny =
            e != std::string_view::npos && e + 1 < number.size() && number[e + 1] == '-';
        if (tiny) return 0.0;
        throw OverflowFailure();
    }
    if (ec != std::errc() || ptr != number.data() + number.size() || !std::isfinite(value)) {
        throw OverflowFailure();
    }
    return negative ? -value : value;
}

std::int16_t ToInt16(double value) {
    if (!std::isfinite(value)) throw OverflowFailure();
    const double r = std::nearbyint(value);
    if (r < -32768.0 || r > 32767.0) throw OverflowFailure();
    return static_cast<std::int16_t>(r);
}

std::int32_t ToInt32(double value) {
    if (!std::isfinite(value)) throw OverflowFailure();
    const double r = std::nearbyint(value);
    if (r < -2147483648.0 || r > 2147483647.0) throw OverflowFailure();
    return static_cast<std::int32_t>(r);
}

std::int16_t ReadInt16(std::string_view text) {
    return ToInt16(ReadNumber(text));
}
std::int32_t ReadInt32(std::string_view text) {
    return ToInt32(ReadNumber(text));
}

std::string NumberToText(double value) {
    if (!std::isfinite(value)) throw OverflowFailure();
    if (value == 0.0) return "0";
    // to_chars ignores the C locale (a host's locale could otherwise turn "." into ",").
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::general, 15);
    std::string text(buffer, result.ptr);
    for (char& c : text) {
        if (c == 'e') c = 'E';
    }
    return text;
}

std::string IntegerToText(long long value) {
    return std::to_string(value);
}

}  // namespace tabulon
