// Block edits: paste, fill down, fill right and clear over a range of cells. Each
// cell takes its value exactly as if the user had opened its editor, typed the value
// and left the cell (pasted_value.h, then the commit of the cell); the whole block is
// one undo step, and AppGridEventHandler is raised once per column that asks for it,
// after all that column's cells are written.
//
// Decisions:
// - Where a paste lands: a single value fills every cell of a selection of several
//   cells; any other block starts at the top-left cell of the selection (the current
//   cell when one cell is selected). The block's columns go to the shown columns from
//   there: hidden (filtered) columns are passed over, as a copy leaves them out.
//   Values beyond the last row or column are ignored and counted.
// - Skipped and reported: a disabled cell, a cell with no editor, and a value its
//   editor refuses (pasted_value.h). A text cut to MaxLength is written and reported.
// - The open editor is committed first, as leaving the cell would (its own step).
// - Afterwards the block written is selected, its first cell current, the editors
//   hidden and the grid focused. The report goes to the user in one information
//   message when anything was skipped or ignored (none for Delete) and back to the
//   caller.
// - Delete clears text cells and pick-list cells whose list has an empty entry; unit
//   cells keep their number (one is required) and are not reported.
// - Fill down (right) needs two rows (columns) selected; the first row's (column's)
//   texts as shown are pasted into the rest.
#pragma once

#include <string>

#include "view/block_report.h"
#include "view/control_core.h"

namespace tabulon {

BlockEditReport PasteCells(ControlCore& core, const std::string& tabSeparated);
BlockEditReport FillDown(ControlCore& core);
BlockEditReport FillRight(ControlCore& core);
BlockEditReport ClearCells(ControlCore& core);

// The text of the user's message for report; empty when there is nothing to say.
std::string BlockEditMessage(const ControlCore& core, const BlockEditReport& report);

}  // namespace tabulon
