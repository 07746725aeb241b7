#include "support/number_format.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"

namespace tabulon {

namespace {

// ---------------------------------------------------------------------------
// Decimal digits: all rounding happens on the shortest decimal text of the
// double, so 1.005 is "1005" here and rounds to 1.01 as a person expects.

// A non-negative number 0.d1d2d3... x 10^point. No digits means zero.
struct Decimal {
    std::string digits;   // no leading and no trailing zeros
    long long point = 0;  // digits before the decimal point; may be negative or beyond digits

    bool IsZero() const { return digits.empty(); }
    long long Size() const { return static_cast<long long>(digits.size()); }
    // Digit at index i of the infinite expansion (zeros outside the stored digits).
    char DigitAt(long long i) const {
        return i >= 0 && i < Size() ? digits[static_cast<std::size_t>(i)] : '0';
    }
};

void StripTrailingZeros(Decimal& d) {
    while (!d.digits.empty() && d.digits.back() == '0')
        d.digits.pop_back();
    if (d.digits.empty()) d.point = 0;
}

// The shortest decimal that reads back as magnitude (which is finite and >= 0).
Decimal ToDecimal(double magnitude) {
    Decimal d;
    if (magnitude == 0.0) return d;
    char buffer[64];
    const auto result =
        std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific);
    const std::string_view text(buffer, static_cast<std::size_t>(result.ptr - buffer));
    const std::size_t e = text.find('e');
    for (const char c : text.substr(0, e)) {
        if (c != '.') d.digits.push_back(c);
    }
    int exponent = 0;
    std::string_view exponentText = text.substr(e + 1);
    if (exponentText.front() == '+') exponentText.remove_prefix(1);
    std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    d.point = exponent + 1;
    StripTrailingZeros(d);
    return d;
}

// Keeps the first keep digits, rounding half away from zero on the digit that follows.
void KeepDigits(Decimal& d, long long keep) {
    if (keep >= d.Size()) return;
    if (keep < 0) {
        d = Decimal{};
        return;
    }
    const bool up = d.DigitAt(keep) >= '5';
    d.digits.resize(static_cast<std::size_t>(keep));
    if (up) {
        std::size_t i = d.digits.size();
        while (i > 0 && d.digits[i - 1] == '9')
            d.digits[--i] = '0';
        if (i == 0) {
            d.digits.insert(d.digits.begin(), '1');
            ++d.point;
        } else {
            ++d.digits[i - 1];
        }
    }
    StripTrailingZeros(d);
}

// The digits before the decimal point, without leading zeros ("" for a value below 1).
std::string IntegerDigits(const Decimal& d) {
    if (d.point <= 0) return {};
    std::string text = d.digits.substr(0, static_cast<std::size_t>(std::min(d.point, d.Size())));
    if (d.point > d.Size()) text.append(static_cast<std::size_t>(d.point - d.Size()), '0');
    return text;
}

// ---------------------------------------------------------------------------
// Format text: tokens, then sections of integer, fraction and exponent items.

enum class TokenKind { Placeholder, Point, Comma, Percent, Exponent, Literal, Separator };

struct Token {
    TokenKind kind;
    std::string text;  // the placeholder, the exponent mark ("E+") or the literal text
};

bool IsPlaceholder(char c) {
    return c == '0' || c == '#';
}

std::vector<Token> Tokenize(std::string_view format) {
    std::vector<Token> tokens;
    std::size_t i = 0;
    while (i < format.size()) {
        const char c = format[i];
        switch (c) {
            case '0':
            case '#':
                tokens.push_back({TokenKind::Placeholder, std::string(1, c)});
                ++i;
                break;
            case '.':
                tokens.push_back({TokenKind::Point, "."});
                ++i;
                break;
            case ',':
                tokens.push_back({TokenKind::Comma, ","});
                ++i;
                break;
            case '%':
                tokens.push_back({TokenKind::Percent, "%"});
                ++i;
                break;
            case ';':
                tokens.push_back({TokenKind::Separator, ";"});
                ++i;
                break;
            case '\\':  // a backslash at the very end shows nothing
                tokens.push_back({TokenKind::Literal, std::string(format.substr(i + 1, 1))});
                i = std::min(i + 2, format.size());
                break;
            case '"': {  // an unclosed quote runs to the end of the format
                const std::size_t close = format.find('"', i + 1);
                const std::size_t end = close == std::string_view::npos ? format.size() : close;
                tokens.push_back(
                    {TokenKind::Literal, std::string(format.substr(i + 1, end - i - 1))});
                i = std::min(end + 1, format.size());
                break;
            }
            case 'E':
            case 'e':
                if (i + 2 < format.size() && (format[i + 1] == '+' || format[i + 1] == '-') &&
                    IsPlaceholder(format[i + 2])) {
                    tokens.push_back({TokenKind::Exponent, std::string(format.substr(i, 2))});
                    i += 2;
                    break;
                }
                [[fallthrough]];
            default:
                tokens.push_back({TokenKind::Literal, std::string(1, c)});
                ++i;
                break;
        }
    }
    return tokens;
}

// A literal (placeholder == 0) or a digit placeholder ('0' or '#').
struct Item {
    char placeholder = 0;
    std::string text;
};

using Items = std::vector<Item>;

struct Section {
    bool empty = true;  // nothing at all was written for this section
    Items integer;
    Items fraction;
    Items exponent;
    bool hasPoint = false;
    bool grouping = false;
    bool hasExponent = false;
    std::string exponentMark;  // "E" or "e"
    bool exponentAlwaysSigned = false;
    long long shift = 0;  // power of ten applied before rounding: +2 per %, -3 per scaling comma
};

long long CountPlaceholders(const Items& items) {
    return std::count_if(items.begin(), items.end(),
                         [](const Item& item) { return item.placeholder != 0; });
}

void AddLiteral(Items& items, std::string_view text) {
    if (text.empty()) return;
    if (!items.empty() && items.back().placeholder == 0) {
        items.back().text += text;
    } else {
        items.push_back({0, std::string(text)});
    }
}

Section BuildSection(std::span<const Token> tokens) {
    Section s;
    s.empty = tokens.empty();
    // The integer part runs up to the first decimal point or exponent mark. A comma there is
    // grouping between two of its placeholders, scaling after the last one, literal before
    // the first one.
    std::size_t intEnd = 0;
    while (intEnd < tokens.size() && tokens[intEnd].kind != TokenKind::Point &&
           tokens[intEnd].kind != TokenKind::Exponent) {
        ++intEnd;
    }
    std::optional<std::size_t> firstDigit;
    std::optional<std::size_t> lastDigit;
    for (std::size_t i = 0; i < intEnd; ++i) {
        if (tokens[i].kind != TokenKind::Placeholder) continue;
        if (!firstDigit) firstDigit = i;
        lastDigit = i;
    }

    Items* part = &s.integer;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        const Token& token = tokens[i];
        switch (token.kind) {
            case TokenKind::Placeholder:
                part->push_back({token.text.front(), {}});
                break;
            case TokenKind::Point:
                if (part == &s.integer) {
                    part = &s.fraction;
                    s.hasPoint = true;
                } else {
                    AddLiteral(*part, token.text);
                }
                break;
            case TokenKind::Exponent:
                if (s.hasExponent) {
                    AddLiteral(*part, token.text);
                } else {
                    part = &s.exponent;
                    s.hasExponent = true;
                    s.exponentMark = token.text.substr(0, 1);
                    s.exponentAlwaysSigned = token.text[1] == '+';
                }
                break;
            case TokenKind::Comma:
                if (i < intEnd && firstDigit && *firstDigit < i && i < *lastDigit) {
                    s.grouping = true;
                } else if (i < intEnd && lastDigit && i > *lastDigit) {
                    s.shift -= 3;
                } else {
                    AddLiteral(*part, token.text);
                }
                break;
            case TokenKind::Percent:
                s.shift += 2;
                AddLiteral(*part, token.text);
                break;
            case TokenKind::Literal:
            case TokenKind::Separator:
                AddLiteral(*part, token.text);
                break;
        }
    }
    return s;
}

