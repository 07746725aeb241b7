// Keyboard navigation: Tab/Enter moves and the public move members.
#pragma once

#include <cstdint>

#include "view/control_core.h"

namespace tabulon {

void MoveNextCell(ControlCore& core, std::int16_t keyAscii);
void MovePreviousCell(ControlCore& core, std::int16_t keyAscii);
void MoveNextColumn(ControlCore& core);
void MovePreviousColumn(ControlCore& core);
void MoveNextRow(ControlCore& core);
void MovePreviousRow(ControlCore& core);

// The control's key-press and key-up preview handlers (data area only).
void NavigationKeyPress(ControlCore& core, int& keyAscii);
void NavigationKeyUp(ControlCore& core, int& keyCode, int shift);

}  // namespace tabulon
