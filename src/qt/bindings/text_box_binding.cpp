#include "qt/bindings/text_box_binding.h"

#include <QKeyEvent>

namespace tabulon {

TextBoxBinding::TextBoxBinding(BindingHost& bindingHost, TextBox& box, QWidget* parent)
    : ComponentBinding(bindingHost, box, new QLineEdit(parent)),
      box_(box),
      lineEdit_(static_cast<QLineEdit*>(widget())),
      mirror_(*lineEdit_, box,
              [this](const std::function<void()>& gesture) { host().runGesture(gesture); }) {
    lineEdit_->setFrame(false);
    lineEdit_->setFocusPolicy(Qt::ClickFocus);
}

void TextBoxBinding::applyState(const ChangeInfo& change) {
    mirror_.mirror(change.kind != Change::Selection);
}

bool TextBoxBinding::keyPress(QWidget* part, QKeyEvent* event) {
    SendKeyStroke(host(), *event);
    // The preview may have moved on (Tab, Enter): then the key was only the control's.
    if (part != lineEdit_ || !box_.hasFocus()) return true;
    if (mirror_.editKey(*event)) return true;
    return !LineEditMirror::LocalKey(*event);
}

}  // namespace tabulon
