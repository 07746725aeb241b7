// English/Metric display conversion of the grid's unit rows (1037).
#pragma once

#include <cstdint>

#include "view/control_core.h"

namespace tabulon {

// column 0: every data column; otherwise that grid column only. Converts the grid
// text once: call it only right after a fill.
void ConvertGridUnits(ControlCore& core, std::int16_t column);

}  // namespace tabulon
