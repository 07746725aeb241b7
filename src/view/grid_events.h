// The grid's and the scroll bars' notifications that drive editing.
#pragma once

#include <cstdint>

#include "view/control_core.h"

namespace tabulon {

void GridClick(ControlCore& core);  // 1004
void GridRowColChange(ControlCore& core);
void GridScroll(ControlCore& core);
void GridMouseMove(ControlCore& core, int button, int shift, std::int32_t x,
                   std::int32_t y);  // 1011
// The user dragged a column's border: the open editor, placed over the old geometry,
// is committed and hidden as by a scroll, and the control's own bars take the new
// widths.
void GridUserColResize(ControlCore& core);
// The mouse wheel over the grid (or over the editor on it): the grid scrolls by rows
// and cols within its range, its Scroll committing and hiding the editor as any
// scroll does; then the control's own scroll bars follow the grid without committing
// again, as after a change of the current cell. Nothing happens when the grid cannot
// move that way.
void GridWheel(ControlCore& core, int rows, int cols);
// One of the control's own scroll bars takes the focus: commit, hide the editors.
void ScrollBarGotFocus(ControlCore& core);
// A character typed while the grid itself has the focus (after a move that scrolled,
// a refused OK, a pointer over the header): the current cell's editor opens as on
// entering the cell, or, when an editor is still open over it, that editor takes the
// focus back with what was typed in it kept. Returns the component that has the focus
// then and is to receive the character; null for a key without a printable character
// (below 32, or 127) and when no editor took the focus (a disabled cell, a fixed one).
Component* GridTypingTarget(ControlCore& core, int keyAscii);

}  // namespace tabulon
