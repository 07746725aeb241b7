#include <gtest/gtest.h>

#include <vector>

#include "platform/event_log.h"
#include "platform/flex_grid.h"
#include "support/failure.h"

namespace tabulon {
namespace {

using testing::EventLog;
using testing::RecordGrid;
using testing::Shape;

// 1 fixed row of 300 and 10 rows of 240; 1 fixed column and 10 of 1000 each; the
// grid 5000 x 1400: four whole rows and four whole columns fit beside the fixed ones.
class FlexGridGeometry : public ::testing::Test {
protected:
    void SetUp() override {
        Shape(grid, 11, 11);
        grid.setRowHeight(0, 300);
        grid.move(0, 0, 5000, 1400);
        RecordGrid(grid, log);
    }
    FlexGrid grid;
    EventLog log;
};

TEST_F(FlexGridGeometry, ScrollPositionsPastTheLastOneClampToIt) {
    EXPECT_EQ(grid.maxTopRow(), 7);  // rows 7..10 fill 960 of the 1100 below the fixed row
    grid.setTopRow(10);
    EXPECT_EQ(grid.topRow(), 7);
    grid.setLeftCol(7);
    grid.setLeftCol(8);  // the probe of a scroll bar: it cannot move further
    EXPECT_EQ(grid.leftCol(), 7);
    EXPECT_EQ(log.take(), (std::vector<std::string>{"Scroll 7,1", "Scroll 7,7"}));
    grid.setRowHeight(10, 5000);  // a last row taller than the grid: it may be scrolled to
    EXPECT_EQ(grid.maxTopRow(), 10);
    grid.setCoveredRight(300);  // the vertical bar: the last column scrolls out from under it
    EXPECT_EQ(grid.maxLeftCol(), 8);
    Shape(grid, 1, 3);  // without scrollable rows TopRow is the fixed count
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_THROW(grid.setTopRow(1), InvalidArgumentFailure);
}

}  // namespace
}  // namespace tabulon
