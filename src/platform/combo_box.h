// ComboBox: a drop-down with a list of items and a text. The text can be set to
// anything; ListIndex follows the first item equal to it (exact comparison), -1
// when none. Code changes raise nothing; a user pick raises Click.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/component.h"

namespace tabulon {

class ComboBox : public Component {
public:
    explicit ComboBox(std::string name);

    const std::vector<std::string>& items() const { return items_; }
    void clear();  // removes the items and empties the text
    void addItem(std::string item);

    const std::string& text() const { return text_; }
    void setText(std::string text);
    int listIndex() const { return listIndex_; }
    // -1 clears the selection and the text; otherwise selects the item (out of range
    // throws InvalidArgumentFailure).
    void setListIndex(int index);

    // The platform fixes a combo box's height: setHeight is ignored and height()
    // is always kHeight.
    static constexpr std::int32_t kHeight = 315;
    void setHeight(std::int32_t) override {}

    // --- user gestures
    // Chooses the first item equal to item; false (and nothing raised) when absent.
    bool userPick(const std::string& item);

    std::function<void()> onClick;

private:
    std::vector<std::string> items_;
    std::string text_;
    int listIndex_ = -1;
};

}  // namespace tabulon
