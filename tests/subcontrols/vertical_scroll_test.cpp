#include "subcontrols/vertical_scroll.h"

#include <gtest/gtest.h>

#include <vector>

#include "subcontrols/scroll_grid.h"
#include "testing/recording_sink.h"

namespace tabulon {
namespace {

// A header row of 300 twips and ten data rows of 300; at 2100 twips high six data
// rows are shown.
class VerticalScroll : public ::testing::Test {
protected:
    void SetUp() override {
        grid.setCols(2);
        grid.setFixedCols(1);
        SetRows(std::vector<int>(11, 300));
        grid.setWidth(4000);
        grid.setHeight(2100);
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

TEST_F(VerticalScroll, StepsTheTopRowOneRowPerChange) {
    EXPECT_TRUE(vsc.RefresVScrollBar());
    EXPECT_EQ(vsc.bar().max(), 4);
    EXPECT_EQ(vsc.bar().value(), 0);
    EXPECT_EQ(vsc.TopMargin(), 290);  // header row height - 10
    vsc.bar().userSetValue(4);
    EXPECT_EQ(grid.topRow(), 2);
    EXPECT_EQ(grid.leftCol(), 1);
    vsc.bar().userStep(-1);
    EXPECT_EQ(grid.topRow(), 1);
}

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

TEST(VerticalScrollProperties, DefaultsAreNotStored) {
    ctlVerticalScroll vsc("vscGrid");
    MemoryPropertyBag bag;
    vsc.WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());
    bag.values()["TopMargin"] = std::int64_t{120};
    bag.values()["BottomMargin"] = std::string("30");
    vsc.ReadProperties(bag);
    EXPECT_EQ(vsc.TopMargin(), 120);
    EXPECT_EQ(vsc.BottomMargin(), 30);
}

}  // namespace
}  // namespace tabulon
