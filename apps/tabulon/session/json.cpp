#include "session/json.h"

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

}  // namespace

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

}  // namespace tabulon::json
