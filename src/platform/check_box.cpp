#include "platform/check_box.h"

namespace tabulon {

void CheckBox::setChecked(bool checked) {
    if (checked == checked_) return;
    checked_ = checked;
    Notify(Change::Content);
    Raise(onClick);
}

void CheckBox::userClick() {
    if (acceptsInput()) setChecked(!checked_);
}

}  // namespace tabulon
