// Undo and redo as the user and the host see them: first the open editor's own value
// (editor_value.h), then the document's steps (edit_history.h), applied to the
// document and shown.
//
// Applying a step:
// 1. An open editor is hidden without a commit (its value is the one it opened with:
//    otherwise the editor's own undo runs instead and the document is left alone).
// 2. Every element the step changed gets its content back, byte for byte (undo: the
//    content before, last change first; redo: after, first change first). No event
//    is raised: what the host changed in AppGridEventHandler comes back as the host
//    left it. The counts of values that need correcting and the tree's marks follow
//    the flags put back (cell_problems.h), at the cost of the elements restored.
// 3. The view follows the document as after a host change: when the step's grid is
//    on screen, its changed columns are filled again from the document; otherwise the
//    step's tree node is selected and its grid filled afresh.
// 4. The step's cell becomes the current cell, scrolled into view when it is out of
//    it, and the grid takes the focus. No editor opens (a click or a key opens one),
//    so undoing and redoing never writes anything by itself.
//
// Decisions:
// - A column the filter hides stays hidden; its cell still becomes current.
// - While a step is being recorded (a commit or a block edit is running, for example
//   when the host calls Undo from AppGridEventHandler) the document's undo and redo
//   do nothing.
// - While the open editor's value differs from the one it opened with there is
//   nothing to redo: the user has started a new edit.
#pragma once

#include "view/control_core.h"

namespace tabulon {

bool CanUndo(const ControlCore& core);
bool CanRedo(const ControlCore& core);
// True when something was undone (redone); false when there was nothing to do.
bool Undo(ControlCore& core);
bool Redo(ControlCore& core);

}  // namespace tabulon
