// TextBox: a single-line text box. Code changes of the text raise Change; typing
// raises KeyPress first (the handler may change or swallow the key by setting it to
// 0), then edits the text at the selection and raises Change.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/component.h"

namespace tabulon {

class TextBox : public Component {
public:
    explicit TextBox(std::string name) : Component(std::move(name)) {}

    const std::string& text() const { return text_; }
    // Replaces the text (not cut to MaxLength, as on the platform); the caret goes to
    // 0 with no selection; raises Change when the text differs.
    void setText(std::string text);

    // 0 = no limit. Negative values throw InvalidArgumentFailure.
    std::int32_t maxLength() const { return maxLength_; }
    void setMaxLength(std::int32_t length);

    // Selection in characters (UTF-8 code points), clamped to the text.
    int selStart() const { return selStart_; }
    int selLength() const { return selLength_; }
    void setSelStart(int start);   // also empties the selection
    void setSelLength(int length);

    // --- user gestures
    // One key with a character code: KeyPress runs first and may change or swallow
    // it; then 8 (Backspace) deletes the selection or the character before the
    // caret, other codes >= 32 replace the selection (respecting MaxLength), and
    // Change runs if the text changed. Codes below 32 other than 8 edit nothing.
    void userKeyPress(int keyAscii);
    // Replaces the whole text at once, as a paste: Change runs once.
    void userPaste(const std::string& text);

    std::function<void(int& keyAscii)> onKeyPress;
    std::function<void()> onChange;

private:
    void replaceSelection(const std::string& insert);

    std::string text_;
    std::int32_t maxLength_ = 0;
    int selStart_ = 0;
    int selLength_ = 0;
};

}  // namespace tabulon
