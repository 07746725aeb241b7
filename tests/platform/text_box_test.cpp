#include "platform/text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/failure.h"

namespace tabulon {
namespace {

class TextBoxTyping : public ::testing::Test {
protected:
    void SetUp() override {
        box.onChange = [this] { ++changes; };
    }
    void Type(const std::u32string& keys) {
        for (const char32_t key : keys)
            box.userKeyPress(static_cast<int>(key));
    }
    TextBox box{"txtTextBoxControl"};
    int changes = 0;
};

TEST_F(TextBoxTyping, KeysReplaceTheSelectionAndMoveTheCaret) {
    box.setText("abcd");
    changes = 0;
    box.setSelStart(1);
    box.setSelLength(2);
    EXPECT_EQ(box.selText(), "bc");
    Type(U"XY");
    EXPECT_EQ(box.text(), "aXYd");
    EXPECT_EQ(box.selStart(), 3);
    EXPECT_EQ(box.selLength(), 0);
    EXPECT_EQ(changes, 2);
}

TEST_F(TextBoxTyping, PositionsAndMaxLengthCountCodePoints) {
    box.setMaxLength(3);
    Type(U"é日x!");  // the fourth character does not fit
    EXPECT_EQ(box.text(), "é日x");
    EXPECT_EQ(changes, 3);
    box.setSelStart(1);
    box.setSelLength(1);
    EXPECT_EQ(box.selText(), "日");
    Type(U"本");  // replacing a selection keeps the length: allowed
    EXPECT_EQ(box.text(), "é本x");
    EXPECT_EQ(box.selStart(), 2);
}

TEST_F(TextBoxTyping, BackspaceDeletesTheSelectionOrTheCharacterBeforeTheCaret) {
    box.setText("日本語");
    box.setSelStart(2);
    Type(U"\b");
    EXPECT_EQ(box.text(), "日語");
    EXPECT_EQ(box.selStart(), 1);
    box.setSelStart(0);
    box.setSelLength(5);  // clamped to the text
    EXPECT_EQ(box.selLength(), 2);
    Type(U"\b");
    EXPECT_EQ(box.text(), "");
    changes = 0;
    Type(U"\b\t\r");  // nothing to delete; other control codes edit nothing
    EXPECT_EQ(changes, 0);
}

// KeyPress may change or swallow the key; Change sees the caret already placed.
TEST_F(TextBoxTyping, HandlersMayChangeKeysAndSeeTheCaretPlaced) {
    box.onKeyPress = [](int& key) {
        if (key == 'x') key = 0;
        if (key == 'a') key = 'A';
    };
    std::vector<int> carets;
    box.onChange = [&] { carets.push_back(box.selStart()); };
    Type(U"axb");
    EXPECT_EQ(box.text(), "Ab");
    EXPECT_EQ(carets, (std::vector<int>{1, 2}));
}

TEST_F(TextBoxTyping, CodeTextIsNotCutAndRaisesChangeOnlyWhenDifferent) {
    box.setMaxLength(2);
    box.setText("abcd");
    box.setText("abcd");
    EXPECT_EQ(box.text(), "abcd");
    EXPECT_EQ(changes, 1);
    EXPECT_THROW(box.setMaxLength(-1), InvalidArgumentFailure);
}

TEST_F(TextBoxTyping, PasteReplacesEverythingOnceCutToMaxLength) {
    box.setMaxLength(4);
    box.userPaste("1499日x");
    EXPECT_EQ(box.text(), "1499");
    EXPECT_EQ(box.selStart(), 4);
    EXPECT_EQ(changes, 1);
}

}  // namespace
}  // namespace tabulon
