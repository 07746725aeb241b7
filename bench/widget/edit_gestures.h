// The gestures that change values in blocks or go looking for them: undo and redo of
// one step (Ctrl+Z, Ctrl+Y; the stock anchor's QUndoStack has the same keys), a 50 x 20
// block pasted with Ctrl+V, find (Ctrl+F, a word typed, Enter) and the next value that
// needs correcting (F9). Paste, find and F9 have no stock counterpart.
#pragma once

#include <optional>
#include <string>

#include "gesture_clock.h"
#include "gestures.h"
#include "subject.h"

namespace tabulon::bench {

// The plan of one of these gestures; nothing for another gesture, a subject that
// cannot make it or a document that offers nothing to make it on.
std::optional<GesturePlan> MakeEditPlan(const std::string& gesture, Subject& subject,
                                        const GestureContext& context);

}  // namespace tabulon::bench
