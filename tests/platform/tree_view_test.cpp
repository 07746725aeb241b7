#include "platform/tree_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/failure.h"

namespace tabulon {
namespace {

// Thousands of nodes, keys and texts from empty to 20,000 bytes: each is found by its
// key and keeps its texts and place; keys are compared exactly and used once.
TEST(TreeView, ManyNodesKeepTheirKeysTextsAndPlaces) {
    TreeView tree;
    const auto keyOf = [](int i) {
        return "k" + std::string(static_cast<std::size_t>(i % 300), 'x') + std::to_string(i);
    };
    const auto textOf = [](int i) {
        return i == 7 ? std::string(20000, 't') : std::to_string(i % 3);
    };
    constexpr int kCount = 5000;
    tree.reserve(10);  // room for fewer: the tree grows beyond
    for (int i = 1; i <= kCount; ++i) {
        ASSERT_EQ(tree.add(i <= 2 ? "" : keyOf(i / 2), keyOf(i), textOf(i), i % 4), i);
    }
    tree.add("", "", "no key", 0);
    for (int i = 1; i <= kCount; ++i) {
        ASSERT_EQ(tree.indexOf(keyOf(i)), i);
        const TreeNode node = tree.node(i);
        ASSERT_EQ(node.text, textOf(i));
        ASSERT_EQ(node.parent, i <= 2 ? 0 : i / 2);
    }
    EXPECT_EQ(tree.children(0), (std::vector<int>{1, 2, kCount + 1}));
    EXPECT_EQ(tree.children(1000), (std::vector<int>{2000, 2001}));
    EXPECT_EQ(tree.indexOf("K5"), 0);
    EXPECT_THROW(tree.add("", keyOf(4999), "twice", 0), InvalidArgumentFailure);
    EXPECT_THROW(tree.add("nope", "X", "orphan", 0), InvalidArgumentFailure);
    EXPECT_EQ(tree.count(), kCount + 1);
    tree.clear();
    EXPECT_EQ(tree.add("", keyOf(1), "reused", 0), 1);  // keys are free again after clear
}

}  // namespace
}  // namespace tabulon
