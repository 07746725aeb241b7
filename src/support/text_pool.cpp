#include "support/text_pool.h"

#include <limits>
#include <new>

namespace tabulon {

TextRef TextPool::add(std::string_view text) {
    if (text.empty()) return 0;
    if (text_.empty()) text_.push_back('\0');  // offset 0 stays the empty text
    constexpr std::size_t kMost = std::numeric_limits<TextRef>::max();
    constexpr std::size_t kLengthBytes = 10;
    if (text.size() > kMost - kLengthBytes - text_.size()) throw std::bad_alloc();
    const auto ref = static_cast<TextRef>(text_.size());
    for (std::size_t size = text.size();; size >>= 7) {
        if (size < 0x80) {
            text_.push_back(static_cast<char>(size));
            break;
        }
        text_.push_back(static_cast<char>(0x80 | (size & 0x7F)));
    }
    text_.append(text);
    return ref;
}

std::size_t TextPool::Footprint(std::string_view text) {
    if (text.empty()) return 0;
    std::size_t bytes = text.size() + 1;
    for (std::size_t size = text.size(); size >= 0x80; size >>= 7)
        ++bytes;
    return bytes;
}

std::string_view TextPool::view(TextRef ref) const {
    if (ref == 0) return {};
    std::size_t at = ref;
    std::size_t size = 0;
    for (int shift = 0;; shift += 7) {
        const auto byte = static_cast<unsigned char>(text_[at++]);
        size |= static_cast<std::size_t>(byte & 0x7F) << shift;
        if (byte < 0x80) break;
    }
    return std::string_view(text_).substr(at, size);
}

}  // namespace tabulon
