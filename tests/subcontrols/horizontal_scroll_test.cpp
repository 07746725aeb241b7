// The horizontal bar's kept behaviours and decisions; the gestures of a person are in
// the scrolling journey (tests/journeys/scrolling.session).
#include "subcontrols/horizontal_scroll.h"

#include <gtest/gtest.h>

#include <vector>

#include "subcontrols/scroll_grid.h"
#include "testing/recording_sink.h"

namespace tabulon {
namespace {

// A grid whose header column and every data column are 1000 twips wide; at 6500 twips
// five and a half of the ten data columns are shown.
class HorizontalScroll : public ::testing::Test {
protected:
    void SetUp() override {
        grid.setRows(2);
        grid.setFixedRows(1);
        SetColumns(std::vector<int>(11, 1000));
        grid.setWidth(6500);
        grid.setHeight(2000);
        grid.onScroll = [this] { ++scrolls; };
        SetScrollGrid(&grid);
    }
    void TearDown() override { SetScrollGrid(nullptr); }

    void SetColumns(const std::vector<int>& widths) {
        grid.setCols(static_cast<int>(widths.size()));
        grid.setFixedCols(widths.empty() ? 0 : 1);
        for (int c = 0; c < grid.cols(); ++c)
            grid.setColWidth(c, widths[c]);
    }

    FlexGrid grid;
    RecordingSink sink;
    ctlHorizontalScroll hsc{"hscGrid", &sink};
    int scrolls = 0;
};

TEST_F(HorizontalScroll, EveryChangeMovesTheGridByExactlyOneColumn) {
    EXPECT_TRUE(hsc.RefresHScrollBar());
    EXPECT_EQ(hsc.bar().max(), 4);
    EXPECT_EQ(hsc.LeftMargin(), 990);  // header column width - 10
    scrolls = 0;
    hsc.bar().userDragTo(3);  // a thumb dragged over three units: three changes
    EXPECT_EQ(grid.leftCol(), 4);
    EXPECT_EQ(scrolls, 3);
    hsc.bar().userSetValue(0);  // a track click three columns back
    EXPECT_EQ(grid.leftCol(), 3);
    hsc.RefresHScrollBar();  // without argument: the grid is not stepped
    EXPECT_EQ(grid.leftCol(), 3);
    hsc.RefresHScrollBar(true);  // an unchanged value counts as a step back
    EXPECT_EQ(grid.leftCol(), 2);
}

// Kept: the last column partly shown, the grid moves on and back to learn whether it
// can; the first scrollable column shown takes the offset of the next shown one.
TEST_F(HorizontalScroll, TheProbeAndTheFirstShownColumnsOffset) {
    grid.setLeftCol(5);
    scrolls = 0;
    hsc.RefresHScrollBar();
    EXPECT_EQ(scrolls, 2);
    EXPECT_EQ(grid.leftCol(), 5);
    EXPECT_EQ(hsc.bar().max(), 5);
    EXPECT_EQ(hsc.bar().value(), 4);

    grid.setLeftCol(1);
    SetColumns({1000, 2000, 0, 2000, 2000});  // column 4 partly shown, column 2 hidden
    EXPECT_TRUE(hsc.RefresHScrollBar());
    EXPECT_EQ(hsc.bar().max(), 2);
    EXPECT_EQ(hsc.bar().value(), 1);
}

TEST_F(HorizontalScroll, StepPastTheLastColumnFailsAndLeavesTheBarBusy) {
    SetColumns({1000, 1000, 10000});  // the last column is wider than the view
    grid.setLeftCol(2);
    EXPECT_TRUE(hsc.RefresHScrollBar());
    hsc.bar().setMax(hsc.bar().max() + 1);
    hsc.bar().setValue(hsc.bar().max());  // code raises the value: a step right
    EXPECT_EQ(sink.messages(), (std::vector<RecordedMessage>{
                                   {MessageIcon::Critical, "Horizontal scrollbar error - 5001"}}));
    grid.setLeftCol(1);
    hsc.bar().userStep(-1);
    hsc.RefresHScrollBar(true);
    EXPECT_EQ(grid.leftCol(), 1);  // nothing moves the grid any more
    EXPECT_EQ(sink.messages().size(), 1u);
}

}  // namespace
}  // namespace tabulon
