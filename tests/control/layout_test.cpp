// The resize handling: where the parts go, in twips.
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

}  // namespace
}  // namespace tabulon
