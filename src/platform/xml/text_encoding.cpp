#include "platform/xml/text_encoding.h"

#include <cstdint>
#include <string_view>
#include <utility>

namespace tabulon::xml {

namespace {

void AppendUtf8(std::string& out, std::uint32_t code) {
    auto byte = [&out](std::uint32_t value) { out.push_back(static_cast<char>(value)); };
    if (code < 0x80) {
        byte(code);
    } else if (code < 0x800) {
        byte(0xC0 | (code >> 6));
        byte(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        byte(0xE0 | (code >> 12));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    } else {
        byte(0xF0 | (code >> 18));
        byte(0x80 | ((code >> 12) & 0x3F));
        byte(0x80 | ((code >> 6) & 0x3F));
        byte(0x80 | (code & 0x3F));
    }
}

bool Utf16ToUtf8(std::string_view bytes, bool bigEndian, std::string& out) {
    if (bytes.size() % 2 != 0) return false;
    auto unitAt = [&](std::size_t i) -> std::uint32_t {
        const auto first = static_cast<unsigned char>(bytes[i]);
        const auto second = static_cast<unsigned char>(bytes[i + 1]);
        return bigEndian ? (first << 8U) | second : (second << 8U) | first;
    };
    out.clear();
    out.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        std::uint32_t unit = unitAt(i);
        if (unit >= 0xDC00 && unit <= 0xDFFF) return false;
        if (unit >= 0xD800 && unit <= 0xDBFF) {
            if (i + 3 >= bytes.size()) return false;
            const std::uint32_t low = unitAt(i + 2);
            if (low < 0xDC00 || low > 0xDFFF) return false;
            unit = 0x10000 + ((unit - 0xD800) << 10U) + (low - 0xDC00);
            i += 2;
        }
        AppendUtf8(out, unit);
    }
    return true;
}

}  // namespace

bool DecodeFileText(std::string& text) {
    const std::string_view view = text;
    const bool littleEndian = view.starts_with("\xFF\xFE");
    const bool bigEndian = view.starts_with("\xFE\xFF");
    if (!littleEndian && !bigEndian) return true;
    std::string utf8;
    if (!Utf16ToUtf8(view.substr(2), bigEndian, utf8)) return false;
    text = std::move(utf8);
    return true;
}

}  // namespace tabulon::xml
