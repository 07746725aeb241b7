// PageTextBinding: a property page's text box (txtFilterCaption) or numeric box
// (ctlNumericTextBox: txtTreeViewWidth, txtLeft(i) ...) as a QLineEdit.
//
// The model owns the text and the selection; the line edit shows them. Each typed
// character, and Backspace, is one userKeyPress of the model's text box, so a numeric
// box's key rule runs as on the platform (a letter is taken back out, the caret put
// where the rule says) and its Change marks the page changed. Caret, selection and the
// clipboard keys work as LineEditMirror describes.
//
// The numeric box's lost-focus rule runs when the page's focus leaves its text box,
// which the dialog does whenever Qt's focus leaves the line edit for another widget
// of the dialog.
//
// Decisions:
// - Tab, Shift+Tab, Enter and Escape belong to the dialog (focus chain, OK, Cancel)
//   and never reach the model.
// - A numeric box's line edit is enabled only while both the box and its inner text
//   box are (the box's Enabled property is its text box's).
#pragma once

#include <QLineEdit>

#include "platform/text_box.h"
#include "qt/line_edit_mirror.h"
#include "qt/pages/page_binding.h"

namespace tabulon {

class PageTextBinding : public PageBinding {
    Q_OBJECT

public:
    // control: the page's control (the text box itself, or the numeric box holding
    // box).
    PageTextBinding(PageBindingHost& host, Component& control, TextBox& box, QWidget* parent);

    QLineEdit* lineEdit() const { return lineEdit_; }

protected:
    bool shownEnabled() const override;
    void applyState(const ChangeInfo& change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool keyPress(const QKeyEvent& event);

    Component& control_;
    TextBox& box_;
    QLineEdit* lineEdit_;
    LineEditMirror mirror_;
};

}  // namespace tabulon
