#include "platform/text_box.h"

#include <algorithm>

#include "platform/key_codes.h"
#include "support/failure.h"
#include "support/utf8.h"

namespace tabulon {

namespace {
using keys::kBackspace;
}  // namespace

int TextBox::length() const {
    return static_cast<int>(CountUtf8(text_));
}

void TextBox::setText(std::string text) {
    const bool changed = text != text_;
    text_ = std::move(text);
    if (changed) Notify(Change::Content);
    setSelection(0, 0);
    if (changed) Raise(onChange);
}

void TextBox::setMaxLength(std::int32_t length) {
    if (length < 0) throw InvalidArgumentFailure("Invalid property value");
    if (length == maxLength_) return;
    maxLength_ = length;
    Notify(Change::Content);
}

void TextBox::setSelection(int start, int length) {
    const int total = this->length();
    start = std::clamp(start, 0, total);
    length = std::clamp(length, 0, total - start);
    if (start == selStart_ && length == selLength_) return;
    selStart_ = start;
    selLength_ = length;
    Notify(Change::Selection);
}

void TextBox::setSelStart(int start) {
    setSelection(start, 0);
}
void TextBox::setSelLength(int length) {
    setSelection(selStart_, length);
}

std::string TextBox::selText() const {
    const std::size_t begin = Utf8Offset(text_, static_cast<std::size_t>(selStart_));
    const std::size_t end = Utf8Offset(
        text_, static_cast<std::size_t>(selStart_) + static_cast<std::size_t>(selLength_));
    return text_.substr(begin, end - begin);
}

void TextBox::commitText(std::string text, int caret) {
    const bool changed = text != text_;
    text_ = std::move(text);
    if (changed) Notify(Change::Content);
    // The caret is in place before Change runs: handlers read and move it.
    setSelection(caret, 0);
    if (changed) Raise(onChange);
}

void TextBox::replaceRange(int start, int length, const std::string& insert) {
    commitText(ReplaceUtf8Range(text_, static_cast<std::size_t>(start),
                                static_cast<std::size_t>(length), insert),
               start + static_cast<int>(CountUtf8(insert)));
}

void TextBox::userKeyPress(int keyAscii) {
    if (!acceptsInput()) return;
    int key = keyAscii;
    Raise(onKeyPress, key);
    if (key == 0) return;
    if (key == kBackspace) {
        if (selLength_ > 0) {
            replaceRange(selStart_, selLength_, std::string());
        } else if (selStart_ > 0) {
            replaceRange(selStart_ - 1, 1, std::string());
        }
        return;
    }
    const bool surrogate = key >= 0xD800 && key <= 0xDFFF;
    if (key < 32 || key > 0x10FFFF || surrogate) return;
    if (maxLength_ > 0 && length() - selLength_ + 1 > maxLength_) return;
    std::string character;
    AppendUtf8(character, static_cast<char32_t>(key));
    replaceRange(selStart_, selLength_, character);
}

void TextBox::userPaste(const std::string& text) {
    if (!acceptsInput()) return;
    std::string pasted = text;
    if (maxLength_ > 0) pasted.resize(Utf8Offset(pasted, static_cast<std::size_t>(maxLength_)));
    const int caret = static_cast<int>(CountUtf8(pasted));
    commitText(std::move(pasted), caret);
}

}  // namespace tabulon
