// Button: a command button. A click raises Click; a key raises KeyPress with its
// character code and nothing else (this model does not click itself on Space: the
// control's key-press handler does, so one Space gives exactly one click).
#pragma once

#include <functional>
#include <string>

#include "platform/component.h"

namespace tabulon {

class Button : public Component {
public:
    Button(std::string name, std::string caption)
        : Component(std::move(name)), caption_(std::move(caption)) {}

    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption);

    // Disabled or hidden buttons ignore gestures.
    void userClick();
    void userKeyPress(int keyAscii);

    std::function<void()> onClick;
    std::function<void(int& keyAscii)> onKeyPress;

private:
    std::string caption_;
};

}  // namespace tabulon
