// Writing the open editor's value back into the grid and the document (1010).
#pragma once

#include "view/control_core.h"

namespace tabulon {

// The grid's LeaveCell. Never hides the editor: the caller does.
void CommitCellEdit(ControlCore& core);

// The commit of one cell of a block edit (paste, fill, delete): as CommitCellEdit,
// except that the host's validation is left to the caller, once per column. True
// when a value was written and the cell asks for that validation.
bool CommitBlockCell(ControlCore& core);
// AppGridEventHandler for the column of cell (row, col), as the commit of that cell
// raises it, the column refilled when the host changed it (failures: 1010).
void ValidateColumnWithHost(ControlCore& core, int row, int col);

}  // namespace tabulon
