// The grid's and the scroll bars' notifications that open, commit and hide editors.
//
// Decision: after MouseMove writes a scroll bar's margin, the bar's repaint is what
// follows; the bar model already tells its view about the new margin, so nothing
// more is done here (in particular the bar is not recomputed from the grid).
#include "view/grid_events.h"

#include "support/failure.h"
#include "support/numeric.h"
#include "view/cell_editors.h"
#include "view/commit.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

namespace {

// The fixed header ends this far before the bars' margins.
constexpr double kHeaderMarginInset = 10;

// Lines the scroll bars up with the grid's fixed header column and row, writing each
// margin only when it changes.
void AlignScrollBarMargins(ControlCore& core) {
    const FlexGrid& grid = core.form.msgGridView;
    const std::int16_t left = grid.cols() == 0 ? 0 : ToInt16(grid.colWidth(0) - kHeaderMarginInset);
    if (core.form.hscGrid.LeftMargin() != left) core.form.hscGrid.SetLeftMargin(left);
    const std::int16_t top = grid.rows() == 0 ? 0 : ToInt16(grid.rowHeight(0) - kHeaderMarginInset);
    if (core.form.vscGrid.TopMargin() != top) core.form.vscGrid.SetTopMargin(top);
}

// Commits whatever editor is open and hides them all.
void CommitAndHide(ControlCore& core) {
    CommitCellEdit(core);
    HideCellEditors(core);
}

}  // namespace

void GridClick(ControlCore& core) {
    Guarded(core.sink, "1004", [&] {
        // A click on the current cell re-opens its editor only when none is open.
        if (core.form.anyEditorVisible()) return;
        RefreshAdvanceScrollbars(core);
        OpenCellEditor(core);
    });
}

void GridRowColChange(ControlCore& core) {
    // The refresh may scroll the grid itself; that scrolling must not commit.
    core.blnScrollCommit = false;
    RefreshAdvanceScrollbars(core);
    core.blnScrollCommit = true;
}

void GridScroll(ControlCore& core) {
    if (core.blnScrollCommit) CommitAndHide(core);
}

void GridWheel(ControlCore& core, int rows, int cols) {
    FlexGrid& grid = core.form.msgGridView;
    const int top = grid.topRow();
    const int left = grid.leftCol();
    grid.userScroll(rows, cols);
    if (grid.topRow() != top || grid.leftCol() != left) GridRowColChange(core);
}

void GridMouseMove(ControlCore& core, int /*button*/, int /*shift*/, std::int32_t /*x*/,
                   std::int32_t /*y*/) {
    Guarded(core.sink, "1011", [&] {
        AlignScrollBarMargins(core);
        FlexGrid& grid = core.form.msgGridView;
        if (grid.mouseRow() != 0 && grid.mouseCol() != 0) return;
        CommitAndHide(core);
        grid.setFocus();
    });
}

void GridUserColResize(ControlCore& core) {
    CommitAndHide(core);
    RefreshAdvanceScrollbars(core);
}

void ScrollBarGotFocus(ControlCore& core) {
    CommitAndHide(core);
}

Component* GridTypingTarget(ControlCore& core, int keyAscii) {
    constexpr int kFirstPrintable = 32;
    constexpr int kDeleteCharacter = 127;
    if (keyAscii < kFirstPrintable || keyAscii == kDeleteCharacter) return nullptr;
    Form& form = core.form;
    Component* open = nullptr;
    for (Component* editor : form.cellEditors()) {
        if (editor->visible()) open = editor;
    }
    if (open != nullptr) {
        open->setFocus();
    } else {
        OpenCellEditor(core);
    }
    Component* focused = form.focus.focused();
    return focused == &form.msgGridView ? nullptr : focused;
}

}  // namespace tabulon
