#include <gtest/gtest.h>

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

TEST_F(FlexGridEvents, CodeChangeRaisesLeaveEnterThenRowColChange) {
    grid.setRow(3);
    EXPECT_EQ(log.take(), (Events{"LeaveCell 1,1", "EnterCell 3,1", "RowColChange 3,1"}));
    grid.setRow(3);
    grid.setCol(1);
    EXPECT_TRUE(log.take().empty());
    grid.setCol(0);  // code may make a fixed cell current
    EXPECT_EQ(log.take(), (Events{"LeaveCell 3,1", "EnterCell 3,0", "RowColChange 3,0"}));
}

TEST_F(FlexGridEvents, ChangingTheCurrentCellCollapsesTheSelection) {
    grid.setRowSel(5);
    grid.setColSel(4);
    EXPECT_TRUE(log.take().empty());
    grid.setRow(1);  // the same cell: nothing raised, selection still collapses
    EXPECT_EQ(grid.rowSel(), 1);
    EXPECT_EQ(grid.colSel(), 1);
    EXPECT_TRUE(log.take().empty());
}

TEST_F(FlexGridEvents, ClickOnACellMakesItCurrentThenClicksAlsoWhenAlreadyCurrent) {
    grid.userClick(2, 3);
    EXPECT_EQ(log.take(),
              (Events{"LeaveCell 1,1", "EnterCell 2,3", "RowColChange 2,3", "Click 2,3"}));
    grid.userClick(2, 3);
    EXPECT_EQ(log.take(), (Events{"Click 2,3"}));
    EXPECT_EQ(grid.mouseRow(), 2);
    EXPECT_EQ(grid.mouseCol(), 3);
}

// Without big selection a header click only clicks; with it, it selects the whole
// column, row or grid.
TEST_F(FlexGridEvents, HeaderClickSelectsOnlyWithBigSelection) {
    struct Case {
        bool big;
        int row, col;
        int current[2], sel[2];
    };
    const Case cases[] = {
        {false, 0, 3, {1, 1}, {1, 1}},
        {true, 0, 3, {1, 3}, {5, 3}},  // header row: column 3
        {true, 4, 0, {4, 1}, {4, 4}},  // header column: row 4
        {true, 0, 0, {1, 1}, {5, 4}},  // corner: everything
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::to_string(c.big) + " " + std::to_string(c.row) + "," +
                     std::to_string(c.col));
        grid.setAllowBigSelection(c.big);
        grid.userClick(c.row, c.col);
        EXPECT_EQ(std::vector({grid.row(), grid.col(), grid.rowSel(), grid.colSel()}),
                  std::vector({c.current[0], c.current[1], c.sel[0], c.sel[1]}));
        EXPECT_EQ(grid.mouseRow(), c.row);
        const Events events = log.take();
        EXPECT_EQ(events.back(),
                  "Click " + std::to_string(c.current[0]) + "," + std::to_string(c.current[1]));
        if (!c.big) {
            EXPECT_EQ(events.size(), 1u);
        }
    }
}

TEST_F(FlexGridEvents, ScrollIsRaisedForEveryRealMoveByCodeOrUser) {
    grid.setTopRow(2);
    grid.setTopRow(2);
    grid.userScroll(1, 0);
    grid.userScroll(0, 1);
    grid.userScroll(100, 100);  // to the last positions, one Scroll
    grid.userScroll(1, 1);      // already there
    grid.userScroll(-100, 0);
    EXPECT_EQ(log.take(),
              (Events{"Scroll 2,1", "Scroll 3,1", "Scroll 3,2", "Scroll 3,3", "Scroll 1,3"}));
    EXPECT_EQ(grid.topRow(), 1);
}

TEST_F(FlexGridEvents, GesturesWhileDisabledOrHiddenAndStructuralChangesRaiseNothing) {
    grid.setEnabled(false);
    grid.userClick(2, 2);
    grid.userScroll(1, 1);
    grid.setEnabled(true);
    grid.setVisible(false);
    grid.userMouseMove(2, 2);
    EXPECT_TRUE(log.take().empty());
    EXPECT_EQ(grid.row(), 1);
    grid.setRow(5);
    log.take();
    grid.setRows(3);
    grid.setFixedRows(0);
    grid.setCols(9);
    grid.setRowHeight(1, 999);
    EXPECT_TRUE(log.take().empty());
}

TEST_F(FlexGridEvents, MouseMoveRecordsThePointerCellAndItsCorner) {
    grid.userMouseMove(0, 2);
    EXPECT_EQ(grid.mouseRow(), 0);
    EXPECT_EQ(grid.mouseCol(), 2);
    grid.userMouseMove(-1, -1, 1, 2);
    EXPECT_EQ(grid.mouseRow(), -1);
    EXPECT_EQ(log.take(), (Events{"MouseMove 0 0 2000 0", "MouseMove 1 2 0 0"}));
}

TEST_F(FlexGridEvents, HandlersMayScrollTheGridWhileTheCellChanges) {
    grid.onRowColChange = [&] {
        log.add("RowColChange");
        grid.setTopRow(grid.row());
    };
    grid.userClick(4, 1);
    EXPECT_EQ(log.take(), (Events{"LeaveCell 1,1", "EnterCell 4,1", "RowColChange", "Scroll 3,1",
                                  "Click 4,1"}));
}

TEST_F(FlexGridEvents, AHandlerThatMovesTheCellItselfTakesOver) {
    bool redirected = false;
    grid.onLeaveCell = [&] {
        log.add("LeaveCell " + std::to_string(grid.row()));
        if (!redirected) {  // e.g. a validation that sends the user elsewhere
            redirected = true;
            grid.setRow(5);
        }
    };
    grid.setRow(2);
    EXPECT_EQ(log.take(),
              (Events{"LeaveCell 1", "LeaveCell 1", "EnterCell 5,1", "RowColChange 5,1"}));
    EXPECT_EQ(grid.row(), 5);
}

TEST_F(FlexGridEvents, HandlersMayShrinkTheGridOrClearTheirOwnCallback) {
    grid.onLeaveCell = [&] { grid.setRows(2); };
    grid.setRow(4);  // row 4 is gone once LeaveCell returns: no EnterCell
    EXPECT_EQ(grid.row(), 1);
    EXPECT_TRUE(log.take().empty());
    grid.onClick = [&] {
        grid.onClick = nullptr;
        log.add("once");
    };
    grid.userClick(1, 1);
    grid.userClick(1, 1);
    EXPECT_EQ(log.take(), (Events{"once"}));
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
