// Selecting a tree node.
//
// Decision: when the node's FilterCaption is not empty after trimming, the filter
// label gets the caption as written, surrounding blanks included; trimming only
// decides whether the caption counts.
#include "view/node_selection.h"

#include "support/failure.h"
#include "support/text.h"
#include "view/cell_editors.h"
#include "view/commit.h"
#include "view/filter.h"
#include "view/grid_fill.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

namespace {

// Shows or hides the filter frame; the grid area is laid out again only on a change.
void ShowFilterFrame(ControlCore& core, bool show) {
    Frame& frame = core.form.fraFilterView;
    if (frame.visible() == show) return;
    frame.setVisible(show);
    LayoutGridArea(core);
}

}  // namespace

void SelectTreeNode(ControlCore& core, int index) {
    Guarded(core.sink, "1012", [&] {
        DocumentModel& doc = core.doc;
        if (index < 1 || index > doc.treeRecordCount()) {
            throw InvalidArgumentFailure("Subscript out of range");
        }
        // A copy: the fills below must not see the record change under them.
        const TreeNodeInfo record = doc.udtTreeNodes[static_cast<std::size_t>(index - 1)];

        // Protective editing: the open editor's value is written before the grid
        // changes, instead of being dropped with the editor.
        if (core.protectiveEditing && core.form.anyEditorVisible()) CommitCellEdit(core);
        doc.shownTreeNode = index;
        doc.blnGridLoaded = false;
        HideCellEditors(core);

        if (record.Filter == 1) {
            ShowFilterFrame(core, true);
            if (!Trim(record.FilterCaption).empty()) {
                core.form.lblFilter.setCaption(record.FilterCaption);
            }
        } else {
            ShowFilterFrame(core, false);
        }

        if (!FillGridHeaders(core, record.GridHeaderKey)) return;
        if (!FillGridValues(core, record.GridValueKey)) return;

        doc.blnGridLoaded = true;
        RefreshAdvanceScrollbars(core);
        core.form.cboFilter.setEnabled(FillFilter(core));
    });
}

void TreeCollapsed(ControlCore& core) {
    // Collapsing can move the selection without a click: refresh for the node that
    // is selected now.
    SelectTreeNode(core, core.form.treTreeView.selectedIndex());
}

}  // namespace tabulon
