// Decoding of a file's bytes to the UTF-8 text the parser reads.
#pragma once

#include <string>

namespace tabulon::xml {

// Converts text in place when it starts with a UTF-16 byte order mark (FF FE little
// endian, FE FF big endian): the result is UTF-8 without the mark. Any other text,
// with or without a UTF-8 mark, is left as it is. Returns false (text unspecified)
// when UTF-16 text has an odd length or an unpaired surrogate.
bool DecodeFileText(std::string& text);

}  // namespace tabulon::xml
