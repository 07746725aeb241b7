// OK and View/Print: the editor is committed, the whole document must be valid, and
// only then does the host get OKClick (and the file is rewritten) or PrintClick.
#include "control/save_gate.h"

#include <string>

#include "document/report.h"
#include "document/validation_scan.h"
#include "support/failure.h"
#include "view/cell_editors.h"
#include "view/commit.h"
#include "view/node_selection.h"

namespace tabulon {

namespace {

constexpr std::string_view kValidationMessage =
    "Validation Error(s). You must correct all data highlighted in red before saving.";

// Shows the invalid cell: its tree node's grid, the cell current, the grid focused.
// Only records before the last one are searched, on purpose: a cell bound to the
// last tree node blocks saving but the view does not move to it.
void MoveToCell(ControlCore& core, const InvalidCell& cell) {
    const TreeRecords& records = core.doc.udtTreeNodes;
    const int searched = core.doc.treeRecordCount() - 1;
    for (int n = 0; n < searched; ++n) {
        if (records.text(static_cast<std::size_t>(n), TreeField::GridValueKey) != cell.key) {
            continue;
        }
        TreeView& tree = core.form.treTreeView;
        tree.setSelectedIndex(n + 1);
        SelectTreeNode(core, tree.selectedIndex());
        FlexGrid& grid = core.form.msgGridView;
        const int column = static_cast<int>(cell.gridValue);
        if (grid.cols() >= column) {
            grid.setCol(column + 1);
            if (grid.rows() >= cell.row) grid.setRow(cell.row);
        }
        grid.setFocus();
        return;
    }
}

}  // namespace

void ValidateGridValues(ControlCore& core, bool& ok) {
    try {
        const std::optional<InvalidCell> invalid = FindFirstInvalidCell(core.doc);
        ok = !invalid;
        if (invalid && !invalid->key.empty()) MoveToCell(core, *invalid);
    } catch (...) {
        ok = false;
        core.sink.Critical("Error in XML validation");
    }
}

void OKButtonClick(ControlCore& core) {
    try {
        if (!core.form.msgGridView.enabled()) return;
        if (core.form.anyEditorVisible()) {
            CommitCellEdit(core);
            HideCellEditors(core);
        }
        bool ok = false;
        ValidateGridValues(core, ok);
        if (!ok) {
            core.sink.Critical(kValidationMessage);
            return;
        }
        // The host's handler runs to completion before the file is written.
        core.host.OKClick();
        DocumentModel& doc = core.doc;
        if (!doc.strXMLPath.empty()) {
            std::string reason;
            FileStamp written;
            if (!doc.objXMLDoc->SaveAtomic(doc.strXMLPath, &reason, &doc.xmlFileStamp, &written)) {
                throw RuntimeFailure(reason);
            }
            // The file is now the one this document came from.
            doc.xmlFileStamp = written;
        }
        core.history.MarkSaved();
        core.lastSaveError.clear();
    } catch (...) {
        core.lastSaveError = DescribeCurrentException();
        core.sink.Critical("Unable the save the XML file.");
        core.host.SaveFailed(core.lastSaveError);
    }
}

void PrintButtonClick(ControlCore& core) {
    try {
        if (!core.form.msgGridView.enabled()) return;
        // Unlike OK: committed every time, and the editors stay as they are.
        CommitCellEdit(core);
        bool ok = false;
        ValidateGridValues(core, ok);
        if (!ok) {
            core.sink.Critical(kValidationMessage);
            return;
        }
        const std::string report = BuildReportXML(core.form.msgGridView, core.sink);
        if (!report.empty()) {
            core.host.PrintClick(report);
        } else {
            core.sink.Information("No data defined in grid.");
        }
    } catch (...) {
        core.sink.Critical("Error in generating report.");
    }
}

}  // namespace tabulon
