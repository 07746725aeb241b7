// Walking the values that need correcting (Valid not "1") in the saving gate's order:
// GridValue, then CellValues, then row. The walk reaches every tree node, the last
// one included, which the gate itself never shows.
//
// A value is shown by the first tree node whose GridValueKey is its CellValues' key
// and whose layout exists (the node on screen when it is one of them), at grid row
// = its place in its CellValues and column = its GridValue + 1, when that layout has
// the row and the column and no later CellValues of the same key covers the row.
// Values no node shows (a key no node names, rows or columns past the layout) still
// count and are listed, but the moves pass over them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "view/control_core.h"

namespace tabulon {

struct ProblemCell {
    std::size_t gridValue = 0;  // index into arrGridValueNodes
    std::string key;            // the trimmed GridValueKey of its CellValues
    int row = 0;                // 1-based place in its CellValues (the grid row)
    int node = 0;               // 1-based tree node that shows it; 0: none
    std::string rowCaption;     // "" when no node shows it
    std::string columnCaption;
    std::string reason;
};

// Every value that needs correcting, in the gate's order, with the reason its cell
// would show. O(document).
std::vector<ProblemCell> ListProblems(ControlCore& core);

// Commits and closes an open editor (the grid takes the focus), then goes to the next
// (forward) or previous value that needs correcting after the current cell, wrapping
// round at the end (GoToCell). False when no value that a node shows needs correcting.
bool GoToProblem(ControlCore& core, bool forward);

}  // namespace tabulon
