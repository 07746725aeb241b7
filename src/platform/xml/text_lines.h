// Line and column arithmetic over a text, shared by parse errors and validation
// messages. Lines end at LF, as the validating parser counts them; a CR before the
// LF belongs to the line end.
#pragma once

#include <cstddef>
#include <string_view>

namespace tabulon::xml {

struct TextPosition {
    int line = 1;    // 1-based
    int column = 1;  // 1-based, in characters: UTF-8 continuation bytes do not count
};

// Position of the byte at offset (an offset past the end is the end). A leading
// UTF-8 byte order mark takes no column.
TextPosition PositionOf(std::string_view text, std::size_t offset);

// Line number (1-based) of text, without its line end; "" when there is no such
// line.
std::string_view LineText(std::string_view text, int line);

}  // namespace tabulon::xml
