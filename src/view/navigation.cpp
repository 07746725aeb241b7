// Keyboard navigation. The moves change the grid's current cell one step at a time
// (each step raises the grid's own cell notifications, hidden columns included) and
// scroll by at most one row or column; the grid's own scrolling on a change of the
// current cell does the rest. There are no failure handlers here: a failure, such as a
// scroll step beyond the grid's range, reaches the caller.
#include "view/navigation.h"

#include "platform/key_codes.h"

namespace tabulon {

namespace {

using keys::kEnter;
using keys::kTab;
constexpr int kF5 = keys::FunctionKey(5);
constexpr int kF6 = keys::FunctionKey(6);
constexpr int kF7 = keys::FunctionKey(7);
constexpr int kF8 = keys::FunctionKey(8);
constexpr int kCtrlOnly = kCtrlBit;

// Room kept for the grid's border and the control's own bar along that edge.
constexpr std::int64_t kEdgeMargin = 300;

// Whether the current row ends inside the grid, margin kept. The bottom-edge test
// also decides moves upwards, by design.
bool CurrentRowFits(const FlexGrid& grid) {
    const int row = grid.row();
    if (!grid.rowIsVisible(row)) return false;
    const std::int64_t bottom = static_cast<std::int64_t>(grid.rowPos(row)) + grid.rowHeight(row);
    return grid.height() - kEdgeMargin >= bottom;
}

bool CurrentColumnFits(const FlexGrid& grid) {
    const int col = grid.col();
    if (!grid.colIsVisible(col)) return false;
    const std::int64_t right = static_cast<std::int64_t>(grid.colPos(col)) + grid.colWidth(col);
    return grid.width() - kEdgeMargin >= right;
}

void ScrollRows(ControlCore& core, int step) {
    FlexGrid& grid = core.form.msgGridView;
    grid.setTopRow(grid.topRow() + step);
    ctlVerticalScroll& bar = core.form.vscGrid;
    bar.SetScrollEnabled(bar.RefresVScrollBar());
}

void ScrollColumns(ControlCore& core, int step) {
    FlexGrid& grid = core.form.msgGridView;
    grid.setLeftCol(grid.leftCol() + step);
    ctlHorizontalScroll& bar = core.form.hscGrid;
    bar.SetScrollEnabled(bar.RefresHScrollBar());
}

// The keys act only while the selection lies in the data area.
bool InDataArea(const FlexGrid& grid) {
    return grid.colSel() >= 1 && grid.rowSel() >= 1;
}

}  // namespace

void MoveNextCell(ControlCore& core, std::int16_t keyAscii) {
    if (keyAscii == kTab) {
        MoveNextColumn(core);
    } else if (keyAscii == kEnter) {
        MoveNextRow(core);
    }
}

void MovePreviousCell(ControlCore& core, std::int16_t keyAscii) {
    if (keyAscii == kTab) {
        MovePreviousColumn(core);
    } else if (keyAscii == kEnter) {
        MovePreviousRow(core);
    }
}

void MoveNextColumn(ControlCore& core) {
    FlexGrid& grid = core.form.msgGridView;
    const int start = grid.col();
    if (grid.col() + 1 >= grid.cols()) return;
    do {
        grid.setCol(grid.col() + 1);
        if (grid.colWidth(grid.col()) != 0) break;
    } while (grid.col() + 1 < grid.cols());
    // Only hidden columns lay to the right: stay where the move started.
    if (grid.colWidth(grid.col()) <= 0) grid.setCol(start);
    if (CurrentColumnFits(grid)) return;
    ScrollColumns(core, 1);
}

void MovePreviousColumn(ControlCore& core) {
    FlexGrid& grid = core.form.msgGridView;
    const int start = grid.col();
    if (grid.col() - 1 < 1) return;
    do {
        grid.setCol(grid.col() - 1);
        if (grid.colWidth(grid.col()) != 0) break;
    } while (grid.col() - 1 >= 1);
    if (grid.colWidth(grid.col()) <= 0) grid.setCol(start);
    if (CurrentColumnFits(grid)) return;
    ScrollColumns(core, -1);
}

void MoveNextRow(ControlCore& core) {
    FlexGrid& grid = core.form.msgGridView;
    if (grid.row() + 1 >= grid.rows()) return;
    grid.setRow(grid.row() + 1);
    if (CurrentRowFits(grid)) return;
    ScrollRows(core, 1);
}

void MovePreviousRow(ControlCore& core) {
    FlexGrid& grid = core.form.msgGridView;
    if (grid.row() - 1 < 1) return;
    grid.setRow(grid.row() - 1);
    if (CurrentRowFits(grid)) return;
    ScrollRows(core, -1);
}

void NavigationKeyPress(ControlCore& core, int& keyAscii) {
    if (!InDataArea(core.form.msgGridView)) return;
    if (keyAscii == kTab || keyAscii == kEnter) {
        MoveNextCell(core, static_cast<std::int16_t>(keyAscii));
        keyAscii = 0;
    }
}

void NavigationKeyUp(ControlCore& core, int& keyCode, int shift) {
    if (!InDataArea(core.form.msgGridView)) return;
    switch (keyCode) {
        case kTab:
            if (shift == kCtrlOnly) MovePreviousCell(core, kTab);
            break;
        case kEnter:
            if (shift == kCtrlOnly) MovePreviousCell(core, kEnter);
            break;
        case kF5:
            MovePreviousCell(core, kTab);
            break;
        case kF6:
            MoveNextCell(core, kTab);
            break;
        case kF7:
            MovePreviousCell(core, kEnter);
            break;
        case kF8:
            MoveNextCell(core, kEnter);
            break;
        default:
            break;
    }
    // Every key-up is consumed in the data area, handled or not.
    keyCode = 0;
}

}  // namespace tabulon
