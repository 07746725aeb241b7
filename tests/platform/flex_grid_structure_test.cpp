#include <gtest/gtest.h>

#include "platform/event_log.h"
#include "platform/flex_grid.h"

namespace tabulon {
namespace {

using testing::EventLog;
using testing::RecordGrid;
using testing::Shape;

std::string Label(int r, int c) {
    return std::to_string(r) + ":" + std::to_string(c);
}

TEST(FlexGridStructure, ResizingKeepsTheSurvivingCellsAndACountOfZeroDiscardsThem) {
    FlexGrid grid;
    Shape(grid, 4, 3);
    for (int r = 0; r < 4; ++r) {
        for (int c = 0; c < 3; ++c)
            grid.setTextMatrix(r, c, Label(r, c));
    }
    grid.setCellBackColor(2, 1, 0xFF0000);
    grid.setCols(5);
    grid.setRows(3);
    grid.setCols(2);
    grid.setRows(5);
    for (int r = 0; r < 5; ++r) {
        for (int c = 0; c < 2; ++c) {
            EXPECT_EQ(grid.textMatrix(r, c), r < 3 ? Label(r, c) : "") << r << "," << c;
        }
    }
    EXPECT_EQ(grid.cellBackColor(2, 1), 0xFF0000u);
    grid.setCols(0);
    grid.setCols(2);
    EXPECT_EQ(grid.textMatrix(1, 1), "");
    EXPECT_EQ(grid.cellBackColor(2, 1), FlexGrid::kBackColor);
}

TEST(FlexGridStructure, RebuildingPutsTheCurrentCellOnTheFirstScrollableCellSilently) {
    FlexGrid grid;
    EventLog log;
    RecordGrid(grid, log);
    Shape(grid, 5, 4);
    grid.setRow(4);
    grid.setCol(3);
    log.take();
    grid.setRows(3);
    grid.setCols(2);
    EXPECT_EQ(std::vector({grid.row(), grid.col(), grid.rowSel(), grid.colSel()}),
              std::vector({2, 1, 2, 1}));
    EXPECT_TRUE(log.events.empty());
}

// Views are told of a cell once the quiet scope ends, and only when it ends unlike it
// began; a cell that went back, or out of the grid, is not told of at all.
TEST(FlexGridStructure, QuietCellsAreToldOnceAndOnlyWhenTheyChanged) {
    FlexGrid grid;
    Shape(grid, 4, 3);
    grid.setTextMatrix(1, 1, "12");
    grid.setTextMatrix(3, 2, "gone");
    std::vector<std::pair<int, int>> told;
    grid.Subscribe([&](const ChangeInfo& change) {
        if (change.kind == Change::Cell) told.emplace_back(change.row, change.col);
    });
    {
        const FlexGrid::QuietCells quiet(grid);
        grid.setTextMatrix(1, 1, "3.66");  // there and back, as a Metric refill goes
        grid.setTextMatrix(1, 1, "12");
        {
            const FlexGrid::QuietCells inner(grid);
            grid.setTextMatrix(2, 1, "new");
            grid.setTextMatrix(2, 1, "newer");
        }
        grid.setCellBackColor(2, 2, 0xFF0000);
        grid.setTextMatrix(3, 2, "changed");
        grid.setRows(3);
        EXPECT_TRUE(told.empty()) << "told before the scope ended";
    }
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{2, 1}, {2, 2}}));
    EXPECT_EQ(grid.textMatrix(2, 1), "newer");
    told.clear();
    grid.setTextMatrix(1, 1, "after");
    EXPECT_EQ(told, (std::vector<std::pair<int, int>>{{1, 1}}));
}

}  // namespace
}  // namespace tabulon
