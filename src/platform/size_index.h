// SizeIndex: the sizes of a run of grid rows (or columns) with their running sums,
// so that positions, the last scroll position and hit tests cost O(log n) however
// many rows a grid has (a binary indexed tree over the effective sizes).
#pragma once

#include <cstdint>
#include <vector>

namespace tabulon {

class SizeIndex {
public:
    int count() const { return static_cast<int>(stored_.size()); }

    // Keeps the first min(count, count()) sizes; new entries take size. A negative
    // count or size is the caller's error (not checked here).
    void resize(int count, std::int32_t size);

    // The size as set, and the effective size: never below minimum().
    std::int32_t stored(int index) const { return stored_[static_cast<std::size_t>(index)]; }
    std::int32_t size(int index) const;
    void set(int index, std::int32_t size);

    // A floor applied to every entry's effective size (0 = none).
    std::int32_t minimum() const { return minimum_; }
    void setMinimum(std::int32_t minimum);

    // Sum of the effective sizes of entries [0, end); end is clamped to [0, count()].
    std::int64_t prefix(int end) const;
    std::int64_t total() const { return prefix(count()); }

    // The smallest end in [0, count()] with prefix(end) >= sum; count() + 1 when even
    // the total is below sum.
    int lowerBound(std::int64_t sum) const;
    // The entry that covers offset, i.e. prefix(i) <= offset < prefix(i + 1); entries of
    // size 0 never cover anything. count() when offset >= total(), -1 when negative.
    int indexAt(std::int64_t offset) const;

private:
    void rebuild();
    int highestStep() const;

    std::vector<std::int32_t> stored_;
    std::vector<std::int64_t> tree_;  // 1-based Fenwick tree of effective sizes
    std::int32_t minimum_ = 0;
};

}  // namespace tabulon
