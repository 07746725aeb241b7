// ButtonBinding: a command button (cmdOK, cmdCancel, cmdHelp, cmdPrint) as a
// QPushButton showing the model's caption.
//
// A mouse click is the model's userClick. Keys never reach the QPushButton: they go
// to the control's keyboard routing, which hands a key press to the focused button
// model (Space there is the one click, from the control's key-press handler), so a
// Space gives exactly one click and Enter never presses a default button.
#pragma once

#include <QPushButton>

#include "platform/button.h"
#include "qt/bindings/component_binding.h"

namespace tabulon {

class ButtonBinding : public ComponentBinding {
    Q_OBJECT

public:
    ButtonBinding(BindingHost& host, Button& button, QWidget* parent);

    QPushButton* pushButton() const { return pushButton_; }

protected:
    void applyState(const ChangeInfo& change) override;

private:
    Button& button_;
    QPushButton* pushButton_;
};

}  // namespace tabulon
