// The control's editing keys, which no key table of the design uses: Ctrl+Z undoes,
// Ctrl+Y and Ctrl+Shift+Z redo (wherever the focus is inside the control), and Escape
// in the focused open editor puts back the value the editor opened with.
//
// The block keys (cell_selection.h, block_edit.h), each acting only where it does not
// take the open editor's own key away:
// - Shift+Up/Down extend the selection from the grid or a text or number editor,
//   Shift+Left/Right from the grid;
// - Ctrl+C copies the selection when several cells are selected or the grid has the
//   focus (else the editor copies its text);
// - Ctrl+V pastes a block when several cells are selected, the grid has the focus or
//   the clipboard holds more than one cell (else the editor pastes into its text);
// - Ctrl+D and Ctrl+R fill down and right over several cells;
// - Delete clears the selection when several cells are selected or the grid has the
//   focus.
// A key that acts is the control's alone: neither the focused component nor the
// navigation handlers (whose key-up handler would swallow it in the data area) see any
// part of it.
#pragma once

#include "view/control_core.h"

namespace tabulon {

// Acts on the key when it is one of the above (modifiers as a bit set of kShiftBit,
// kCtrlBit, kAltBit, matched exactly); true when it was.
bool HandleEditKey(ControlCore& core, int keyCode, int shift);

// True for the keys above, whether or not they would act now.
bool IsEditKey(int keyCode, int shift);

}  // namespace tabulon
