// CheckBox: a caption and a checked state. A user click toggles and raises Click;
// setting the value by code raises Click too, as on the platform.
#pragma once

#include <functional>
#include <string>

#include "platform/component.h"

namespace tabulon {

class CheckBox : public Component {
public:
    CheckBox(std::string name, std::string caption)
        : Component(std::move(name)), caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    bool checked() const { return checked_; }
    void setChecked(bool checked);  // raises Click when the value changes
    void userClick();               // toggles (raising Click); ignored while hidden or disabled

    std::function<void()> onClick;

private:
    std::string caption_;
    bool checked_ = false;
};

}  // namespace tabulon
