// The resize handling and the splitter: where the parts go, in twips.
#include <gtest/gtest.h>

#include <tuple>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Critical;

using Geometry = std::tuple<std::int32_t, std::int32_t, std::int32_t, std::int32_t>;

Geometry Of(const Component& c) {
    return {c.left(), c.top(), c.width(), c.height()};
}

std::vector<Geometry> Layout(Form& form) {
    std::vector<Geometry> layout;
    for (const Component* c : form.children())
        layout.push_back(Of(*c));
    return layout;
}

using ControlLayout = ControlHarness;

TEST_F(ControlLayout, FirstShowingKeepsTheDesignLayoutAndPublishesTheLargestTreeWidth) {
    EXPECT_EQ(Of(form().msgGridView), Geometry(2840, 840, 5360, 4740));
    EXPECT_EQ(Of(form().hscGrid), Geometry(2890, 5580, 5020, 255));
    EXPECT_EQ(Of(form().vscGrid), Geometry(7930, 880, 255, 4390));
    EXPECT_EQ(LargestTreeViewWidth(), 3155);
}

TEST_F(ControlLayout, GrowingMovesEveryPartByTheDifference) {
    control().Resize(8500, 6900);
    const Form& f = form();
    EXPECT_EQ(Of(f.treTreeView), Geometry(0, 0, 2845, 6180));
    EXPECT_EQ(f.cboFilter.width(), 4020);
    EXPECT_EQ(Of(f.msgGridView), Geometry(2940, 840, 5560, 5340));
    EXPECT_EQ(Of(f.hscGrid), Geometry(2990, 6180, 5220, 255));
    EXPECT_EQ(Of(f.vscGrid), Geometry(8230, 880, 255, 4990));
    EXPECT_EQ(Of(f.cmdHelp), Geometry(7235, 6480, 1215, 375));
    EXPECT_EQ(LargestTreeViewWidth(), 3455);
    ExpectMessages({});
}

// The tree takes a third of the width change, rounded down; a narrow tree never shrinks.
TEST_F(ControlLayout, TheTreeTakesAThirdOfTheWidthChange) {
    const struct {
        std::int32_t startWidth, controlWidth, width;
    } cases[] = {{0, 8201, 2745}, {0, 8200, 2744}, {1400, 8500, 1500}, {0, 8200, 1500}};
    for (const auto& c : cases) {
        if (c.startWidth != 0) form().treTreeView.setWidth(c.startWidth);
        control().Resize(c.controlWidth, 6300);
        EXPECT_EQ(form().treTreeView.width(), c.width) << c.controlWidth;
    }
}

TEST_F(ControlLayout, ASizeBelowTheMinimumIsRaisedFirstAndBeyondSixteenBitsIsAnError) {
    const std::vector<Geometry> before = Layout(form());
    control().Resize(5000, 4000);
    EXPECT_EQ(form().control.width(), 8200);
    EXPECT_EQ(form().control.height(), 6300);
    EXPECT_EQ(Layout(form()), before);
    ExpectMessages({});
    control().Resize(40000, 6300);
    ExpectMessages({Critical("Unexpected Error - 1003")});
}

TEST_F(ControlLayout, TheSplitterMovesEverythingBesideTheTree) {
    control().SplitterDrag(1, 0, 200, 0);
    EXPECT_EQ(Of(form().msgGridView), Geometry(3040, 840, 5160, 4740));
    EXPECT_EQ(Of(form().hscGrid), Geometry(3090, 5580, 4820, 255));
    EXPECT_EQ(LargestTreeViewWidth(), 3155);
}

// Only the left button drags; the tree stays within its limits.
TEST_F(ControlLayout, TheSplitterKeepsTheTreeWithinItsLimits) {
    const struct {
        int button;
        std::int32_t dx;
        std::int32_t width;
    } cases[] = {{1, -1245, 1500}, {1, -1244, 1501}, {1, 411, 3155}, {2, 200, 2745}};
    for (const auto& c : cases) {
        NewControl();
        control().SplitterDrag(c.button, 0, c.dx, 0);
        EXPECT_EQ(form().treTreeView.width(), c.width) << c.button << " " << c.dx;
    }
}

}  // namespace
}  // namespace tabulon