// Up to three sections (positive; negative; zero); any further ones are never used.
std::vector<Section> ParseSections(std::string_view format) {
    const std::vector<Token> tokens = Tokenize(format);
    std::vector<Section> sections;
    auto begin = tokens.begin();
    while (sections.size() < 3) {
        const auto end = std::find_if(
            begin, tokens.end(), [](const Token& t) { return t.kind == TokenKind::Separator; });
        sections.push_back(BuildSection(std::span<const Token>(begin, end)));
        if (end == tokens.end()) break;
        begin = end + 1;
    }
    return sections;
}

// ---------------------------------------------------------------------------
// Rendering.

// Writes items with digits right-aligned to the placeholders: digits beyond the placeholders
// go to the first one, a placeholder without a digit shows "0" for '0' and nothing for '#'.
// Without placeholders the digits follow the items.
void AppendAligned(std::string& out, const Items& items, std::string_view digits, bool grouping) {
    const long long count = CountPlaceholders(items);
    const long long length = static_cast<long long>(digits.size());
    const auto shown = [&](long long index, char placeholder) {
        std::string text;
        if (index == 0 && length > count) text = digits.substr(0, digits.size() - count);
        const long long fromRight = count - 1 - index;
        if (fromRight < length) {
            text += digits[static_cast<std::size_t>(length - 1 - fromRight)];
        } else if (placeholder == '0') {
            text += '0';
        }
        return text;
    };
    long long total = 0;
    long long index = 0;
    for (const Item& item : items) {
        if (item.placeholder != 0)
            total += static_cast<long long>(shown(index++, item.placeholder).size());
    }
    if (count == 0) total = length;

    long long written = 0;
    const auto appendDigits = [&](std::string_view text) {
        for (const char digit : text) {
            out += digit;
            ++written;
            if (grouping && written < total && (total - written) % 3 == 0) out += ',';
        }
    };
    index = 0;
    for (const Item& item : items) {
        if (item.placeholder == 0) {
            out += item.text;
        } else {
            appendDigits(shown(index++, item.placeholder));
        }
    }
    if (count == 0) appendDigits(digits);
}

