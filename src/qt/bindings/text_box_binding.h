// TextBoxBinding: the text-box editor (txtTextBoxControl) as a QLineEdit.
//
// The model owns the text and the selection; the line edit shows them. Every key
// goes to the control's keyboard routing, which previews it and types it into the
// model. Moving the caret and selecting (arrow keys, Home, End, Ctrl+A, the mouse)
// happen in the line edit and are handed to the model's selection at once. The
// clipboard keys edit the model: paste and cut replace the whole text at once as the
// model's paste does (the caret ends at the end of the text after a paste, where
// the cut was after a cut), Delete removes the selection or the character after the
// caret the same way; copy only reads. Undo, the context menu and drag and drop
// are off: they would change the text behind the model's back.
//
// Decision: pasted text is cut at its first line break (the box holds one line).
#pragma once

#include <QLineEdit>

#include "platform/text_box.h"
#include "qt/bindings/component_binding.h"

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
    void mirrorText();
    void mirrorSelection();
    // The line edit's caret and selection into the model.
    void pushSelection();
    // Replaces the line edit's range [start, start + length) (UTF-16 units) with text
    // through the model's paste, then puts the caret at caret (UTF-16 units; -1 leaves
    // it at the end).
    void replaceRange(int start, int length, const QString& text, int caret);
    void paste();
    void cut();
    void deleteForward();

    TextBox& box_;
    QLineEdit* lineEdit_;
    bool pushing_ = false;
};

// The first line of a pasted text (up to the first CR or LF).
QString FirstLine(const QString& text);

}  // namespace tabulon
