// The control's editing keys, which no key table of the design uses: Ctrl+Z undoes,
// Ctrl+Y and Ctrl+Shift+Z redo (wherever the focus is inside the control), and Escape
// in the focused open editor puts back the value the editor opened with. Such a key
// is the control's alone: neither the focused component nor the navigation handlers
// (whose key-up handler would swallow it in the data area) see any part of it.
#pragma once

#include "view/control_core.h"

namespace tabulon {

// Acts on the key when it is one of the above (modifiers as a bit set of kShiftBit,
// kCtrlBit, kAltBit, matched exactly); true when it was.
bool HandleEditKey(ControlCore& core, int keyCode, int shift);

// True for the keys above, whether or not they would act now.
bool IsEditKey(int keyCode, int shift);

}  // namespace tabulon
