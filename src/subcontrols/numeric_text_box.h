// ctlNumericTextBox: a single-line box holding a whole number (32-bit) within an
// optional minimum and maximum, used by the property pages for every numeric field.
// Letters are taken back out as they are typed, a value assigned by code is clamped
// silently, a value the user typed is clamped with an information message when the
// user leaves the box, and onChange runs after every change of the text.
//
// Kept behaviours, on purpose:
// - A bound of 0 is no bound: with MinValue 0 negative numbers pass, with MaxValue 0
//   any large number passes.
// - Assigning Value leaves the text alone while the maximum length is 1, 2 or 3.
// - After any key other than a Latin letter (Backspace and digits alike) the caret
//   goes to the selection start before the key + 1, so Backspace in "123" after the
//   "1" leaves "23" with the caret at 2.
// - Typing a letter raises onChange twice: once for the rewrite of the text without
//   the letter (nested) and once for the letter itself.
//
// Decisions:
// - The lost-focus rule runs from userLeave() (the gesture for tools and tests) and
//   from the inner text box's LostFocus notification, so a FocusManager attached to
//   textBox() drives it too.
// - Messages go to the MessageSink given to the constructor or to setMessageSink;
//   without one, range violations are clamped without a message.
// - The leading numeric part of the text is the system's one rule (ReadNumber), then
//   rounded half to even; a number beyond the 32-bit range throws OverflowFailure to
//   the caller (the Get, a letter typed, leaving the box).
// - The box's height never goes below 330 twips; a new instance is 330 high.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/component.h"
#include "platform/property_bag.h"
#include "platform/text_box.h"
#include "support/message_sink.h"

namespace tabulon {

class ctlNumericTextBox : public Component {
public:
    static constexpr std::int32_t kMinHeight = 330;
    static constexpr std::int32_t kMaxLengthCap = 9;

    // Initialised: text "0" (no message), maximum length 9.
    explicit ctlNumericTextBox(std::string name, MessageSink* sink = nullptr);
    ctlNumericTextBox(const ctlNumericTextBox&) = delete;
    ctlNumericTextBox& operator=(const ctlNumericTextBox&) = delete;

    // Where the information messages go (null: nowhere).
    void setMessageSink(MessageSink* sink) { sink_ = sink; }

    // Get: the leading numeric part of the text rounded half to even; empty or
    // non-numeric text gives 0. Let: clamps to MinValue / MaxValue (bounds of 0 do not
    // count), announcing the violation only when the text changed since the last
    // assignment; writes the number unless the maximum length is 1..3; then the next
    // clamping is silent until the text changes again.
    std::int32_t Value() const;
    void SetValue(std::int32_t value);
    // The text box's maximum length (0 = none). The Let caps values above 9 at 9;
    // a negative value throws InvalidArgumentFailure.
    std::int32_t MaxLength() const { return txtNumericBox_.maxLength(); }
    void SetMaxLength(std::int32_t length);
    // The text box's enabled state (the component's own is enabled()).
    bool Enabled() const { return txtNumericBox_.enabled(); }
    void SetEnabled(bool enabled) { txtNumericBox_.setEnabled(enabled); }
    // The bounds; 0 means none. Setting one does not re-check the current value.
    std::int32_t MinValue() const { return minValue_; }
    void SetMinValue(std::int32_t value) { minValue_ = value; }
    std::int32_t MaxValue() const { return maxValue_; }
    void SetMaxValue(std::int32_t value) { maxValue_ = value; }

    // The Change event: after every change of the text, typed or assigned.
    std::function<void()> onChange;

    // The user leaves the box: the leading numeric part is assigned to Value, so a
    // typed value out of range is announced and clamped here.
    void userLeave();

    // Settings kept by the form. Write: "MaxLength" (default 9), "Value" (the text,
    // default "0"), "MinValue", "MaxValue" (default 0), leaving out defaults. Read, in
    // the order Value, MaxLength, MinValue, MaxValue: the text and the maximum length
    // go straight into the text box (no clamping, no cap). A stored value of the
    // wrong kind throws RuntimeFailure; what was read before it stays.
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // --- inner parts, for views and tools: typing (userKeyPress) and pasting
    // (userPaste) go to the text box.
    TextBox& textBox() { return txtNumericBox_; }
    const TextBox& textBox() const { return txtNumericBox_; }
    // The text box's font, for views.
    const std::string& fontName() const { return fontName_; }
    // True after the text changed and until the next assignment of Value completes.
    bool reportRangeErrors() const { return reportRangeErrors_; }

protected:
    // The text box fills the control.
    void geometryChanged() override;
    std::int32_t constrainHeight(std::int32_t requested) const override;

private:
    void KeyPress(int keyAscii);
    void TextChanged();
    void Announce(const char* text, std::int32_t bound);

    TextBox txtNumericBox_{"txtNumericBox"};
    std::string fontName_ = "Arial";
    MessageSink* sink_;
    std::int32_t savedValue_ = 0;
    bool keyAccepted_ = true;
    std::int16_t caretPosition_ = 0;
    std::int32_t minValue_ = 0;
    std::int32_t maxValue_ = 0;
    bool reportRangeErrors_ = false;
};

}  // namespace tabulon
