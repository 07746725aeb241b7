#include "subcontrols/horizontal_scroll.h"

#include <gtest/gtest.h>

#include <vector>

#include "subcontrols/scroll_grid.h"
#include "support/failure.h"
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

TEST_F(HorizontalScroll, TenScrollableWithSixShownAtTheFarLeft) {
    EXPECT_TRUE(hsc.RefresHScrollBar());
    EXPECT_EQ(hsc.bar().max(), 4);
    EXPECT_EQ(hsc.bar().value(), 0);
    EXPECT_EQ(hsc.LeftMargin(), 990);  // header column width - 10

    hsc.bar().userStep(+1);
    EXPECT_EQ(grid.leftCol(), 2);
    EXPECT_EQ(scrolls, 1);
    EXPECT_EQ(hsc.bar().value(), 1);
    EXPECT_EQ(hsc.driver().previousValue(), 1);
    EXPECT_TRUE(sink.messages().empty());
}

TEST_F(HorizontalScroll, EveryGestureMovesTheGridByExactlyOneColumn) {
    hsc.RefresHScrollBar();
    hsc.bar().userSetValue(3);  // track click three columns further
    EXPECT_EQ(grid.leftCol(), 2);
    hsc.bar().userDrag(4);  // thumb drag
    EXPECT_EQ(grid.leftCol(), 3);
    hsc.bar().userStep(-1);
    EXPECT_EQ(grid.leftCol(), 2);
}

TEST_F(HorizontalScroll, AThumbDraggedOverUnitsMovesTheGridOneColumnPerUnit) {
    hsc.RefresHScrollBar();
    scrolls = 0;
    hsc.bar().userDragTo(3);
    EXPECT_EQ(grid.leftCol(), 4);
    EXPECT_EQ(scrolls, 3);
    hsc.bar().userDragTo(hsc.bar().max());  // to the end of the track: the last column
    EXPECT_EQ(grid.leftCol(), grid.maxLeftCol());
    EXPECT_EQ(hsc.bar().value(), hsc.bar().max());
    hsc.bar().userDragTo(0);
    EXPECT_EQ(grid.leftCol(), 1);
    EXPECT_EQ(hsc.bar().value(), 0);
    EXPECT_TRUE(sink.messages().empty());
}

TEST_F(HorizontalScroll, FullyScrolledRightTheValueIsTheMaximum) {
    grid.setLeftCol(grid.maxLeftCol());
    EXPECT_TRUE(hsc.RefresHScrollBar());
    EXPECT_EQ(hsc.bar().value(), hsc.bar().max());
    EXPECT_EQ(grid.leftCol(), 6);
}

TEST_F(HorizontalScroll, TheProbeMovesTheGridForAMomentWhenTheLastColumnIsPartlyShown) {
    grid.setLeftCol(5);
    scrolls = 0;
    hsc.RefresHScrollBar();
    EXPECT_EQ(scrolls, 2);  // one column on and back
    EXPECT_EQ(grid.leftCol(), 5);
    EXPECT_EQ(hsc.bar().max(), 5);
    EXPECT_EQ(hsc.bar().value(), 4);
}

TEST_F(HorizontalScroll, AFirstScrollableColumnShownTakesTheOffsetOfTheNextShownOne) {
    SetColumns({1000, 2000, 0, 2000, 2000});  // column 4 partly shown, column 2 hidden
    EXPECT_TRUE(hsc.RefresHScrollBar());
    EXPECT_EQ(grid.leftCol(), 1);
    EXPECT_EQ(hsc.bar().max(), 2);
    EXPECT_EQ(hsc.bar().value(), 1);
}

TEST_F(HorizontalScroll, RefreshAnswersFalseWhenNoBarIsNeeded) {
    SetColumns({});
    EXPECT_FALSE(hsc.RefresHScrollBar());
    SetColumns({1000});
    EXPECT_FALSE(hsc.RefresHScrollBar());
    SetColumns({1000, 1000, 1000, 1000});  // everything fits: maximum and value are 1
    EXPECT_FALSE(hsc.RefresHScrollBar());
    EXPECT_EQ(hsc.bar().max(), 1);
    EXPECT_EQ(hsc.bar().value(), 1);
    EXPECT_EQ(grid.leftCol(), 1);
    EXPECT_TRUE(sink.messages().empty());
}

TEST_F(HorizontalScroll, ZeroWidthColumnsAreSkippedByTheFitTest) {
    SetColumns({1000, 1000, 1000, 1000, 0});
    for (auto [width, needed] : {std::pair{6000, false}, {4200, true}}) {
        grid.setWidth(width);
        EXPECT_EQ(hsc.RefresHScrollBar(), needed) << width;
    }
}

