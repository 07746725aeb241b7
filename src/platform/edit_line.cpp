#include "platform/edit_line.h"

#include <algorithm>

#include "support/utf8.h"

namespace tabulon {

namespace {

std::string Characters(const std::string& text, int first, int last) {
    const std::size_t begin = Utf8Offset(text, static_cast<std::size_t>(first));
    const std::size_t end = Utf8Offset(text, static_cast<std::size_t>(last));
    return text.substr(begin, end - begin);
}

}  // namespace

std::string EditLine::selText() const {
    return Characters(text_, selStart(), selStart() + selLength());
}

std::string EditLine::beforeSelection() const {
    return Characters(text_, 0, selStart());
}

std::string EditLine::afterSelection() const {
    return Characters(text_, selStart() + selLength(), length_);
}

void EditLine::setText(std::string text) {
    text_ = std::move(text);
    length_ = static_cast<int>(CountUtf8(text_));
    anchor_ = caret_ = length_;
}

void EditLine::select(int anchor, int caret) {
    anchor_ = std::clamp(anchor, 0, length_);
    caret_ = std::clamp(caret, 0, length_);
}

void EditLine::replaceSelection(std::string_view insert) {
    const int start = selStart();
    text_ = ReplaceUtf8Range(text_, static_cast<std::size_t>(start),
                             static_cast<std::size_t>(selLength()), insert);
    length_ = static_cast<int>(CountUtf8(text_));
    anchor_ = caret_ = start + static_cast<int>(CountUtf8(insert));
}

bool EditLine::deleteBackward() {
    if (selLength() == 0) {
        if (caret_ == 0) return false;
        anchor_ = caret_ - 1;
    }
    replaceSelection({});
    return true;
}

bool EditLine::deleteForward() {
    if (selLength() == 0) {
        if (caret_ == length_) return false;
        anchor_ = caret_ + 1;
    }
    replaceSelection({});
    return true;
}

void EditLine::move(Move move, bool extend) {
    int caret = caret_;
    switch (move) {
        case Move::Left:
            caret = !extend && selLength() > 0 ? selStart() : caret_ - 1;
            break;
        case Move::Right:
            caret = !extend && selLength() > 0 ? selStart() + selLength() : caret_ + 1;
            break;
        case Move::Home:
            caret = 0;
            break;
        case Move::End:
            caret = length_;
            break;
    }
    select(extend ? anchor_ : caret, caret);
}

}  // namespace tabulon
