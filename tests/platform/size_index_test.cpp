#include "platform/size_index.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace tabulon {
namespace {

// Checks every query of the index against a plain running sum of the effective sizes.
void ExpectAgrees(const SizeIndex& index, const std::vector<std::int32_t>& stored,
                  std::int32_t minimum) {
    std::vector<std::int64_t> prefix{0};
    for (const std::int32_t s : stored)
        prefix.push_back(prefix.back() + std::max(s, minimum));
    const int n = static_cast<int>(stored.size());
    ASSERT_EQ(index.count(), n);
    for (int i = 0; i <= n; ++i)
        ASSERT_EQ(index.prefix(i), prefix[static_cast<std::size_t>(i)]);
    for (std::int64_t target = -1; target <= prefix.back() + 1; target += 7) {
        int lower = 0;
        while (lower <= n && prefix[static_cast<std::size_t>(lower)] < target)
            ++lower;
        ASSERT_EQ(index.lowerBound(target), lower) << target;
        int covering = target < 0 ? -1 : 0;
        while (covering >= 0 && covering < n &&
               prefix[static_cast<std::size_t>(covering) + 1] <= target) {
            ++covering;
        }
        ASSERT_EQ(index.indexAt(target), covering) << target;
    }
}

TEST(SizeIndex, AgreesWithARunningSumThroughEdits) {
    std::mt19937 random(42);
    std::uniform_int_distribution<int> size(0, 30);
    std::vector<std::int32_t> stored;
    SizeIndex index;
    for (const int count : {0, 1, 2, 7, 16, 33, 20}) {
        stored.resize(static_cast<std::size_t>(count), 5);
        index.resize(count, 5);
        for (int i = 0; i < count; ++i) {
            const std::int32_t s = size(random) < 6 ? 0 : size(random);  // zeros included
            stored[static_cast<std::size_t>(i)] = s;
            index.set(i, s);
        }
        ExpectAgrees(index, stored, 0);
    }
    index.setMinimum(12);
    ExpectAgrees(index, stored, 12);
    EXPECT_EQ(index.stored(3), stored[3]);  // the floor does not forget the size set
}

}  // namespace
}  // namespace tabulon
