#include "view/edit_keys.h"

#include "platform/key_codes.h"
#include "view/undo.h"

namespace tabulon {

namespace {

enum class EditAction { Undo, Redo, Revert };

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
};

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
        }
    }
    return false;
}

}  // namespace tabulon
