#include "platform/xml/text_lines.h"

namespace tabulon::xml {

namespace {
constexpr std::string_view kUtf8Bom = "\xEF\xBB\xBF";

bool IsContinuationByte(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
}  // namespace

TextPosition PositionOf(std::string_view text, std::size_t offset) {
    if (offset > text.size()) offset = text.size();
    const std::size_t start =
        text.starts_with(kUtf8Bom) && offset >= kUtf8Bom.size() ? kUtf8Bom.size() : 0;
    TextPosition position;
    for (std::size_t i = start; i < offset; ++i) {
        if (text[i] == '\n') {
            ++position.line;
            position.column = 1;
        } else if (!IsContinuationByte(text[i])) {
            ++position.column;
        }
    }
    return position;
}

std::string_view LineText(std::string_view text, int line) {
    if (line < 1) return {};
    std::size_t begin = 0;
    for (int current = 1; current < line; ++current) {
        const std::size_t end = text.find('\n', begin);
        if (end == std::string_view::npos) return {};
        begin = end + 1;
    }
    std::size_t end = text.find('\n', begin);
    if (end == std::string_view::npos) end = text.size();
    if (end > begin && text[end - 1] == '\r') --end;
    return text.substr(begin, end - begin);
}

}  // namespace tabulon::xml
