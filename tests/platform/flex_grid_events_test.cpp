#include <gtest/gtest.h>

#include <utility>

#include "platform/event_log.h"
#include "platform/flex_grid.h"

namespace tabulon {
namespace {

using testing::EventLog;
using testing::RecordGrid;
using testing::Shape;
using Events = std::vector<std::string>;

class FlexGridEvents : public ::testing::Test {
protected:
    void SetUp() override {
        Shape(grid, 6, 5);
        grid.move(0, 0, 3000, 1000);
        RecordGrid(grid, log);
    }
    FlexGrid grid;
    EventLog log;
};

TEST_F(FlexGridEvents, ACellChangeRaisesLeaveEnterRowColChangeThenTheClick) {
    grid.userClick(2, 3);
    EXPECT_EQ(log.take(),
              (Events{"LeaveCell 1,1", "EnterCell 2,3", "RowColChange 2,3", "Click 2,3"}));
    grid.userClick(2, 3);
    grid.setRow(2);
    EXPECT_EQ(log.take(), (Events{"Click 2,3"}));
}

// Without big selection a header click only clicks; with it, it selects the whole
// column, row or grid.
TEST_F(FlexGridEvents, HeaderClickSelectsOnlyWithBigSelection) {
    const struct {
        bool big;
        int row, col;
        std::vector<int> currentAndSel;
    } cases[] = {
        {false, 0, 3, {1, 1, 1, 1}},
        {true, 0, 3, {1, 3, 5, 3}},  // header row: column 3
        {true, 4, 0, {4, 1, 4, 4}},  // header column: row 4
        {true, 0, 0, {1, 1, 5, 4}},  // corner: everything
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(std::to_string(c.row) + "," + std::to_string(c.col));
        grid.setAllowBigSelection(c.big);
        grid.userClick(c.row, c.col);
        EXPECT_EQ(std::vector({grid.row(), grid.col(), grid.rowSel(), grid.colSel()}),
                  c.currentAndSel);
        EXPECT_EQ(log.take().back(), "Click " + std::to_string(c.currentAndSel[0]) + "," +
                                         std::to_string(c.currentAndSel[1]));
    }
}

// A handler that moves the cell itself (a validation sending the user elsewhere)
// takes over; one that shrinks the grid ends the change.
TEST_F(FlexGridEvents, HandlersMayMoveTheCellOrShrinkTheGrid) {
    bool redirected = false;
    grid.onLeaveCell = [&] {
        log.add("LeaveCell " + std::to_string(grid.row()));
        if (!std::exchange(redirected, true)) grid.setRow(5);
    };
    grid.setRow(2);
    EXPECT_EQ(log.take(),
              (Events{"LeaveCell 1", "LeaveCell 1", "EnterCell 5,1", "RowColChange 5,1"}));
    grid.onLeaveCell = [&] { grid.setRows(2); };
    grid.setRow(4);
    EXPECT_EQ(grid.row(), 1);
    EXPECT_TRUE(log.take().empty());
}

// A dragged border gives the column a width a person can still see and grab; a hidden
// column has no border, and a grid that takes no input takes no drag.
TEST_F(FlexGridEvents, UserResizeKeepsWidthsWithinLimitsAndRaisesOnlyForAChange) {
    grid.setColWidth(4, 0);
    const struct {
        int col;
        std::int32_t asked;
        std::int32_t width;
        Events raised;
    } cases[] = {
        {2, 1500, 1500, {"UserColResize 2 1500"}},
        {2, 1500, 1500, {}},
        {0, 10, FlexGrid::kMinUserColWidth, {"UserColResize 0 120"}},
        {3, 1 << 30, FlexGrid::kMaxUserColWidth, {"UserColResize 3 30000"}},
        {4, 900, 0, {}},
    };
    for (const auto& c : cases) {
        grid.userResizeCol(c.col, c.asked);
        EXPECT_EQ(grid.colWidth(c.col), c.width) << c.col << " " << c.asked;
        EXPECT_EQ(log.take(), c.raised) << c.col << " " << c.asked;
    }
    grid.setEnabled(false);
    grid.userResizeCol(1, 2000);
    EXPECT_EQ(grid.colWidth(1), 1000);
    EXPECT_TRUE(log.take().empty());
}

}  // namespace
}  // namespace tabulon
