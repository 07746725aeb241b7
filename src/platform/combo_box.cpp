#include "platform/combo_box.h"

#include <algorithm>

#include "support/failure.h"

namespace tabulon {

ComboBox::ComboBox(std::string name) : Component(std::move(name)) {
    setHeight(kHeight);
}

void ComboBox::select(int index, std::string text) {
    if (index == listIndex_ && text == text_) return;
    const bool indexChanged = index != listIndex_;
    listIndex_ = index;
    text_ = std::move(text);
    Notify(Change::Content);
    if (indexChanged) Notify(Change::Current);
}

void ComboBox::clear() {
    if (items_.empty() && text_.empty() && listIndex_ == -1) return;
    items_.clear();
    listIndex_ = -1;
    text_.clear();
    Notify(Change::Everything);
}

void ComboBox::addItem(std::string item) {
    items_.push_back(std::move(item));
    Notify(Change::Content);
}

void ComboBox::setText(std::string text) {
    const auto it = std::find(items_.begin(), items_.end(), text);
    const int index = it == items_.end() ? -1 : static_cast<int>(it - items_.begin());
    select(index, std::move(text));
}

void ComboBox::setListIndex(int index) {
    if (index < -1 || index >= static_cast<int>(items_.size())) {
        throw InvalidArgumentFailure("Invalid property value");
    }
    select(index, index == -1 ? std::string() : items_[static_cast<std::size_t>(index)]);
}

bool ComboBox::userPick(const std::string& item) {
    const auto it = std::find(items_.begin(), items_.end(), item);
    if (it == items_.end()) return false;
    return userPickIndex(static_cast<int>(it - items_.begin()));
}

bool ComboBox::userPickIndex(int index) {
    if (!acceptsInput() || index < 0 || index >= static_cast<int>(items_.size())) return false;
    select(index, items_[static_cast<std::size_t>(index)]);
    Raise(onClick);
    return true;
}

}  // namespace tabulon
