#include "platform/tree_view.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/failure.h"

namespace tabulon {
namespace {

// P1 ( C1 ( G1 ), C2 ), P2
class TreeViewTest : public ::testing::Test {
protected:
    void SetUp() override {
        tree.add("", "P1", "Plant", 1);
        tree.add("P1", "C1", "Pumps", 0);
        tree.add("C1", "G1", "Pump 1", 2);
        tree.add("P1", "C2", "Valves", 0);
        tree.add("", "P2", "Site", 0);
        tree.onNodeClick = [this](int i) { log.push_back("NodeClick " + std::to_string(i)); };
        tree.onCollapse = [this](int i) {
            log.push_back("Collapse " + std::to_string(i) + " selected " +
                          std::to_string(tree.selectedIndex()));
        };
    }
    TreeView tree;
    std::vector<std::string> log;
};

TEST_F(TreeViewTest, NodesAreNumberedInAddOrderUnderTheirRelatives) {
    EXPECT_EQ(tree.count(), 5);
    EXPECT_EQ(tree.node(3).parent, 2);
    EXPECT_EQ(tree.node(3).image, 2);
    EXPECT_EQ(tree.children(0), (std::vector<int>{1, 5}));
    EXPECT_EQ(tree.children(1), (std::vector<int>{2, 4}));
    EXPECT_EQ(tree.indexOf("C2"), 4);
    EXPECT_EQ(tree.indexOf("c2"), 0);  // exact comparison
    EXPECT_THROW(tree.node(6), InvalidArgumentFailure);
}

// Thousands of nodes, keys and texts from empty to 20,000 bytes: each is found by its
// key and keeps its texts and place.
TEST(TreeViewSize, ManyNodesKeepTheirKeysTextsAndPlaces) {
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
    EXPECT_EQ(tree.node(kCount + 1).key, "");
    EXPECT_THROW(tree.add("", keyOf(4999), "twice", 0), InvalidArgumentFailure);
}

TEST_F(TreeViewTest, DuplicateOrUnknownKeysAndUnknownStylesThrowAndChangeNothing) {
    EXPECT_THROW(tree.add("", "C1", "again", 0), InvalidArgumentFailure);
    EXPECT_THROW(tree.add("nope", "X", "orphan", 0), InvalidArgumentFailure);
    EXPECT_EQ(tree.count(), 5);
    tree.clear();
    EXPECT_EQ(tree.count(), 0);
    EXPECT_EQ(tree.add("", "C1", "reused", 0), 1);  // keys are free again after clear
    tree.setStyle(0);                               // the eight styles 0..7 only
    EXPECT_THROW(tree.setStyle(8), InvalidArgumentFailure);
    EXPECT_THROW(tree.setStyle(-1), InvalidArgumentFailure);
    EXPECT_EQ(tree.style(), 0);
}

TEST_F(TreeViewTest, ClickingANodeSelectsItThenRaisesNodeClick) {
    tree.setSelectedIndex(2);  // by code: nothing raised
    tree.userClickNode(4);
    EXPECT_EQ(tree.selectedIndex(), 4);
    EXPECT_EQ(log, (std::vector<std::string>{"NodeClick 4"}));
    tree.clear();
    EXPECT_EQ(tree.selectedIndex(), 0);
}

TEST_F(TreeViewTest, CollapsingMovesADescendantsSelectionUpBeforeCollapseRuns) {
    tree.setExpanded(1, true);
    tree.setExpanded(2, true);
    tree.setSelectedIndex(3);
    tree.userCollapse(1);
    EXPECT_FALSE(tree.node(1).expanded);
    EXPECT_TRUE(tree.node(2).expanded);  // the inner branch keeps its state
    tree.userExpand(1);
    tree.setSelectedIndex(5);
    tree.userCollapse(1);  // selection elsewhere: it stays
    tree.userCollapse(1);  // already collapsed: nothing
    EXPECT_EQ(log, (std::vector<std::string>{"Collapse 1 selected 1", "Collapse 1 selected 5"}));
}

}  // namespace
}  // namespace tabulon
