// Keeping the control's own scroll bars in step with the grid.
#pragma once

#include "view/control_core.h"

namespace tabulon {

// Only with the advanced scroll bars shown and a grid loaded: recompute both bars
// and enable each when it is needed (1022).
void RefreshAdvanceScrollbars(ControlCore& core);

}  // namespace tabulon
