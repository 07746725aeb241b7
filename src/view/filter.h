// The filter area: the combo of FilterValue tags, showing only matching columns, and
// the layout of the grid below the filter frame.
#pragma once

#include <string>

#include "view/control_core.h"

namespace tabulon {

bool FillFilter(ControlCore& core);       // 1031
void cboFilter_Click(ControlCore& core);  // 1001
// Moves the grid below or over the filter frame after it was shown or hidden (1021).
void LayoutGridArea(ControlCore& core);
// The FilterValue property: the combo's text, trimmed.
std::string FilterValueText(const ControlCore& core);

}  // namespace tabulon
