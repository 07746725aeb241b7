#include "platform/xml/character_references.h"

#include <algorithm>
#include <cstdint>

#include "platform/xml/markup_scanner.h"

namespace tabulon::xml {

namespace {

constexpr std::size_t kShownBytes = 32;

bool AllowedCharacter(std::uint32_t code) {
    return code == 0x9 || code == 0xA || code == 0xD || (code >= 0x20 && code <= 0xD7FF) ||
           (code >= 0xE000 && code <= 0xFFFD) || (code >= 0x10000 && code <= 0x10FFFF);
}

int DigitValue(char c, int base) {
    if (c >= '0' && c <= '9') return c - '0';
    if (base == 16 && c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (base == 16 && c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Whether the reference starting with "&#" at text[at] is complete and allowed.
bool GoodReference(std::string_view text, std::size_t at) {
    std::size_t pos = at + 2;
    int base = 10;
    if (pos < text.size() && text[pos] == 'x') {
        base = 16;
        ++pos;
    }
    std::uint32_t code = 0;
    std::size_t digits = 0;
    for (; pos < text.size(); ++pos, ++digits) {
        const int digit = DigitValue(text[pos], base);
        if (digit < 0) break;
        // Anything past the last character is refused; stop before the value can wrap.
        if (code > 0x10FFFF) return false;
        code = code * static_cast<std::uint32_t>(base) + static_cast<std::uint32_t>(digit);
    }
    return digits > 0 && pos < text.size() && text[pos] == ';' && AllowedCharacter(code);
}

std::optional<BadReference> FirstBadIn(std::string_view text, std::size_t begin, std::size_t end) {
    const std::string_view part = text.substr(0, end);
    for (std::size_t at = part.find("&#", begin); at != std::string_view::npos;
         at = part.find("&#", at + 2)) {
        if (!GoodReference(part, at)) {
            // As far as it reads as a reference: "&#", an "x", digits, a ";".
            std::size_t stop = at + 2;
            if (stop < end && part[stop] == 'x') ++stop;
            while (stop < end && DigitValue(part[stop], 16) >= 0)
                ++stop;
            if (stop < end && part[stop] == ';') ++stop;
            return BadReference{at, std::string(part.substr(at, std::min(stop - at, kShownBytes)))};
        }
    }
    return std::nullopt;
}

}  // namespace

std::optional<BadReference> FirstBadCharacterReference(std::string_view text) {
    // Most texts hold no reference at all: one quick search says so.
    if (text.find("&#") == std::string_view::npos) return std::nullopt;
    MarkupScanner scanner(text);
    for (;;) {
        switch (scanner.Next()) {
            case MarkupScanner::Piece::End:
                return std::nullopt;
            case MarkupScanner::Piece::Text:
                if (auto bad = FirstBadIn(text, scanner.begin(), scanner.end())) return bad;
                break;
            case MarkupScanner::Piece::StartTag:
                for (const AttributeSpan& attribute : scanner.attributes()) {
                    if (auto bad = FirstBadIn(text, attribute.valueBegin, attribute.valueEnd)) {
                        return bad;
                    }
                }
                break;
        }
    }
}

}  // namespace tabulon::xml
