// Where the commit and undo benchmarks edit: the first enabled UnitDrop cell of the
// node on screen, its editor opened by a click as a person opens it.
#pragma once

#include "control/generic_sp_control.h"

namespace tabulon::bench {

// False when no such cell opens its editor.
bool OpenFirstUnitDropEditor(Generic_SP_Control& control);

}  // namespace tabulon::bench
