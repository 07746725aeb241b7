// Bringing the user to one cell of one tree node's grid: the jump behind "next
// problem" and find. Unlike the saving gate's move, it reaches every node (the last
// one included), makes the cell seen and leaves it ready for typing.
//
// In order: an open editor is committed and hidden (nothing typed is lost); the
// node's ancestors are expanded and the node is selected, unless it is the node shown
// already; a column the filter hides makes the filter show "All"; the grid scrolls
// so that the cell lies within it (the edge margin of the keyboard moves kept); the
// cell becomes current in one step, without editors opening or committing on the
// way; then its editor opens as on entering a cell (a disabled cell leaves the
// focus on the grid).
#pragma once

#include "view/control_core.h"

namespace tabulon {

// node: 1-based tree index; row, col: a data cell of its grid. False, with nothing
// moved after the node selection, when that grid does not have the cell.
bool GoToCell(ControlCore& core, int node, int row, int col);

}  // namespace tabulon