// Writes the fraction items; trailing '#' placeholders whose digit is 0 show nothing.
void AppendFraction(std::string& out, const Items& items, const Decimal& d) {
    std::vector<char> placeholders;
    for (const Item& item : items) {
        if (item.placeholder != 0) placeholders.push_back(item.placeholder);
    }
    const auto digitOf = [&](std::size_t j) {
        return d.DigitAt(d.point + static_cast<long long>(j));
    };
    std::size_t shownCount = placeholders.size();
    while (shownCount > 0 && placeholders[shownCount - 1] == '#' &&
           digitOf(shownCount - 1) == '0') {
        --shownCount;
    }
    std::size_t j = 0;
    for (const Item& item : items) {
        if (item.placeholder == 0) {
            out += item.text;
        } else {
            if (j < shownCount) out += digitOf(j);
            ++j;
        }
    }
}

std::string Render(const Section& s, double magnitude, bool negative) {
    Decimal d = ToDecimal(magnitude);
    if (!d.IsZero()) d.point += s.shift;
    const long long integerCount = CountPlaceholders(s.integer);
    const long long fractionCount = CountPlaceholders(s.fraction);
    long long exponent = 0;
    if (s.hasExponent) {
        KeepDigits(d, integerCount + fractionCount);
        if (!d.IsZero()) {
            exponent = d.point - integerCount;
            d.point = integerCount;
        }
    } else {
        KeepDigits(d, d.point + fractionCount);
    }

    std::string out;
    const bool showsNumber = s.hasPoint || integerCount + fractionCount > 0 || s.hasExponent;
    if (negative && showsNumber && !d.IsZero()) out += '-';
    // With neither integer placeholders nor a point the section shows no number at all.
    const bool integerShown = integerCount > 0 || s.hasPoint;
    AppendAligned(out, s.integer, integerShown ? IntegerDigits(d) : std::string(), s.grouping);
    if (s.hasPoint) out += '.';
    AppendFraction(out, s.fraction, d);
    if (s.hasExponent) {
        out += s.exponentMark;
        if (exponent < 0) {
            out += '-';
        } else if (s.exponentAlwaysSigned) {
            out += '+';
        }
        const std::string digits =
            exponent == 0 ? std::string() : IntegerToText(std::llabs(exponent));
        AppendAligned(out, s.exponent, digits, false);
    }
    return out;
}

struct NamedFormat {
    std::string_view name;
    std::string_view codes;  // empty: the number written as text
};

constexpr std::array<NamedFormat, 5> kNamedFormats{{
    {"General Number", ""},
    {"Fixed", "0.00"},
    {"Standard", "#,##0.00"},
    {"Percent", "0.00%"},
    {"Scientific", "0.00E+00"},
}};

std::optional<std::string_view> ExpandNamedFormat(std::string_view format) {
    for (const NamedFormat& named : kNamedFormats) {
        if (EqualsIgnoreCase(format, named.name)) return named.codes;
    }
    return std::nullopt;
}

// The sections of a format, parsed once per thread: a grid or a search formats
// thousands of values with the same few formats, and parsing costs more than rendering.
const std::vector<Section>& ParsedSections(std::string_view format) {
    constexpr std::size_t kKept = 256;
    thread_local std::unordered_map<std::string, std::vector<Section>> parsed;
    thread_local std::string key;
    key.assign(format);
    if (const auto found = parsed.find(key); found != parsed.end()) return found->second;
    if (parsed.size() >= kKept) parsed.clear();
    return parsed.emplace(key, ParseSections(format)).first->second;
}

}  // namespace

std::string FormatNumber(double value, std::string_view format) {
    if (!std::isfinite(value)) throw OverflowFailure();
    if (const auto codes = ExpandNamedFormat(format)) format = *codes;
    if (format.empty()) return NumberToText(value);

    const std::vector<Section>& sections = ParsedSections(format);
    const Section* section = &sections[0];
    bool addMinus = value < 0.0;
    if (value < 0.0 && sections.size() > 1 && !sections[1].empty) {
        section = &sections[1];
        addMinus = false;  // the negative section writes its own sign, if any
    } else if (value == 0.0 && sections.size() > 2 && !sections[2].empty) {
        section = &sections[2];
    }
    if (section->empty) return NumberToText(value);
    return Render(*section, std::fabs(value), addMinus);
}

}  // namespace tabulon
