// Laying an in-place editor over the grid's current cell, and what every editor does
// once it is filled: show, take the focus, mark an edit as active.
//
// All positions are in the control's twips: the grid's left/top plus the current
// cell's position inside the grid. Editors are cut back where they would cover the
// control's own scroll bars, so an editor may come out narrower or lower than its cell.
#pragma once

#include <cstdint>

#include "platform/component.h"
#include "view/control_core.h"

namespace tabulon {

// Narrowest column that gets an editor: a column of width 0 or 1 is hidden.
inline constexpr std::int32_t kMinimumEditorColumnWidth = 2;

// How an editor takes the current cell's size.
struct EditorFit {
    // The editor's height becomes the cell's height (the text box and the unit number
    // box); otherwise it keeps its own.
    bool cellHeight;
    // The editor is cut back at hscGrid as well as at vscGrid.
    bool clipAtHorizontalBar;
};

// Whether the grid's current column is wide enough for an editor.
bool CurrentColumnTakesEditor(const FlexGrid& grid);

// Moves editor over the grid's current cell with the cell's width (and height, as fit
// says), then cuts it back: when vscGrid is visible and its left edge lies before the
// editor's right edge, the editor ends at vscGrid's left; likewise at hscGrid's top for
// the height when fit.clipAtHorizontalBar. A cut that leaves a negative size throws
// InvalidArgumentFailure, as the component does.
void PlaceOverCurrentCell(ControlCore& core, Component& editor, EditorFit fit);

// Makes editor visible, gives it the focus and sets blnEditorActive.
void ActivateEditor(ControlCore& core, Component& editor);

// The editing rules of the grid's current row (arrRowInfo); a row without a record
// throws InvalidArgumentFailure.
const RowInfo& CurrentRowInfo(const ControlCore& core);

}  // namespace tabulon
