#include "subcontrols/vertical_scroll.h"

#include <gtest/gtest.h>

#include <vector>

#include "subcontrols/scroll_grid.h"

namespace tabulon {
namespace {

// A grid of one header column and one data column; each test sets its rows.
class VerticalScroll : public ::testing::Test {
protected:
    void SetUp() override {
        grid.setCols(2);
        grid.setFixedCols(1);
        grid.setWidth(4000);
        SetScrollGrid(&grid);
    }
    void TearDown() override { SetScrollGrid(nullptr); }

    void SetRows(const std::vector<int>& heights) {
        grid.setRows(static_cast<int>(heights.size()));
        grid.setFixedRows(heights.empty() ? 0 : 1);
        for (int r = 0; r < grid.rows(); ++r)
            grid.setRowHeight(r, heights[r]);
    }

    FlexGrid grid;
    ctlVerticalScroll vsc{"vscGrid"};
};

TEST_F(VerticalScroll, EveryRowFitsOnlyWithRowOneAndTheLastRowShown300TwipsClear) {
    struct Case {
        std::vector<int> heights;
        int gridHeight;
        bool needed;
    };
    const Case cases[] = {
        {{300, 300, 300, 300, 0}, 2100, true},  // a zero-height last row is not skipped
        {{300, 300, 0, 300}, 2100, false},
        {{300, 300, 0, 300}, 1100, true},  // bottom edge 900 within 300 of the edge
        {{300, 0, 300, 300}, 2100, true},  // row 1 hidden
    };
    for (const Case& c : cases) {
        SetRows(c.heights);
        grid.setHeight(c.gridHeight);
        EXPECT_EQ(vsc.RefresVScrollBar(), c.needed) << c.heights.size() << " " << c.gridHeight;
        EXPECT_EQ(vsc.TopMargin(), 290);  // header row height - 10
    }
}

}  // namespace
}  // namespace tabulon
