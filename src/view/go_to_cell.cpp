#include "view/go_to_cell.h"

#include "view/cell_editors.h"
#include "view/commit.h"
#include "view/filter.h"
#include "view/node_selection.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

namespace {

// Room kept for the grid's border and the control's own bar along that edge, as the
// keyboard moves keep it.
constexpr std::int64_t kEdgeMargin = 300;

void ShowNode(ControlCore& core, int node) {
    TreeView& tree = core.form.treTreeView;
    for (int parent = tree.node(node).parent; parent != 0; parent = tree.node(parent).parent)
        tree.setExpanded(parent, true);
    if (tree.selectedIndex() == node && core.doc.blnGridLoaded) return;
    tree.setSelectedIndex(node);
    SelectTreeNode(core, node);
}

void ShowColumn(ControlCore& core, int col) {
    Form& form = core.form;
    const std::vector<std::int16_t>& widths = core.doc.arrColWidths;
    if (form.msgGridView.colWidth(col) != 0) return;
    if (static_cast<std::size_t>(col) >= widths.size() ||
        widths[static_cast<std::size_t>(col)] <= 0)
        return;  // hidden by its layout, not by the filter
    if (!form.fraFilterView.visible() || form.cboFilter.text() == design::kFilterAll) return;
    form.cboFilter.setText(std::string(design::kFilterAll));
    cboFilter_Click(core);
}

// Scrolls so that the cell ends inside the grid; true when it scrolled.
bool ScrollTo(FlexGrid& grid, int row, int col) {
    const std::int64_t bottom = static_cast<std::int64_t>(grid.rowPos(row)) + grid.rowHeight(row);
    const std::int64_t right = static_cast<std::int64_t>(grid.colPos(col)) + grid.colWidth(col);
    const int top = grid.topRow();
    const int left = grid.leftCol();
    if (row < top || grid.height() - kEdgeMargin < bottom) grid.setTopRow(row);
    if (col < left || grid.width() - kEdgeMargin < right) grid.setLeftCol(col);
    return grid.topRow() != top || grid.leftCol() != left;
}

}  // namespace

bool GoToCell(ControlCore& core, int node, int row, int col) {
    Form& form = core.form;
    if (form.anyEditorVisible()) {
        CommitCellEdit(core);
        HideCellEditors(core);
    }
    ShowNode(core, node);
    DocumentModel& doc = core.doc;
    FlexGrid& grid = form.msgGridView;
    if (!doc.blnGridLoaded || row < 1 || col < 1 || row >= grid.rows() || col >= grid.cols())
        return false;

    ShowColumn(core, col);
    if (ScrollTo(grid, row, col)) {
        core.blnScrollCommit = false;
        RefreshAdvanceScrollbars(core);
        core.blnScrollCommit = true;
    }
    // One step: the cells passed on the way are neither opened nor committed.
    doc.blnGridLoaded = false;
    grid.setCol(col);
    grid.setRow(row);
    doc.blnGridLoaded = true;
    RefreshAdvanceScrollbars(core);
    OpenCellEditor(core);
    if (!form.anyEditorVisible()) grid.setFocus();
    return true;
}

}  // namespace tabulon
