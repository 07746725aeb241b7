#include "session/json.h"

#include <charconv>
#include <cmath>
#include <system_error>

#include "support/utf8.h"

namespace tabulon::json {

namespace {

constexpr std::string_view kReplacement = "\xEF\xBF\xBD";  // U+FFFD

void AppendEscaped(std::string& out, unsigned char c) {
    switch (c) {
        case '"':
            out += "\\\"";
            return;
        case '\\':
            out += "\\\\";
            return;
        case '\b':
            out += "\\b";
            return;
        case '\f':
            out += "\\f";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            break;
    }
    if (c < 0x20) {
        constexpr char kHex[] = "0123456789abcdef";
        out += "\\u00";
        out.push_back(kHex[c >> 4]);
        out.push_back(kHex[c & 0xF]);
        return;
    }
    out.push_back(static_cast<char>(c));
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

int HexValue(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

class Parser {
public:
    explicit Parser(std::string_view text) : text_(text) {}

    std::map<std::string, FlatValue> parseObject() {
        skipSpace();
        expect('{', "expected '{'");
        std::map<std::string, FlatValue> object;
        skipSpace();
        if (peek() == '}') {
            ++pos_;
        } else {
            for (;;) {
                skipSpace();
                const std::size_t keyAt = pos_;
                if (peek() != '"') fail("expected a string key");
                std::string key = parseString();
                skipSpace();
                expect(':', "expected ':'");
                skipSpace();
                FlatValue value = parseValue();
                if (!object.emplace(std::move(key), std::move(value)).second) {
                    fail("duplicate key", keyAt);
                }
                skipSpace();
                if (peek() == ',') {
                    ++pos_;
                    continue;
                }
                expect('}', "expected ',' or '}'");
                break;
            }
        }
        skipSpace();
        if (pos_ != text_.size()) fail("unexpected text after the object");
        return object;
    }

private:
    [[noreturn]] void fail(const char* reason) const { fail(reason, pos_); }
    [[noreturn]] void fail(const char* reason, std::size_t at) const {
        throw ParseError(reason, at);
    }

    char peek() const { return pos_ < text_.size() ? text_[pos_] : '\0'; }
    bool atEnd() const { return pos_ >= text_.size(); }

    void expect(char c, const char* reason) {
        if (atEnd() || text_[pos_] != c) fail(reason);
        ++pos_;
    }

    void skipSpace() {
        while (!atEnd()) {
            const char c = text_[pos_];
            if (c != ' ' && c != '\t' && c != '\n' && c != '\r') return;
            ++pos_;
        }
    }

    bool takeWord(std::string_view word) {
        if (text_.substr(pos_, word.size()) != word) return false;
        pos_ += word.size();
        return true;
    }

    FlatValue parseValue() {
        const char c = peek();
        if (c == '"') return parseString();
        if (c == '-' || IsDigit(c)) return parseNumber();
        if (takeWord("true")) return true;
        if (takeWord("false")) return false;
        if (c == 'n' || c == '[' || c == '{') fail("only booleans, numbers and strings allowed");
        fail("expected a value");
    }

    FlatValue parseNumber() {
        const std::size_t start = pos_;
        if (peek() == '-') ++pos_;
        if (peek() == '0') {
            ++pos_;
        } else if (IsDigit(peek())) {
            while (IsDigit(peek()))
                ++pos_;
        } else {
            fail("invalid number", start);
        }
        bool integral = true;
        if (peek() == '.') {
            integral = false;
            ++pos_;
            if (!IsDigit(peek())) fail("invalid number", start);
            while (IsDigit(peek()))
                ++pos_;
        }
        if (peek() == 'e' || peek() == 'E') {
            integral = false;
            ++pos_;
            if (peek() == '+' || peek() == '-') ++pos_;
            if (!IsDigit(peek())) fail("invalid number", start);
            while (IsDigit(peek()))
                ++pos_;
        }
        const char* first = text_.data() + start;
        const char* last = text_.data() + pos_;
        if (integral) {
            std::int64_t value = 0;
            const auto result = std::from_chars(first, last, value);
            if (result.ec == std::errc()) return value;
            // Beyond int64: kept as the nearest double.
        }
        double value = 0.0;
        const auto result = std::from_chars(first, last, value);
        if (result.ec == std::errc::result_out_of_range) {
            // Too small to represent reads as zero; too large is an error.
            const std::string_view number(first, static_cast<std::size_t>(last - first));
            const std::size_t e = number.find_first_of("eE");
            const bool tiny =
                e != std::string_view::npos && e + 1 < number.size() && number[e + 1] == '-';
            if (!tiny) fail("number out of range", start);
            return number.front() == '-' ? -0.0 : 0.0;
        }
        if (result.ec != std::errc()) fail("invalid number", start);
        return value;
    }

    unsigned readHex4() {
        if (pos_ + 4 > text_.size()) fail("invalid \\u escape");
        unsigned value = 0;
        for (int i = 0; i < 4; ++i) {
            const int digit = HexValue(text_[pos_ + static_cast<std::size_t>(i)]);
            if (digit < 0) fail("invalid \\u escape");
            value = value * 16 + static_cast<unsigned>(digit);
        }
        pos_ += 4;
        return value;
    }

    void parseUnicodeEscape(std::string& out) {
        const std::size_t escapeAt = pos_ - 2;  // at the backslash
        const unsigned unit = readHex4();
        if (unit >= 0xDC00 && unit <= 0xDFFF) fail("unpaired surrogate", escapeAt);
        if (unit < 0xD800 || unit > 0xDBFF) {
            AppendUtf8(out, unit);
            return;
        }
        if (!takeWord("\\u")) fail("unpaired surrogate", escapeAt);
        const unsigned low = readHex4();
        if (low < 0xDC00 || low > 0xDFFF) fail("unpaired surrogate", escapeAt);
        AppendUtf8(out, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
    }

    std::string parseString() {
        ++pos_;  // opening quote
        std::string out;
        for (;;) {
            if (atEnd()) fail("unterminated string");
            const unsigned char c = static_cast<unsigned char>(text_[pos_]);
            if (c == '"') {
                ++pos_;
                return out;
            }
            if (c < 0x20) fail("control character in string");
            if (c == '\\') {
                ++pos_;
                parseEscape(out);
                continue;
            }
            if (c < 0x80) {
                out.push_back(static_cast<char>(c));
                ++pos_;
                continue;
            }
            const std::size_t start = pos_;
            if (DecodeUtf8(text_, pos_) == kInvalidUtf8) fail("invalid UTF-8", start);
            out.append(text_.substr(start, pos_ - start));
        }
    }

    void parseEscape(std::string& out) {
        if (atEnd()) fail("unterminated string");
        const char c = text_[pos_++];
        switch (c) {
            case '"':
            case '\\':
            case '/':
                out.push_back(c);
                return;
            case 'b':
                out.push_back('\b');
                return;
            case 'f':
                out.push_back('\f');
                return;
            case 'n':
                out.push_back('\n');
                return;
            case 'r':
                out.push_back('\r');
                return;
            case 't':
                out.push_back('\t');
                return;
            case 'u':
                parseUnicodeEscape(out);
                return;
            default:
                fail("invalid escape", pos_ - 2);
        }
    }

    std::string_view text_;
    std::size_t pos_ = 0;
};

std::string WriteDouble(double value) {
    if (!std::isfinite(value)) throw std::invalid_argument("JSON has no non-finite numbers");
    char buffer[64];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    std::string text(buffer, result.ptr);
    // Keep it a double when read back.
    if (text.find_first_of(".eE") == std::string::npos) text += ".0";
    return text;
}

std::string WriteValue(const FlatValue& value) {
    struct Writer {
        std::string operator()(bool b) const { return b ? "true" : "false"; }
        std::string operator()(std::int64_t i) const { return std::to_string(i); }
        std::string operator()(double d) const { return WriteDouble(d); }
        std::string operator()(const std::string& s) const { return Quote(s); }
    };
    return std::visit(Writer{}, value);
}

}  // namespace

ParseError::ParseError(std::string reason, std::size_t offset)
    : std::runtime_error(reason + " at offset " + std::to_string(offset)),
      reason_(std::move(reason)),
      offset_(offset) {}

std::string Quote(std::string_view text) {
    std::string out;
    out.reserve(text.size() + 2);
    out.push_back('"');
    std::size_t pos = 0;
    while (pos < text.size()) {
        const unsigned char c = static_cast<unsigned char>(text[pos]);
        if (c < 0x80) {
            AppendEscaped(out, c);
            ++pos;
            continue;
        }
        const std::size_t start = pos;
        if (DecodeUtf8(text, pos) == kInvalidUtf8) {
            out += kReplacement;
        } else {
            out.append(text.substr(start, pos - start));
        }
    }
    out.push_back('"');
    return out;
}

std::map<std::string, FlatValue> ParseFlatObject(std::string_view text) {
    return Parser(text).parseObject();
}

std::string WriteFlatObject(const std::map<std::string, FlatValue>& object) {
    if (object.empty()) return "{}";
    std::string out = "{";
    bool first = true;
    for (const auto& [key, value] : object) {
        out += first ? "\n  " : ",\n  ";
        first = false;
        out += Quote(key);
        out += ": ";
        out += WriteValue(value);
    }
    out += "\n}";
    return out;
}

}  // namespace tabulon::json