TEST_F(HorizontalScroll, WithoutArgumentTheRefreshDoesNotStepTheGrid) {
    grid.setLeftCol(3);
    hsc.RefresHScrollBar();
    EXPECT_EQ(grid.leftCol(), 3);
    hsc.RefresHScrollBar(true);  // unchanged value counts as a step back
    EXPECT_EQ(grid.leftCol(), 2);
}

TEST_F(HorizontalScroll, StepPastTheLastColumnFailsAndLeavesTheBarBusy) {
    SetColumns({1000, 1000, 10000});  // the last column is wider than the view
    grid.setLeftCol(2);
    EXPECT_TRUE(hsc.RefresHScrollBar());
    hsc.bar().setMax(hsc.bar().max() + 1);
    hsc.bar().setValue(hsc.bar().max());  // code raises the value: a step right
    EXPECT_EQ(sink.messages(), (std::vector<RecordedMessage>{
                                   {MessageIcon::Critical, "Horizontal scrollbar error - 5001"}}));
    EXPECT_TRUE(hsc.driver().busy());

    grid.setLeftCol(1);
    hsc.bar().userStep(-1);
    hsc.RefresHScrollBar(true);
    EXPECT_EQ(grid.leftCol(), 1);  // nothing moves the grid any more
    EXPECT_EQ(sink.messages().size(), 1u);
}

TEST_F(HorizontalScroll, TheGridIsTakenAtTheFirstChangeAndKept) {
    FlexGrid other;
    SetScrollGrid(nullptr);
    EXPECT_FALSE(hsc.RefresHScrollBar());
    EXPECT_EQ(sink.messages().back().text, "Horizontal scrollbar error - 5002");
    EXPECT_FALSE(hsc.driver().gridTaken());

    SetScrollGrid(&grid);
    hsc.RefresHScrollBar();
    SetScrollGrid(&other);
    hsc.bar().userStep(+1);
    EXPECT_EQ(hsc.driver().grid(), &grid);
    EXPECT_EQ(grid.leftCol(), 2);
}

TEST_F(HorizontalScroll, HeaderTooWideForA16BitMarginFailsTheRefresh) {
    grid.setColWidth(0, 40000);
    EXPECT_FALSE(hsc.RefresHScrollBar());
    EXPECT_EQ(sink.messages().back().text, "Horizontal scrollbar error - 5002");
}

TEST(HorizontalScrollLayout, MarginsPlaceTheBarAndTheInnerFrame) {
    ctlHorizontalScroll hsc("hscGrid");
    hsc.move(2890, 5580, 5020, 255);
    const ScrollBar& bar = hsc.bar();
    EXPECT_EQ((std::vector{bar.left(), bar.width(), bar.height()}), (std::vector{1100, 3920, 225}));
    EXPECT_EQ(hsc.fraInside().width(), 1150);  // layout: + 50
    EXPECT_EQ(hsc.fraInside().height(), 315);
    EXPECT_EQ(hsc.fraHorizontalScroll().width(), 5050);
    EXPECT_EQ(hsc.fraHorizontalScroll().height(), 345);

    hsc.SetLeftMargin(500);
    EXPECT_EQ(hsc.fraInside().width(), 540);  // the Let: + 40
    EXPECT_EQ(bar.left(), 500);
    hsc.SetRightMargin(200);
    EXPECT_EQ(bar.width(), 4320);
    EXPECT_EQ(hsc.linHorizontal().width(), 4320);

    hsc.setHeight(20);  // too low for the bar, and narrower than the margins
    hsc.setWidth(600);
    EXPECT_EQ(bar.height(), 0);
    EXPECT_EQ(bar.width(), 0);
}

TEST(HorizontalScrollLayout, SixteenBitSumsOverflow) {
    ctlHorizontalScroll hsc("hscGrid");
    EXPECT_THROW(hsc.SetLeftMargin(32740), OverflowFailure);  // + 40
    hsc.SetLeftMargin(0);
    hsc.SetRightMargin(1000);
    EXPECT_THROW(hsc.SetLeftMargin(32000), OverflowFailure);  // + RightMargin
    EXPECT_EQ(hsc.LeftMargin(), 32000);
}

TEST(HorizontalScrollProperties, DefaultsAreNotStored) {
    ctlHorizontalScroll hsc("hscGrid");
    MemoryPropertyBag bag;
    hsc.ReadProperties(bag);
    EXPECT_EQ(hsc.LeftMargin(), 1100);
    EXPECT_EQ(hsc.RightMargin(), 0);
    hsc.WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());

    hsc.SetRightMargin(-5);
    hsc.WriteProperties(bag);
    EXPECT_EQ(bag.values(),
              (std::map<std::string, PropertyValue>{{"RightMargin", std::int64_t{-5}}}));
    bag.values()["LeftMargin"] = std::int64_t{70000};
    EXPECT_THROW(hsc.ReadProperties(bag), RuntimeFailure);
    EXPECT_EQ(hsc.LeftMargin(), 1100);
}

}  // namespace
}  // namespace tabulon
