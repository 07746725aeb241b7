// EditHistory: the control's undo journal. It keeps, for every change made to the
// document through the control, the elements that changed, each as its place in the
// document and its content before and after (xml::Snapshot), so memory grows with
// the elements changed, never with the document. The commit of a cell records its
// CellValue element; when the host changes the column in AppGridEventHandler, the
// smallest changed elements of that GridValue join the same step (edit_recording.h).
// Applying a step to the control's view is undo.h's business.
//
// Steps. Every change recorded while a StepGuard lives belongs to one step; nested
// guards join the outermost, and a change recorded outside any guard is a step of its
// own. A guard that ends without a change leaves no step. A new step drops the steps
// that could have been redone. Block edits (paste, fill, delete) hold one guard
// across the commits of all their cells, so that one Undo puts every cell back:
//
//     const EditHistory::StepGuard step(core.history, CurrentLocation(core));
//     for (each cell of the block) {
//         make the cell current; put its value into the open editor;
//         CommitCellEdit(core);  // AppGridEventHandler, once per column, lands here too
//     }
//
// The saved state. MarkSaved remembers the position in the journal; Modified is true
// whenever the position is another one (undoing back to it makes it false again). A
// step recorded after undoing past it makes the saved state unreachable.
//
// Decision: the journal keeps at most kMemoryBudget bytes of snapshots; beyond that
// the oldest steps are forgotten (the newest step is always kept, however large).
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "platform/xml/xml_snapshot.h"

namespace tabulon {

// Where a step happened: the tree node shown (1-based), its grid's layout and value
// keys, and the grid cell that was current.
struct EditLocation {
    int treeNode = 0;
    std::string headerKey;
    std::string valueKey;
    int row = 0;
    int col = 0;
};

// One element changed by a step.
struct ElementChange {
    xml::NodePath path;
    xml::Snapshot before;
    xml::Snapshot after;
    // The grid column that shows the element's GridValue (GridValue index + 1).
    int column = 0;
    // The element is a CellValue: restoring it leaves every other element's handle valid.
    bool cellValue = false;
};

struct EditStep {
    EditLocation where;
    std::vector<ElementChange> changes;
    std::size_t bytes = 0;
};

class EditHistory {
public:
    static constexpr std::size_t kMemoryBudget = std::size_t{64} << 20;

    class StepGuard {
    public:
        // Opens a step at where, or joins the step already open (where is then unused).
        StepGuard(EditHistory& history, EditLocation where);
        // Closes the step when this is the outermost guard (also during a failure:
        // what was changed before it stays recorded).
        ~StepGuard();
        StepGuard(const StepGuard&) = delete;
        StepGuard& operator=(const StepGuard&) = delete;

    private:
        EditHistory& history_;
    };

    // Adds a change to the open step; outside any guard it becomes a step of its own
    // (with an empty location). Ignored while a step is being applied.
    void Record(ElementChange change);

    // A step is open: undo and redo wait until it closes.
    bool recording() const { return depth_ > 0; }
    bool CanUndo() const { return !recording() && applied_ > 0; }
    bool CanRedo() const { return !recording() && applied_ < steps_.size(); }
    std::size_t undoCount() const { return applied_; }
    std::size_t redoCount() const { return steps_.size() - applied_; }
    std::size_t bytes() const { return bytes_; }
    // Steps recorded since the journal was made: changes whenever a new step lands.
    std::uint64_t recordedSteps() const { return recorded_; }

    // The step the next Undo (Redo) applies; only when CanUndo (CanRedo).
    const EditStep& StepToUndo() const { return steps_[applied_ - 1]; }
    const EditStep& StepToRedo() const { return steps_[applied_]; }
    // Moves the position once the caller has applied that step.
    void Undone();
    void Redone();
    // Set while the caller applies a step: nothing is recorded meanwhile.
    bool applying = false;

    // No steps; the document as it is now counts as saved.
    void Clear();
    void MarkSaved() { saved_ = applied_; }
    // No position counts as saved any more.
    void ForgetSaved() { saved_.reset(); }
    bool Modified() const { return saved_ != applied_; }

private:
    void Close();
    void DropOldest();

    std::deque<EditStep> steps_;
    std::size_t applied_ = 0;  // steps done; steps_[applied_..] can be redone
    std::optional<std::size_t> saved_ = 0;
    std::size_t bytes_ = 0;
    std::uint64_t recorded_ = 0;
    int depth_ = 0;
    EditStep open_;
};

}  // namespace tabulon
