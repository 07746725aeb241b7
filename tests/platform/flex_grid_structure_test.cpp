#include <gtest/gtest.h>

#include <functional>

#include "platform/event_log.h"
#include "platform/flex_grid.h"
#include "support/failure.h"

namespace tabulon {
namespace {

using testing::EventLog;
using testing::RecordGrid;
using testing::Shape;

std::string Label(int r, int c) {
    return std::to_string(r) + ":" + std::to_string(c);
}

void Label(FlexGrid& grid) {
    for (int r = 0; r < grid.rows(); ++r) {
        for (int c = 0; c < grid.cols(); ++c)
            grid.setTextMatrix(r, c, Label(r, c));
    }
}

TEST(FlexGridStructure, ResizingKeepsTheSurvivingCells) {
    FlexGrid grid;
    Shape(grid, 4, 3);
    Label(grid);
    grid.setCellBackColor(2, 1, 0xFF0000);
    grid.setCellAlignment(2, 1, CellAlignment::RightTop);

    grid.setCols(5);  // columns are re-laid in the row-major store
    grid.setRows(3);
    grid.setCols(2);
    grid.setRows(5);
    for (int r = 0; r < 5; ++r) {
        for (int c = 0; c < 2; ++c) {
            EXPECT_EQ(grid.textMatrix(r, c), r < 3 ? Label(r, c) : "") << r << "," << c;
        }
    }
    EXPECT_EQ(grid.cellBackColor(2, 1), 0xFF0000u);
    EXPECT_EQ(grid.cellAlignment(2, 1), CellAlignment::RightTop);
    EXPECT_EQ(grid.cellAlignment(4, 1), CellAlignment::General);
}

TEST(FlexGridStructure, ACountOfZeroDiscardsEveryCell) {
    FlexGrid grid;
    Shape(grid, 3, 3);
    Label(grid);
    grid.setCellForeColor(1, 1, 0x808080);
    grid.setCols(0);
    grid.setCols(3);
    EXPECT_EQ(grid.textMatrix(1, 1), "");
    EXPECT_EQ(grid.cellForeColor(1, 1), 0x000000u);
}

TEST(FlexGridStructure, NewRowsAndColumnsTakeTheDefaultSizes) {
    FlexGrid grid;
    grid.setDefaultRowHeight(300);
    grid.setDefaultColWidth(700);
    grid.setRows(2);
    grid.setCols(2);
    grid.setRowHeight(1, 500);
    grid.setDefaultRowHeight(400);
    grid.setRows(3);
    EXPECT_EQ(grid.rowHeight(0), 300);
    EXPECT_EQ(grid.rowHeight(1), 500);
    EXPECT_EQ(grid.rowHeight(2), 400);
    EXPECT_EQ(grid.colWidth(1), 700);
}

TEST(FlexGridStructure, RowHeightIsNeverBelowTheMinimum) {
    FlexGrid grid;
    grid.setRows(2);
    grid.setRowHeight(0, 100);
    grid.setRowHeightMin(350);
    EXPECT_EQ(grid.rowHeight(0), 350);
    EXPECT_EQ(grid.rowHeight(1), 350);
    grid.setRowHeightMin(0);
    EXPECT_EQ(grid.rowHeight(0), 100);  // the height set is remembered
}

TEST(FlexGridStructure, FixedCountsFollowShrinkingCountsAndMayCoverEverything) {
    FlexGrid grid;
    Shape(grid, 4, 1);  // only the caption column, and it is fixed
    EXPECT_EQ(grid.fixedCols(), 1);
    grid.setRows(0);
    EXPECT_EQ(grid.fixedRows(), 0);
    EXPECT_THROW(grid.setFixedRows(1), InvalidArgumentFailure);
    EXPECT_THROW(grid.setRows(-1), InvalidArgumentFailure);
}

TEST(FlexGridStructure, RebuildingPutsTheCurrentCellOnTheFirstScrollableCellSilently) {
    FlexGrid grid;
    EventLog log;
    RecordGrid(grid, log);
    Shape(grid, 5, 4);
    EXPECT_EQ(grid.row(), 1);
    EXPECT_EQ(grid.col(), 1);
    grid.setRow(4);
    grid.setCol(3);
    log.take();
    grid.setRows(3);
    grid.setCols(2);
    EXPECT_EQ(grid.row(), 2);
    EXPECT_EQ(grid.col(), 1);
    EXPECT_EQ(grid.rowSel(), 2);
    EXPECT_EQ(grid.colSel(), 1);
    EXPECT_TRUE(log.events.empty());
}

TEST(FlexGridStructure, FixedCellsShowTheFixedBackColourUntilOneIsSet) {
    FlexGrid grid;
    Shape(grid, 3, 3);
    EXPECT_EQ(grid.cellBackColor(0, 2), FlexGrid::kFixedBackColor);
    EXPECT_EQ(grid.cellBackColor(2, 0), FlexGrid::kFixedBackColor);
    EXPECT_EQ(grid.cellBackColor(1, 1), FlexGrid::kBackColor);
    grid.setCellBackColor(0, 2, 0xFFFFFF);
    EXPECT_EQ(grid.cellBackColor(0, 2), 0xFFFFFFu);
    grid.setFixedCols(0);  // no longer fixed: the default for scrollable cells applies
    EXPECT_EQ(grid.cellBackColor(2, 0), FlexGrid::kBackColor);
}

TEST(FlexGridStructure, OutOfRangeIndicesThrowNamingTheAxis) {
    FlexGrid grid;
    Shape(grid, 3, 3);
    struct Case {
        const char* what;
        std::function<void()> call;
        const char* message;
    };
    const Case cases[] = {
        {"row -1", [&] { grid.setRow(-1); }, "Invalid Row value"},
        {"text", [&] { grid.setTextMatrix(3, 0, "x"); }, "Invalid Row value"},
        {"col 3", [&] { grid.setCol(3); }, "Invalid Col value"},
        {"rowPos", [&] { (void)grid.rowPos(-1); }, "Invalid Row value"},
        {"topRow fixed", [&] { grid.setTopRow(0); }, "Invalid Row value"},
        {"leftCol past", [&] { grid.setLeftCol(3); }, "Invalid Col value"},
        {"click", [&] { grid.userClick(1, 9); }, "Invalid Col value"},
        {"negative width", [&] { grid.setColWidth(1, -1); }, "Invalid property value"},
    };
    for (const Case& c : cases) {
        try {
            c.call();
            ADD_FAILURE() << c.what << " did not throw";
        } catch (const InvalidArgumentFailure& e) {
            EXPECT_STREQ(e.what(), c.message) << c.what;
        }
    }
}

TEST(FlexGridStructure, ObserversHearOnlyRealChangesWithTheCell) {
    FlexGrid grid;
    Shape(grid, 3, 3);
    std::vector<ChangeInfo> seen;
    grid.Subscribe([&](const ChangeInfo& info) { seen.push_back(info); });
    grid.setTextMatrix(2, 1, "a");
    grid.setTextMatrix(2, 1, "a");
    grid.setColWidth(1, 1000);  // unchanged
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].kind, Change::Cell);
    EXPECT_EQ(seen[0].row, 2);
    EXPECT_EQ(seen[0].col, 1);
}

}  // namespace
}  // namespace tabulon
