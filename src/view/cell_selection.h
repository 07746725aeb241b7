// Ranges of cells: the grid's selection from the current cell (Row, Col) to its far
// corner (RowSel, ColSel), made by Shift+click, a drag, Shift+arrows, a click on a
// caption (AllowBigSelection) or the host; and copying a range as the grid shows it.
//
// Decisions:
// - Once more than one cell is selected, the open editor is committed and hidden and
//   the grid takes the focus, as when the pointer moves over a caption: block keys
//   then reach the control, and a click on a cell edits it again.
// - Shift+Up/Down extend the selection also from an open text or number editor;
//   Shift+Left/Right only from the grid (in an editor they select text). The far
//   corner skips hidden columns and the grid scrolls to keep it in view.
// - A copy holds the columns that are shown: hidden (filtered) columns are left out,
//   as they are on the screen. With captions the column captions come first and each
//   row starts with its caption.
#pragma once

#include "support/cell_table_text.h"
#include "view/control_core.h"

namespace tabulon {

// Grid cells from top-left to bottom-right, inclusive.
struct CellRange {
    int top = 0;
    int left = 0;
    int bottom = -1;
    int right = -1;
    bool operator==(const CellRange&) const = default;
};

CellRange SelectedRange(const FlexGrid& grid);
bool SeveralCellsSelected(const FlexGrid& grid);
// The columns of the range that are shown (width above 0), left to right.
std::vector<int> ShownColumns(const FlexGrid& grid, int left, int right);

// The host selects cells: (row1, col1) becomes current as by a click, (row2, col2) is
// the far corner. Scrollable cells only; anything else throws InvalidArgumentFailure.
void SelectCells(ControlCore& core, int row1, int col1, int row2, int col2);
// Shift+arrow: moves the far corner by one row or one shown column.
void ExtendSelection(ControlCore& core, int rows, int cols);
// The grid's SelChange: see the decisions.
void GridSelChange(ControlCore& core);

// The cells of range as the grid shows them (see decisions).
CellTable CopyCells(const ControlCore& core, const CellRange& range, bool captions);
// The selection (or the current cell) onto the control's clipboard, as text and HTML.
void CopySelection(ControlCore& core, bool captions);

}  // namespace tabulon
