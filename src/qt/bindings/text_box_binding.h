// TextBoxBinding: the text-box editor (txtTextBoxControl) as a QLineEdit.
//
// The model owns the text and the selection; the line edit shows them. Every key
// goes to the control's keyboard routing, which previews it and types it into the
// model. Caret, selection and the clipboard keys work as LineEditMirror describes.
#pragma once

#include <QLineEdit>

#include "platform/text_box.h"
#include "qt/bindings/component_binding.h"
#include "qt/line_edit_mirror.h"

namespace tabulon {

class TextBoxBinding : public ComponentBinding {
    Q_OBJECT

public:
    TextBoxBinding(BindingHost& host, TextBox& box, QWidget* parent);

    QLineEdit* lineEdit() const { return lineEdit_; }

protected:
    void applyState(const ChangeInfo& change) override;
    bool keyPress(QWidget* part, QKeyEvent* event) override;

private:
    TextBox& box_;
    QLineEdit* lineEdit_;
    LineEditMirror mirror_;
};

}  // namespace tabulon
