// Writing the open editor's value back into the grid and the document (1010).
#pragma once

#include "view/control_core.h"

namespace tabulon {

// The grid's LeaveCell. Never hides the editor: the caller does.
void CommitCellEdit(ControlCore& core);

}  // namespace tabulon
