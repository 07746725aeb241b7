// UTF-8 stepping shared by the JSON writer/reader and the text-box model: one rule
// for what a character is, also in text that is not valid UTF-8.
//
// An invalid or truncated sequence counts as one character made of its maximal
// valid prefix (at least one byte), as Unicode recommends for replacement.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tabulon {

inline constexpr char32_t kInvalidUtf8 = 0xFFFFFFFF;

// Decodes the character at pos and moves pos past it. Returns the code point, or
// kInvalidUtf8 for an invalid sequence (overlong forms, surrogates and values
// beyond U+10FFFF included). pos must be inside text.
inline char32_t DecodeUtf8(std::string_view text, std::size_t& pos) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(pos++);
    if (lead < 0x80) return lead;
    int more = 0;
    unsigned char lo = 0x80, hi = 0xBF;  // allowed range of the second byte
    char32_t cp = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        more = 1;
        cp = lead & 0x1Fu;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        more = 2;
        cp = lead & 0x0Fu;
        if (lead == 0xE0) lo = 0xA0;  // no overlong forms
        if (lead == 0xED) hi = 0x9F;  // no surrogates
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        more = 3;
        cp = lead & 0x07u;
        if (lead == 0xF0) lo = 0x90;  // no overlong forms
        if (lead == 0xF4) hi = 0x8F;  // nothing beyond U+10FFFF
    } else {
        return kInvalidUtf8;
    }
    for (int i = 0; i < more; ++i) {
        if (pos >= text.size()) return kInvalidUtf8;
        const unsigned char b = byte(pos);
        if (b < (i == 0 ? lo : 0x80) || b > (i == 0 ? hi : 0xBF)) return kInvalidUtf8;
        cp = (cp << 6) | (b & 0x3Fu);
        ++pos;
    }
    return cp;
}

// Appends cp encoded as UTF-8; a surrogate or a value beyond U+10FFFF appends
// U+FFFD instead.
inline void AppendUtf8(std::string& out, char32_t cp) {
    const auto put = [&](char32_t bits) { out.push_back(static_cast<char>(bits)); };
    if ((cp >= 0xD800 && cp <= 0xDFFF) || cp > 0x10FFFF) cp = 0xFFFD;
    if (cp < 0x80) {
        put(cp);
    } else if (cp < 0x800) {
        put(0xC0 | (cp >> 6));
        put(0x80 | (cp & 0x3F));
    } else if (cp < 0x10000) {
        put(0xE0 | (cp >> 12));
        put(0x80 | ((cp >> 6) & 0x3F));
        put(0x80 | (cp & 0x3F));
    } else {
        put(0xF0 | (cp >> 18));
        put(0x80 | ((cp >> 12) & 0x3F));
        put(0x80 | ((cp >> 6) & 0x3F));
        put(0x80 | (cp & 0x3F));
    }
}

// Number of characters in text.
inline std::size_t CountUtf8(std::string_view text) {
    std::size_t count = 0;
    for (std::size_t pos = 0; pos < text.size(); ++count)
        DecodeUtf8(text, pos);
    return count;
}

// Byte offset where character number index starts; text.size() when index is at or
// past the end.
inline std::size_t Utf8Offset(std::string_view text, std::size_t index) {
    std::size_t pos = 0;
    for (; index > 0 && pos < text.size(); --index)
        DecodeUtf8(text, pos);
    return pos;
}

// text with its characters [start, start + length) replaced by insert; positions past
// the end count as the end.
inline std::string ReplaceUtf8Range(std::string_view text, std::size_t start, std::size_t length,
                                    std::string_view insert) {
    const std::size_t begin = Utf8Offset(text, start);
    const std::size_t end = begin + Utf8Offset(text.substr(begin), length);
    std::string replaced(text.substr(0, begin));
    replaced += insert;
    replaced += text.substr(end);
    return replaced;
}

}  // namespace tabulon
