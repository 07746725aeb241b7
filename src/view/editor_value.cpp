#include "view/editor_value.h"

#include "support/utf8.h"
#include "view/control_core.h"

namespace tabulon {

namespace {

void PutBack(Form& form, const EditorValue& value) {
    if (value.editor == &form.txtTextBoxControl) {
        TextBox& box = form.txtTextBoxControl;
        box.setText(value.text);
        box.setSelStart(0);
        box.setSelLength(static_cast<int>(CountUtf8(box.text())));
    } else if (value.editor == &form.cboComboBoxControl) {
        ComboBox& box = form.cboComboBoxControl;
        box.setListIndex(value.choice);
        if (value.choice < 0 && !value.text.empty()) box.setText(value.text);
    } else if (value.editor == &form.unitNumControl) {
        form.unitNumControl.SetNumberText(value.text);
        form.unitNumControl.SelectAll();
    } else if (value.editor == &form.unitDropControl) {
        form.unitDropControl.SelectUnitCode(value.choice);
        form.unitDropControl.SetNumberText(value.text);
        form.unitDropControl.SelectAll();
    }
}

}  // namespace

EditorValue VisibleEditorValue(const Form& form) {
    if (form.txtTextBoxControl.visible())
        return {&form.txtTextBoxControl, form.txtTextBoxControl.text(), -1};
    if (form.cboComboBoxControl.visible()) {
        return {&form.cboComboBoxControl, form.cboComboBoxControl.text(),
                form.cboComboBoxControl.listIndex()};
    }
    if (form.unitNumControl.visible())
        return {&form.unitNumControl, form.unitNumControl.NumberText(), -1};
    if (form.unitDropControl.visible()) {
        return {&form.unitDropControl, form.unitDropControl.NumberText(),
                form.unitDropControl.SelectedUnitIndex()};
    }
    return {};
}

void NoteEditorOpened(ControlCore& core) {
    core.editorOpenedWith = VisibleEditorValue(core.form);
    core.editorUndone.reset();
}

bool EditorChanged(const ControlCore& core) {
    const EditorValue now = VisibleEditorValue(core.form);
    return now.editor != nullptr && now.editor == core.editorOpenedWith.editor &&
           now != core.editorOpenedWith;
}

void RevertEditor(ControlCore& core) {
    const EditorValue now = VisibleEditorValue(core.form);
    if (now.editor == nullptr || now.editor != core.editorOpenedWith.editor) return;
    PutBack(core.form, core.editorOpenedWith);
    core.editorUndone.reset();
}

bool CanUndoEditor(const ControlCore& core) {
    return EditorChanged(core);
}

bool CanRedoEditor(const ControlCore& core) {
    return core.editorUndone && !EditorChanged(core) &&
           VisibleEditorValue(core.form).editor == core.editorUndone->editor;
}

bool UndoEditor(ControlCore& core) {
    if (!CanUndoEditor(core)) return false;
    const EditorValue replaced = VisibleEditorValue(core.form);
    PutBack(core.form, core.editorOpenedWith);
    core.editorUndone = replaced;
    return true;
}

bool RedoEditor(ControlCore& core) {
    if (!CanRedoEditor(core)) return false;
    const EditorValue value = *core.editorUndone;
    core.editorUndone.reset();
    PutBack(core.form, value);
    return true;
}

}  // namespace tabulon
