#include "subcontrols/vertical_scroll.h"

#include <gtest/gtest.h>

#include <vector>

#include "subcontrols/scroll_grid.h"
#include "testing/recording_sink.h"

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
    RecordingSink sink;
    ctlVerticalScroll vsc{"vscGrid", &sink};
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

TEST_F(VerticalScroll, FailuresUseTheVerticalCodes) {
    SetScrollGrid(nullptr);
    EXPECT_FALSE(vsc.RefresVScrollBar());
    vsc.bar().setMax(3);
    vsc.bar().userStep(+1);  // takes the missing grid
    EXPECT_EQ(sink.messages(), (std::vector<RecordedMessage>{
                                   {MessageIcon::Critical, "Vertical scrollbar error - 6002"},
                                   {MessageIcon::Critical, "Vertical scrollbar error - 6001"}}));
    EXPECT_TRUE(vsc.driver().busy());
}

TEST(VerticalScrollLayout, TopMarginMovesTheBarDown) {
    ctlVerticalScroll vsc("vscGrid");
    vsc.move(7930, 880, 255, 4390);
    vsc.SetTopMargin(290);
    vsc.SetBottomMargin(100);
    const ScrollBar& bar = vsc.bar();
    EXPECT_EQ((std::vector{bar.left(), bar.top(), bar.width(), bar.height()}),
              (std::vector{0, 380, 255, 4000}));
    EXPECT_EQ(vsc.fraVertical().width(), 255);
    EXPECT_EQ(vsc.fraVertical().height(), 4480);
}

}  // namespace
}  // namespace tabulon
