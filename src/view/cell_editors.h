// In-place editors: choosing, placing and filling the editor for the current cell.
#pragma once

#include "view/control_core.h"

namespace tabulon {

void OpenCellEditor(ControlCore& core);      // the grid's EnterCell (1005)
void ShowTextBoxEditor(ControlCore& core);   // 1006
void ShowComboBoxEditor(ControlCore& core);  // 1007
void ShowUnitNumEditor(ControlCore& core);   // 1008
void ShowUnitDropEditor(ControlCore& core);  // 1009
// Hides the four editors; never commits.
void HideCellEditors(ControlCore& core);

}  // namespace tabulon
