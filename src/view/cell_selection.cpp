#include "view/cell_selection.h"

#include <algorithm>

#include "support/failure.h"
#include "view/cell_editors.h"
#include "view/commit.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

namespace {

bool Scrollable(const FlexGrid& grid, int row, int col) {
    return row >= grid.fixedRows() && row < grid.rows() && col >= grid.fixedCols() &&
           col < grid.cols();
}

// The next shown column from col in direction step; col itself when there is none.
int NextShownColumn(const FlexGrid& grid, int col, int step) {
    for (int c = col + step; c >= grid.fixedCols() && c < grid.cols(); c += step) {
        if (grid.colWidth(c) > 0) return c;
    }
    return col;
}

// Scrolls so that the far corner of the selection is in view.
void ScrollToSelectionCorner(ControlCore& core) {
    FlexGrid& grid = core.form.msgGridView;
    const int row = grid.rowSel();
    const int col = grid.colSel();
    constexpr std::int32_t kEdge = 300;  // the control's scroll bar along the edge
    if (row < grid.topRow()) grid.setTopRow(row);
    while (row > grid.topRow() && grid.topRow() < grid.maxTopRow() &&
           grid.rowPos(row) + grid.rowHeight(row) > grid.height() - kEdge) {
        grid.setTopRow(grid.topRow() + 1);
    }
    if (col < grid.leftCol()) grid.setLeftCol(col);
    while (col > grid.leftCol() && grid.leftCol() < grid.maxLeftCol() &&
           grid.colPos(col) + grid.colWidth(col) > grid.width() - kEdge) {
        grid.setLeftCol(grid.leftCol() + 1);
    }
    RefreshAdvanceScrollbars(core);
}

}  // namespace

CellRange SelectedRange(const FlexGrid& grid) {
    return {std::min(grid.row(), grid.rowSel()), std::min(grid.col(), grid.colSel()),
            std::max(grid.row(), grid.rowSel()), std::max(grid.col(), grid.colSel())};
}

bool SeveralCellsSelected(const FlexGrid& grid) {
    return grid.row() != grid.rowSel() || grid.col() != grid.colSel();
}

std::vector<int> ShownColumns(const FlexGrid& grid, int left, int right) {
    std::vector<int> cols;
    for (int c = std::max(left, 0); c <= right && c < grid.cols(); ++c) {
        if (grid.colWidth(c) > 0) cols.push_back(c);
    }
    return cols;
}

void SelectCells(ControlCore& core, int row1, int col1, int row2, int col2) {
    FlexGrid& grid = core.form.msgGridView;
    if (!Scrollable(grid, row1, col1) || !Scrollable(grid, row2, col2)) {
        throw InvalidArgumentFailure("Invalid Row or Col value");
    }
    grid.setRow(row1);
    grid.setCol(col1);
    grid.setRowSel(row2);
    grid.setColSel(col2);
    GridSelChange(core);
}

void ExtendSelection(ControlCore& core, int rows, int cols) {
    FlexGrid& grid = core.form.msgGridView;
    if (!Scrollable(grid, grid.row(), grid.col())) return;
    const int row = std::clamp(grid.rowSel() + rows, grid.fixedRows(), grid.rows() - 1);
    const int col = cols == 0 ? grid.colSel() : NextShownColumn(grid, grid.colSel(), cols);
    grid.userExtendSelection(row, col);
    ScrollToSelectionCorner(core);
}

void GridSelChange(ControlCore& core) {
    if (!SeveralCellsSelected(core.form.msgGridView)) return;
    CommitCellEdit(core);
    HideCellEditors(core);
    core.form.msgGridView.setFocus();
}

CellTable CopyCells(const ControlCore& core, const CellRange& range, bool captions) {
    const FlexGrid& grid = core.form.msgGridView;
    const std::vector<int> cols = ShownColumns(grid, range.left, range.right);
    CellTable table;
    const auto addRow = [&](int row) {
        std::vector<std::string>& cells = table.emplace_back();
        if (captions && grid.cols() > 0) cells.push_back(grid.textMatrix(row, 0));
        for (const int col : cols)
            cells.push_back(grid.textMatrix(row, col));
    };
    if (captions && grid.rows() > 0) addRow(0);
    for (int row = std::max(range.top, 0); row <= range.bottom && row < grid.rows(); ++row)
        addRow(row);
    return table;
}

void CopySelection(ControlCore& core, bool captions) {
    const FlexGrid& grid = core.form.msgGridView;
    if (grid.rows() == 0 || grid.cols() == 0) return;
    const CellTable table = CopyCells(core, SelectedRange(grid), captions);
    core.clipboard->Put({ToTabSeparated(table), ToHtmlTable(table)});
}

}  // namespace tabulon
