// ComboBox: a drop-down with a list of items and a text. The text can be set to
// anything; ListIndex follows the first item equal to it (exact comparison), -1
// when none. Code changes raise nothing; a user pick raises Click.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/component.h"

namespace tabulon {

class ComboBox : public Component {
public:
    explicit ComboBox(std::string name);

    const std::vector<std::string>& items() const { return items_; }
    void clear();  // removes the items and empties the text (ListIndex -1)
    // Appends an item; the text and ListIndex stay as they are.
    void addItem(std::string item);

    const std::string& text() const { return text_; }
    // Sets the text; ListIndex becomes the first item equal to it, or -1.
    void setText(std::string text);
    int listIndex() const { return listIndex_; }
    // -1 clears the selection and the text; otherwise selects the item (out of range
    // throws InvalidArgumentFailure).
    void setListIndex(int index);

    // The platform fixes a combo box's height: setHeight and move keep it at kHeight,
    // which the constructor sets.
    static constexpr std::int32_t kHeight = 315;

    // --- user gestures
    // Chooses the first item equal to item and raises Click (also when it was
    // already chosen); false (and nothing raised) when absent or while hidden or
    // disabled.
    bool userPick(const std::string& item);
    // Chooses the item at index (0-based) the same way; false when out of range.
    bool userPickIndex(int index);

    std::function<void()> onClick;

protected:
    std::int32_t constrainHeight(std::int32_t) const override { return kHeight; }

private:
    void select(int index, std::string text);

    std::vector<std::string> items_;
    std::string text_;
    int listIndex_ = -1;
};

}  // namespace tabulon
