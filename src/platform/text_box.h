// TextBox: a single-line text box. Code changes of the text raise Change; typing
// raises KeyPress first (the handler may change or swallow the key by setting it to
// 0), then edits the text at the selection and raises Change. Every position and
// length counts characters (UTF-8 code points), MaxLength included.
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

    // 0 = no limit. Negative values throw InvalidArgumentFailure. The current text is
    // not cut.
    std::int32_t maxLength() const { return maxLength_; }
    void setMaxLength(std::int32_t length);

    // Selection in characters, clamped to the text (negative values count as 0).
    int selStart() const { return selStart_; }
    int selLength() const { return selLength_; }
    void setSelStart(int start);  // also empties the selection
    void setSelLength(int length);
    std::string selText() const;

    // --- user gestures (ignored while hidden or disabled)
    // One key with a character code: KeyPress runs first and may change or swallow
    // it; then 8 (Backspace) deletes the selection or the character before the
    // caret, other codes >= 32 (a code point) replace the selection unless the
    // result would pass MaxLength, and Change runs if the text changed. Codes below 32
    // other than 8, and values that are no code point, edit nothing.
    void userKeyPress(int keyAscii);
    // Replaces the whole text at once, as a paste: cut to MaxLength characters, caret
    // at the end; Change runs once if the text changed.
    void userPaste(const std::string& text);

    std::function<void(int& keyAscii)> onKeyPress;
    std::function<void()> onChange;

private:
    int length() const;
    void setSelection(int start, int length);
    void replaceRange(int start, int length, const std::string& insert);
    void commitText(std::string text, int caret);

    std::string text_;
    std::int32_t maxLength_ = 0;
    int selStart_ = 0;
    int selLength_ = 0;
};

}  // namespace tabulon
