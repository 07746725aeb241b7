#include "view/editor_placement.h"

#include "support/failure.h"

namespace tabulon {

bool CurrentColumnTakesEditor(const FlexGrid& grid) {
    return grid.cellWidth() >= kMinimumEditorColumnWidth;
}

void PlaceOverCurrentCell(ControlCore& core, Component& editor, EditorFit fit) {
    const Form& form = core.form;
    const FlexGrid& grid = form.msgGridView;
    const std::int32_t top = grid.top() + grid.cellTop();
    const std::int32_t left = grid.left() + grid.cellLeft();
    std::int32_t width = grid.cellWidth();
    std::int32_t height = fit.cellHeight ? grid.cellHeight() : editor.height();

    const ctlVerticalScroll& vsc = form.vscGrid;
    if (vsc.visible() && vsc.left() < left + width) width = vsc.left() - left;
    const ctlHorizontalScroll& hsc = form.hscGrid;
    if (fit.clipAtHorizontalBar && hsc.visible() && hsc.top() < top + height) {
        height = hsc.top() - top;
    }
    editor.move(left, top, width, height);
}

void ActivateEditor(ControlCore& core, Component& editor) {
    editor.setVisible(true);
    editor.setFocus();
    core.blnEditorActive = true;
    NoteEditorOpened(core);
}

const RowInfo& CurrentRowInfo(const ControlCore& core) {
    const int row = core.form.msgGridView.row();
    const std::vector<RowInfo>& rows = core.doc.arrRowInfo;
    if (row < 0 || static_cast<std::size_t>(row) >= rows.size()) {
        throw InvalidArgumentFailure("Subscript out of range");
    }
    return rows[static_cast<std::size_t>(row)];
}

}  // namespace tabulon
