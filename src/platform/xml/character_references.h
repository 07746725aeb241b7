// Numeric character references ("&#65;", "&#x41;") as the XML rules allow them: a
// reference must be complete and name a character XML allows (tab, LF, CR, U+0020 to
// U+D7FF, U+E000 to U+FFFD, U+10000 to U+10FFFF). The document model's parser expands
// every reference it meets without asking, so "&#0;" would cut a text and
// "&#4294967361;" wrap round to "A"; the text is checked before it is parsed.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace tabulon::xml {

struct BadReference {
    std::size_t offset = 0;  // of its "&"
    std::string text;        // as written, at most 32 bytes of it
};

// The first numeric reference of text, in character data or an attribute value, that
// is incomplete or names a character XML does not allow. Comments, CDATA sections,
// processing instructions and declarations are not looked into. Linear in the text.
std::optional<BadReference> FirstBadCharacterReference(std::string_view text);

}  // namespace tabulon::xml
