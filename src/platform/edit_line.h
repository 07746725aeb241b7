// EditLine: one line of text with a caret and a selection, edited the way a
// single-line field edits it. Positions count characters (UTF-8 code points); the
// selection runs between the anchor and the caret, either way round, and is empty
// when they meet. Every position given is clamped to the text.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

class EditLine {
public:
    enum class Move { Left, Right, Home, End };

    const std::string& text() const { return text_; }
    int length() const { return length_; }
    int anchor() const { return anchor_; }
    int caret() const { return caret_; }
    int selStart() const { return anchor_ < caret_ ? anchor_ : caret_; }
    int selLength() const { return anchor_ < caret_ ? caret_ - anchor_ : anchor_ - caret_; }
    std::string selText() const;
    // The text before and after the selection.
    std::string beforeSelection() const;
    std::string afterSelection() const;

    // Replaces the whole text; the caret goes to its end with nothing selected.
    void setText(std::string text);
    void select(int anchor, int caret);
    void selectAll() { select(0, length_); }
    // Replaces the selection (or inserts at the caret) with insert; the caret ends
    // after it.
    void replaceSelection(std::string_view insert);
    // Deletes the selection, else the character before (after) the caret; false when
    // there was nothing to delete.
    bool deleteBackward();
    bool deleteForward();
    // Moves the caret one character or to either end. With extend the anchor stays
    // (the selection grows or shrinks); without, the selection is dropped, and Left or
    // Right on a selection puts the caret at its start or end.
    void move(Move move, bool extend);

    bool operator==(const EditLine&) const = default;

private:
    std::string text_;
    int length_ = 0;
    int anchor_ = 0;
    int caret_ = 0;
};

}  // namespace tabulon
