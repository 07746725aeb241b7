// Keyboard routing: the control previews every key before the focused component;
// and the wheel, the other gesture that reaches the control rather than one part.
#include "control/generic_sp_control.h"
#include "view/access_keys.h"
#include "view/control_core.h"
#include "view/edit_keys.h"
#include "view/grid_events.h"
#include "view/navigation.h"

namespace tabulon {

void Generic_SP_Control::KeyPress(int& keyAscii) {
    NavigationKeyPress(*core_, keyAscii);
}

void Generic_SP_Control::KeyUp(int& keyCode, int shift) {
    NavigationKeyUp(*core_, keyCode, shift);
}

void Generic_SP_Control::UserKeyStroke(int keyCode, int keyAscii, int shift) {
    // The key belongs to whichever component had the focus when it was pressed, even
    // if the preview moves the focus.
    Component* target = core_->form.focus.focused();
    if (target == nullptr) return;
    if (HandleEditKey(*core_, keyCode, shift)) return;
    if (AccessKeyDown(*core_, keyCode, shift)) return;
    DeliverKeyDown(target, keyCode, shift);
    if (keyAscii != 0) {
        KeyPress(keyAscii);
        if (keyAscii != 0) DeliverKeyPress(target, keyAscii);
    }
    KeyUp(keyCode, shift);
}

void Generic_SP_Control::DeliverKeyDown(Component* target, int keyCode, int shift) {
    Form& f = core_->form;
    if (target == &f.unitNumControl) {
        f.unitNumControl.UserKeyDown(keyCode, shift);
    } else if (target == &f.unitDropControl) {
        f.unitDropControl.UserKeyDown(keyCode, shift);
    }
}

void Generic_SP_Control::DeliverKeyPress(Component* target, int keyAscii) {
    Form& f = core_->form;
    // Typing on the grid itself goes to the current cell's editor.
    if (target == &f.msgGridView) target = GridTypingTarget(*core_, keyAscii);
    if (target == &f.txtTextBoxControl) {
        f.txtTextBoxControl.userKeyPress(keyAscii);
    } else if (target == &f.unitNumControl) {
        f.unitNumControl.UserKeyPress(keyAscii);
    } else if (target == &f.unitDropControl) {
        f.unitDropControl.UserKeyPress(keyAscii);
    } else {
        for (Button* button : Buttons()) {
            if (target == button) button->userKeyPress(keyAscii);
        }
    }
}

void Generic_SP_Control::UserWheel(int rows, int cols) {
    GridWheel(*core_, rows, cols);
}

}  // namespace tabulon
