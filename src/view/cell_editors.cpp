// Choosing the editor for the current cell, and the text and pick-list editors. The
// two unit editors are in unit_editors.cpp.
//
// Decisions:
// - "ListValues shorter than 2 characters" counts characters (UTF-8 code points), as
//   the text box counts them, not bytes.
// - The column-width rule is checked first in every editor: a hidden column gets no
//   editor and none of the editor's contents change.
#include "view/cell_editors.h"

#include "document/lookups.h"
#include "support/failure.h"
#include "support/text.h"
#include "support/utf8.h"
#include "view/editor_placement.h"

namespace tabulon {

namespace {

constexpr std::size_t kShortestPickList = 2;

}  // namespace

void OpenCellEditor(ControlCore& core) {
    Guarded(core.sink, "1005", [&] {
        DocumentModel& doc = core.doc;
        if (!doc.blnGridLoaded) return;
        HideCellEditors(core);

        FlexGrid& grid = core.form.msgGridView;
        const int row = grid.row();
        const int col = grid.col();
        if (row <= 0 || row > grid.rows() || row > doc.arrCellNodes.upperBound1() ||
            col > doc.arrCellNodes.upperBound2()) {
            return;
        }
        const xml::Node cell = doc.arrCellNodes.at(row, col);
        if (!cell) return;
        // Protective editing: a cell a failed fill emptied shows no value, so no
        // editor may open on it and write that emptiness back.
        if (core.protectiveEditing && doc.valuesFillFailed) return;
        // A disabled cell cannot be edited; the fixed header row and column have no
        // cell nodes and never get here.
        if (GetAttributeValue(core.sink, cell, "Enabled") != "1") {
            grid.setFocus();
            return;
        }

        switch (CurrentRowInfo(core).ControlType) {
            case EditorKind::TextBox:
                ShowTextBoxEditor(core);
                break;
            case EditorKind::ComboBox:
                ShowComboBoxEditor(core);
                break;
            case EditorKind::UnitNum:
                ShowUnitNumEditor(core);
                break;
            case EditorKind::UnitDrop:
                ShowUnitDropEditor(core);
                break;
            case EditorKind::None:
                core.sink.Information("Invalid control name");
                break;
        }
    });
}

void ShowTextBoxEditor(ControlCore& core) {
    Guarded(core.sink, "1006", [&] {
        const FlexGrid& grid = core.form.msgGridView;
        if (!CurrentColumnTakesEditor(grid)) return;
        TextBox& box = core.form.txtTextBoxControl;
        PlaceOverCurrentCell(core, box, {.cellHeight = true, .clipAtHorizontalBar = true});
        box.setMaxLength(CurrentRowInfo(core).MaxLength);
        box.setText(grid.text());
        ActivateEditor(core, box);
        box.setSelStart(0);
        box.setSelLength(static_cast<int>(CountUtf8(box.text())));
    });
}

void ShowComboBoxEditor(ControlCore& core) {
    Guarded(core.sink, "1007", [&] {
        const FlexGrid& grid = core.form.msgGridView;
        if (!CurrentColumnTakesEditor(grid)) return;
        const std::string& listValues = CurrentRowInfo(core).ListValues;
        if (CountUtf8(listValues) < kShortestPickList) return;

        ComboBox& box = core.form.cboComboBoxControl;
        PlaceOverCurrentCell(core, box, {.cellHeight = false, .clipAtHorizontalBar = false});
        box.clear();
        const std::string& cellText = grid.text();
        bool listed = false;
        for (std::string& item : SplitList(listValues)) {
            listed = listed || item == cellText;
            box.addItem(std::move(item));
        }
        // A text that is not in the list leaves the box without a selection.
        if (listed) box.setText(cellText);
        ActivateEditor(core, box);
    });
}

void HideCellEditors(ControlCore& core) {
    Form& form = core.form;
    form.unitNumControl.setVisible(false);
    form.txtTextBoxControl.setVisible(false);
    form.unitDropControl.setVisible(false);
    form.cboComboBoxControl.setVisible(false);
}

}  // namespace tabulon
