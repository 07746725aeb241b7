#include "platform/size_index.h"

#include <algorithm>

namespace tabulon {

void SizeIndex::resize(int count, std::int32_t size) {
    stored_.resize(static_cast<std::size_t>(count), size);
    rebuild();
}

std::int32_t SizeIndex::size(int index) const {
    return std::max(stored(index), minimum_);
}

void SizeIndex::set(int index, std::int32_t size) {
    const std::int64_t before = this->size(index);
    stored_[static_cast<std::size_t>(index)] = size;
    const std::int64_t delta = this->size(index) - before;
    if (delta == 0) return;
    const std::size_t n = stored_.size();
    for (std::size_t i = static_cast<std::size_t>(index) + 1; i <= n; i += i & (~i + 1)) {
        tree_[i] += delta;
    }
}

void SizeIndex::setMinimum(std::int32_t minimum) {
    if (minimum == minimum_) return;
    minimum_ = minimum;
    rebuild();
}

void SizeIndex::rebuild() {
    const std::size_t n = stored_.size();
    tree_.assign(n + 1, 0);
    // Linear construction: each node passes its sum on to its parent.
    for (std::size_t i = 1; i <= n; ++i) {
        tree_[i] += std::max(stored_[i - 1], minimum_);
        const std::size_t parent = i + (i & (~i + 1));
        if (parent <= n) tree_[parent] += tree_[i];
    }
}

std::int64_t SizeIndex::prefix(int end) const {
    std::size_t i = static_cast<std::size_t>(std::clamp(end, 0, count()));
    std::int64_t sum = 0;
    for (; i > 0; i -= i & (~i + 1))
        sum += tree_[i];
    return sum;
}

int SizeIndex::highestStep() const {
    int step = 1;
    while (step * 2 <= count())
        step *= 2;
    return step;
}

int SizeIndex::lowerBound(std::int64_t sum) const {
    if (sum <= 0) return 0;
    // Walk down to the longest run of entries whose sum stays below the target.
    int pos = 0;
    std::int64_t remaining = sum;
    for (int step = highestStep(); step > 0; step /= 2) {
        const int next = pos + step;
        if (next <= count() && tree_[static_cast<std::size_t>(next)] < remaining) {
            pos = next;
            remaining -= tree_[static_cast<std::size_t>(next)];
        }
    }
    return pos + 1;
}

int SizeIndex::indexAt(std::int64_t offset) const {
    if (offset < 0) return -1;
    // The longest run of entries whose sum does not pass offset ends just before
    // the covering entry.
    int pos = 0;
    std::int64_t remaining = offset;
    for (int step = highestStep(); step > 0; step /= 2) {
        const int next = pos + step;
        if (next <= count() && tree_[static_cast<std::size_t>(next)] <= remaining) {
            pos = next;
            remaining -= tree_[static_cast<std::size_t>(next)];
        }
    }
    return pos;
}

}  // namespace tabulon
