#include "platform/button.h"

namespace tabulon {

void Button::setCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Notify(Change::Content);
}

void Button::userClick() {
    if (acceptsInput()) Raise(onClick);
}

void Button::userKeyPress(int keyAscii) {
    if (!acceptsInput()) return;
    int key = keyAscii;
    Raise(onKeyPress, key);
}

}  // namespace tabulon
