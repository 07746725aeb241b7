// The value an in-place editor holds, and the value it opened with: what Escape puts
// back, what the editor's own undo (Ctrl+Z before the document's) reverts, and what
// protective editing compares before it writes anything.
//
// An editor's value is what its commit reads: the text box's text, the pick list's
// text and chosen entry, the unit number box's number text, and the unit drop-down's
// number text and chosen unit. The caret and the selection are not part of it.
//
// Decision: the editor's own undo has one level, as the platform's single-line text
// box has: it puts back the value the editor opened with, and the editor's redo puts
// back the value that undo replaced, until the value changes again.
#pragma once

#include <string>

#include "platform/component.h"

namespace tabulon {

struct ControlCore;
struct Form;

struct EditorValue {
    const Component* editor = nullptr;  // null: no editor is visible
    std::string text;
    int choice = -1;  // the pick list's entry or the unit drop-down's unit code
    bool operator==(const EditorValue&) const = default;
};

// The value of the visible editor; editor null when none of the four is visible.
EditorValue VisibleEditorValue(const Form& form);

// Remembers the visible editor's value as the one it opened with (the editors call
// this once they are shown and focused) and forgets an editor undo.
void NoteEditorOpened(ControlCore& core);

// True when an editor is visible and its value differs from the one it opened with.
bool EditorChanged(const ControlCore& core);

// Escape: the visible editor takes back the value it opened with and stays open, the
// whole text selected as when it opened, so what is typed next replaces it. Nothing
// happens when no editor is visible.
void RevertEditor(ControlCore& core);

// The editor's own undo and redo (decision above); false when there is nothing to do.
bool CanUndoEditor(const ControlCore& core);
bool CanRedoEditor(const ControlCore& core);
bool UndoEditor(ControlCore& core);
bool RedoEditor(ControlCore& core);

}  // namespace tabulon
