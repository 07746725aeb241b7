#include "qt/bindings/button_binding.h"

#include "qt/qt_text.h"

namespace tabulon {

ButtonBinding::ButtonBinding(BindingHost& bindingHost, Button& button, QWidget* parent)
    : ComponentBinding(bindingHost, button, new QPushButton(parent)),
      button_(button),
      pushButton_(static_cast<QPushButton*>(widget())) {
    pushButton_->setFocusPolicy(Qt::ClickFocus);
    pushButton_->setAutoDefault(false);
    pushButton_->setDefault(false);
    connect(pushButton_, &QPushButton::clicked, this, [this] {
        if (!mirroring()) host().runGesture([this] { button_.userClick(); });
    });
}

void ButtonBinding::applyState(const ChangeInfo& /*change*/) {
    const Mirroring mirroring(*this);
    pushButton_->setText(ToQString(button_.caption()));
}

}  // namespace tabulon
