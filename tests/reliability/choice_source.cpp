#include "reliability/choice_source.h"

namespace tabulon::reliability {

std::size_t ByteChoices::Below(std::size_t n) {
    if (n <= 1) return 0;
    std::size_t value = 0;
    const std::size_t width = n <= 256 ? 1 : 2;
    for (std::size_t i = 0; i < width && !bytes_.empty(); ++i) {
        value = value << 8 | static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
    }
    return value % n;
}

std::size_t SeededChoices::Below(std::size_t n) {
    if (n <= 1) return 0;
    return static_cast<std::size_t>(engine_() % n);
}

}  // namespace tabulon::reliability
