#include "view/edit_keys.h"

#include "platform/key_codes.h"
#include "support/cell_table_text.h"
#include "view/block_edit.h"
#include "view/cell_selection.h"
#include "view/undo.h"

namespace tabulon {

namespace {

enum class EditAction {
    Undo,
    Redo,
    Revert,
    ExtendUp,
    ExtendDown,
    ExtendLeft,
    ExtendRight,
    Copy,
    Paste,
    FillDown,
    FillRight,
    Clear
};

struct EditKeyRow {
    int keyCode;
    int shift;
    EditAction action;
};

constexpr EditKeyRow kEditKeys[] = {
    {'Z', kCtrlBit, EditAction::Undo},
    {'Y', kCtrlBit, EditAction::Redo},
    {'Z', kCtrlBit | kShiftBit, EditAction::Redo},
    {keys::kEscape, 0, EditAction::Revert},
    {keys::kUp, kShiftBit, EditAction::ExtendUp},
    {keys::kDown, kShiftBit, EditAction::ExtendDown},
    {keys::kLeft, kShiftBit, EditAction::ExtendLeft},
    {keys::kRight, kShiftBit, EditAction::ExtendRight},
    {'C', kCtrlBit, EditAction::Copy},
    {'V', kCtrlBit, EditAction::Paste},
    {'D', kCtrlBit, EditAction::FillDown},
    {'R', kCtrlBit, EditAction::FillRight},
    {keys::kDelete, 0, EditAction::Clear},
};

bool GridFocused(const ControlCore& core) {
    return core.form.msgGridView.hasFocus();
}

// Shift+Up/Down also leave a text or number editor; a pick list keeps its arrows.
bool ExtendsVertically(const ControlCore& core) {
    const Form& form = core.form;
    return GridFocused(core) || form.txtTextBoxControl.hasFocus() ||
           form.unitNumControl.hasFocus() || form.unitDropControl.hasFocus();
}

// The block keys; false when the key is left to the focused component.
bool HandleBlockKey(ControlCore& core, EditAction action) {
    const bool several = SeveralCellsSelected(core.form.msgGridView);
    switch (action) {
        case EditAction::ExtendUp:
        case EditAction::ExtendDown:
            if (!ExtendsVertically(core)) return false;
            ExtendSelection(core, action == EditAction::ExtendUp ? -1 : 1, 0);
            return true;
        case EditAction::ExtendLeft:
        case EditAction::ExtendRight:
            if (!GridFocused(core)) return false;
            ExtendSelection(core, 0, action == EditAction::ExtendLeft ? -1 : 1);
            return true;
        case EditAction::Copy:
            if (!several && !GridFocused(core)) return false;
            CopySelection(core, false);
            return true;
        case EditAction::Paste: {
            const std::string text = core.clipboard->Text();
            if (!several && !GridFocused(core) && !HoldsSeveralCells(text)) return false;
            PasteCells(core, text);
            return true;
        }
        case EditAction::FillDown:
        case EditAction::FillRight:
            if (!several) return false;
            if (action == EditAction::FillDown) {
                FillDown(core);
            } else {
                FillRight(core);
            }
            return true;
        case EditAction::Clear:
            if (!several && !GridFocused(core)) return false;
            ClearCells(core);
            return true;
        default:
            return false;
    }
}

}  // namespace

bool IsEditKey(int keyCode, int shift) {
    for (const EditKeyRow& row : kEditKeys) {
        if (row.keyCode == keyCode && row.shift == shift) return true;
    }
    return false;
}

bool HandleEditKey(ControlCore& core, int keyCode, int shift) {
    for (const EditKeyRow& row : kEditKeys) {
        if (row.keyCode != keyCode || row.shift != shift) continue;
        switch (row.action) {
            case EditAction::Undo:
                Undo(core);
                return true;
            case EditAction::Redo:
                Redo(core);
                return true;
            case EditAction::Revert: {
                const Component* editor = VisibleEditorValue(core.form).editor;
                if (editor == nullptr || !editor->hasFocus()) return false;
                RevertEditor(core);
                return true;
            }
            default:
                return HandleBlockKey(core, row.action);
        }
    }
    return false;
}

}  // namespace tabulon
