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

TEST_F(FlexGridGeometry, PositionsStartAfterTheFixedAreaAndFollowTopRow) {
    EXPECT_EQ(grid.rowPos(0), 0);
    EXPECT_EQ(grid.rowPos(1), 300);
    EXPECT_EQ(grid.rowPos(2), 540);
    grid.setTopRow(3);
    EXPECT_EQ(grid.rowPos(0), 0);
    EXPECT_EQ(grid.rowPos(3), 300);
    EXPECT_EQ(grid.rowPos(4), 540);
    EXPECT_EQ(grid.rowPos(2), 60);    // scrolled out: under the fixed row
    EXPECT_EQ(grid.rowPos(1), -180);  // and above the grid
    grid.setLeftCol(2);
    EXPECT_EQ(grid.colPos(2), 1000);
    EXPECT_EQ(grid.colPos(1), 0);
    EXPECT_EQ(grid.cellLeft(), grid.colPos(grid.col()));
}

TEST_F(FlexGridGeometry, VisibleMeansPartlyInsideAndNotScrolledOut) {
    grid.setTopRow(3);
    // Row 7 starts at 1260 and is cut by the bottom edge at 1400; row 8 starts at 1500.
    const bool expected[] = {true, false, false, true, true, true, true, true, false, false, false};
    for (int r = 0; r < 11; ++r)
        EXPECT_EQ(grid.rowIsVisible(r), expected[r]) << r;
    grid.setColWidth(3, 0);  // hidden columns are never visible
    EXPECT_FALSE(grid.colIsVisible(3));
    EXPECT_TRUE(grid.colIsVisible(4));
    EXPECT_FALSE(grid.colIsVisible(6));  // starts at 1000 + 4000 = 5000, the right edge
}

TEST_F(FlexGridGeometry, ScrollPositionsPastTheLastOneClampToIt) {
    EXPECT_EQ(grid.maxTopRow(), 7);  // rows 7..10 fill 960 of the 1100 below the fixed row
    EXPECT_EQ(grid.maxLeftCol(), 7);
    grid.setTopRow(10);
    EXPECT_EQ(grid.topRow(), 7);
    grid.setLeftCol(7);
    grid.setLeftCol(8);  // the probe of a scroll bar: it cannot move further
    EXPECT_EQ(grid.leftCol(), 7);
    EXPECT_EQ(log.take(), (std::vector<std::string>{"Scroll 7,1", "Scroll 7,7"}));
    grid.setRowHeight(8, 0);
    EXPECT_EQ(grid.maxTopRow(), 6);
    grid.setRowHeight(10, 5000);  // a last row taller than the grid: it may be scrolled to
    EXPECT_EQ(grid.maxTopRow(), 10);
    Shape(grid, 1, 3);  // without scrollable rows TopRow is the fixed count
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_EQ(grid.maxTopRow(), 1);
    EXPECT_THROW(grid.setTopRow(0), InvalidArgumentFailure);
    EXPECT_THROW(grid.setTopRow(1), InvalidArgumentFailure);
}

TEST_F(FlexGridGeometry, ACoveredRightEdgeLetsTheLastColumnScrollOutFromUnderIt) {
    grid.setCoveredRight(300);  // columns 7..10 would end under the cover
    EXPECT_EQ(grid.maxLeftCol(), 8);
    grid.setLeftCol(10);
    EXPECT_EQ(grid.leftCol(), 8);
    log.take();
    grid.setCoveredRight(-5);  // none: back within the range, silently
    EXPECT_EQ(grid.leftCol(), 7);
    EXPECT_EQ(grid.coveredRight(), 0);
    EXPECT_TRUE(log.take().empty());
}

TEST_F(FlexGridGeometry, SizeChangesClampTheScrollPositionSilently) {
    grid.setTopRow(7);
    log.take();
    std::vector<Change> kinds;
    grid.Subscribe([&](const ChangeInfo& info) { kinds.push_back(info.kind); });
    grid.setHeight(3000);
    EXPECT_EQ(grid.topRow(), 1);
    EXPECT_TRUE(log.events.empty());
    EXPECT_EQ(kinds, (std::vector<Change>{Change::Scroll, Change::Geometry}));
}

TEST_F(FlexGridGeometry, HitTestsFindTheRowAndColumnUnderAPoint) {
    grid.setTopRow(3);
    EXPECT_EQ(grid.rowAt(0), 0);
    EXPECT_EQ(grid.rowAt(299), 0);
    EXPECT_EQ(grid.rowAt(300), 3);
    EXPECT_EQ(grid.rowAt(539), 3);
    EXPECT_EQ(grid.rowAt(540), 4);
    EXPECT_EQ(grid.rowAt(-1), -1);
    EXPECT_EQ(grid.rowAt(300 + 8 * 240), -1);  // below the last row
    grid.setColWidth(1, 0);
    EXPECT_EQ(grid.colAt(1000), 2);  // a hidden column covers nothing
}

// Positions, visibility and the last scroll position of a 100,000-row grid with
// uneven and zero heights agree with a plain running sum.
TEST(FlexGridLargeGeometry, AgreesWithARunningSumOnAHundredThousandRows) {
    constexpr int kRows = 100000;
    FlexGrid grid;
    grid.setCols(2);
    grid.setRows(kRows);
    grid.setFixedRows(2);
    grid.setHeight(30000);
    std::vector<std::int64_t> prefix{0};
    for (int r = 0; r < kRows; ++r) {
        const std::int32_t h = (r % 97 == 0) ? 0 : 200 + (r * 7919) % 400;
        grid.setRowHeight(r, h);
        prefix.push_back(prefix.back() + h);
    }
    const std::int64_t fixedHeight = prefix[2];
    int expectedMax = kRows - 1;
    while (expectedMax > 2 && prefix[kRows] - prefix[expectedMax - 1] <= 30000 - fixedHeight) {
        --expectedMax;
    }
    EXPECT_EQ(grid.maxTopRow(), expectedMax);
    for (const int top : {2, 5000, 77777, expectedMax}) {
        grid.setTopRow(top);
        for (const int r : {0, 1, top, top + 1, top + 60, top + 200, kRows - 1}) {
            if (r >= kRows) continue;
            const std::int64_t pos = r < 2 ? prefix[r] : fixedHeight + prefix[r] - prefix[top];
            EXPECT_EQ(grid.rowPos(r), pos) << top << " " << r;
            const bool visible = prefix[r + 1] > prefix[r] && (r < 2 || r >= top) && pos < 30000;
            EXPECT_EQ(grid.rowIsVisible(r), visible) << top << " " << r;
        }
    }
}

}  // namespace
}  // namespace tabulon
