#include "subcontrols/numeric_text_box.h"

#include <utility>

#include "subcontrols/int16.h"
#include "support/numeric.h"

namespace tabulon {

namespace {
constexpr const char* kValueKey = "Value";
constexpr const char* kMaxLengthKey = "MaxLength";
constexpr const char* kMinValueKey = "MinValue";
constexpr const char* kMaxValueKey = "MaxValue";
constexpr std::int32_t kDefaultMaxLength = 9;

bool IsLatinLetter(int key) {
    return (key >= 'A' && key <= 'Z') || (key >= 'a' && key <= 'z');
}
}  // namespace

ctlNumericTextBox::ctlNumericTextBox(std::string name, MessageSink* sink)
    : Component(std::move(name)), sink_(sink) {
    txtNumericBox_.onKeyPress = [this](int& keyAscii) { KeyPress(keyAscii); };
    txtNumericBox_.onChange = [this] { TextChanged(); };
    txtNumericBox_.onLostFocus = [this] { userLeave(); };
    SetValue(0);
    SetMaxLength(kDefaultMaxLength);
    keyAccepted_ = true;
    reportRangeErrors_ = false;
    setHeight(kMinHeight);
}

std::int32_t ctlNumericTextBox::Value() const {
    return ReadInt32(txtNumericBox_.text());
}

void ctlNumericTextBox::SetValue(std::int32_t value) {
    if (value < minValue_ && minValue_ != 0) {
        if (reportRangeErrors_) Announce("Value cannot be less than ", minValue_);
        value = minValue_;
    }
    if (value > maxValue_ && maxValue_ != 0) {
        if (reportRangeErrors_) Announce("Value cannot be greater than ", maxValue_);
        value = maxValue_;
    }
    const std::int32_t length = txtNumericBox_.maxLength();
    if (length <= 0 || length >= 4) txtNumericBox_.setText(IntegerToText(value));
    reportRangeErrors_ = false;
}

void ctlNumericTextBox::SetMaxLength(std::int32_t length) {
    txtNumericBox_.setMaxLength(length > kMaxLengthCap ? kMaxLengthCap : length);
}

void ctlNumericTextBox::userLeave() {
    SetValue(Value());
}

void ctlNumericTextBox::KeyPress(int keyAscii) {
    keyAccepted_ = true;
    if (!IsLatinLetter(keyAscii)) {
        caretPosition_ = widgets::Narrow16(txtNumericBox_.selStart() + 1LL);
    } else {
        savedValue_ = Value();
        keyAccepted_ = false;
        caretPosition_ = widgets::Narrow16(txtNumericBox_.selStart());
    }
}

void ctlNumericTextBox::TextChanged() {
    reportRangeErrors_ = true;
    // The rewrite raises a nested change, which finds the text already clean.
    if (!keyAccepted_) SetValue(savedValue_);
    txtNumericBox_.setSelStart(caretPosition_ >= 0 ? caretPosition_ : 0);
    if (onChange) onChange();
}

void ctlNumericTextBox::Announce(const char* text, std::int32_t bound) {
    if (sink_ != nullptr) sink_->Information(text + IntegerToText(bound));
}

void ctlNumericTextBox::ReadProperties(PropertyBag& bag) {
    txtNumericBox_.setText(bag.ReadString(kValueKey, "0"));
    txtNumericBox_.setMaxLength(bag.ReadInt32(kMaxLengthKey, kDefaultMaxLength));
    minValue_ = bag.ReadInt32(kMinValueKey, 0);
    maxValue_ = bag.ReadInt32(kMaxValueKey, 0);
}

void ctlNumericTextBox::WriteProperties(PropertyBag& bag) const {
    bag.Write(kMaxLengthKey, std::int64_t{txtNumericBox_.maxLength()},
              std::int64_t{kDefaultMaxLength});
    bag.Write(kValueKey, txtNumericBox_.text(), std::string("0"));
    bag.Write(kMinValueKey, std::int64_t{minValue_}, std::int64_t{0});
    bag.Write(kMaxValueKey, std::int64_t{maxValue_}, std::int64_t{0});
}

void ctlNumericTextBox::geometryChanged() {
    txtNumericBox_.move(0, 0, width(), height());
}

std::int32_t ctlNumericTextBox::constrainHeight(std::int32_t requested) const {
    return requested < kMinHeight ? kMinHeight : requested;
}

}  // namespace tabulon
