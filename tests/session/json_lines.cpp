#include "session/json_lines.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "support/utf8.h"

namespace tabulon::testing {

namespace {

const JsonValue kNull;

class Parser {
public:
    explicit Parser(const std::string& text) : text_(text) {}

    JsonValue Document() {
        JsonValue value = Value();
        Blanks();
        if (pos_ != text_.size()) Fail("text after the value");
        return value;
    }

private:
    [[noreturn]] void Fail(const std::string& why) const {
        throw std::runtime_error(why + " at offset " + std::to_string(pos_));
    }
    void Blanks() {
        while (pos_ < text_.size() && (text_[pos_] == ' ' || text_[pos_] == '\t'))
            ++pos_;
    }
    bool Take(char c) {
        Blanks();
        if (pos_ < text_.size() && text_[pos_] == c) {
            ++pos_;
            return true;
        }
        return false;
    }
    void Expect(char c) {
        if (!Take(c)) Fail(std::string("expected '") + c + "'");
    }
    bool Word(const std::string& word) {
        if (text_.compare(pos_, word.size(), word) != 0) return false;
        pos_ += word.size();
        return true;
    }

    std::string String() {
        Expect('"');
        std::string out;
        while (pos_ < text_.size() && text_[pos_] != '"') {
            const char c = text_[pos_++];
            if (static_cast<unsigned char>(c) < 0x20) Fail("raw control character in a string");
            if (c != '\\') {
                out.push_back(c);
                continue;
            }
            if (pos_ == text_.size()) Fail("unfinished escape");
            const char e = text_[pos_++];
            if (e == 'u') {
                if (pos_ + 4 > text_.size()) Fail("short \\u escape");
                const auto code = std::strtoul(text_.substr(pos_, 4).c_str(), nullptr, 16);
                pos_ += 4;
                AppendUtf8(out, static_cast<char32_t>(code));
                continue;
            }
            static const std::string kEscapes = "\"\"\\\\//b\bf\fn\nr\rt\t";
            const std::size_t at = kEscapes.find(e);
            if (at == std::string::npos || at % 2 != 0) Fail("unknown escape");
            out.push_back(kEscapes[at + 1]);
        }
        Expect('"');
        return out;
    }

    JsonValue Value() {
        Blanks();
        if (pos_ == text_.size()) Fail("missing value");
        JsonValue value;
        const char c = text_[pos_];
        if (c == '{') {
            value.type = JsonValue::Type::Object;
            ++pos_;
            if (Take('}')) return value;
            do {
                Blanks();
                std::string key = String();
                Expect(':');
                value.members.emplace_back(std::move(key), Value());
            } while (Take(','));
            Expect('}');
        } else if (c == '[') {
            value.type = JsonValue::Type::Array;
            ++pos_;
            if (Take(']')) return value;
            do {
                value.items.push_back(Value());
            } while (Take(','));
            Expect(']');
        } else if (c == '"') {
            value.type = JsonValue::Type::String;
            value.text = String();
        } else if (Word("true")) {
            value.type = JsonValue::Type::Bool;
            value.boolean = true;
        } else if (Word("false")) {
            value.type = JsonValue::Type::Bool;
        } else if (Word("null")) {
            value.type = JsonValue::Type::Null;
        } else {
            const std::size_t start = pos_;
            while (pos_ < text_.size() &&
                   std::string("+-.eE0123456789").find(text_[pos_]) != std::string::npos) {
                ++pos_;
            }
            if (pos_ == start) Fail("unexpected character");
            value.type = JsonValue::Type::Number;
            value.text = text_.substr(start, pos_ - start);
            value.number = std::strtod(value.text.c_str(), nullptr);
        }
        return value;
    }

    const std::string& text_;
    std::size_t pos_ = 0;
};

}  // namespace

bool JsonValue::has(const std::string& key) const {
    for (const auto& member : members) {
        if (member.first == key) return true;
    }
    return false;
}

const JsonValue& JsonValue::operator[](const std::string& key) const {
    for (const auto& member : members) {
        if (member.first == key) return member.second;
    }
    return kNull;
}

const JsonValue& JsonValue::operator[](std::size_t index) const {
    return index < items.size() ? items[index] : kNull;
}

std::vector<std::string> JsonValue::keys() const {
    std::vector<std::string> names;
    for (const auto& member : members)
        names.push_back(member.first);
    return names;
}

std::string JsonValue::keyList() const {
    std::string joined;
    for (const auto& member : members)
        joined += (joined.empty() ? "" : " ") + member.first;
    return joined;
}

std::vector<JsonValue> ParseJsonLines(const std::string& text) {
    std::vector<JsonValue> values;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        if (line.empty()) continue;
        try {
            values.push_back(Parser(line).Document());
        } catch (const std::exception& error) {
            JsonValue bad;
            bad.parseError = std::string(error.what()) + ": " + line;
            values.push_back(bad);
        }
    }
    return values;
}

}  // namespace tabulon::testing
