#include "platform/text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tabulon {
namespace {

class TextBoxTyping : public ::testing::Test {
protected:
    void SetUp() override {
        box.onChange = [this] { carets.push_back(box.selStart()); };
    }
    void Type(const std::u32string& keys) {
        for (const char32_t key : keys)
            box.userKeyPress(static_cast<int>(key));
    }
    TextBox box{"txtTextBoxControl"};
    std::vector<int> carets;  // as each Change sees it
};

TEST_F(TextBoxTyping, KeysReplaceTheSelectionAndMaxLengthCountsCodePoints) {
    box.setMaxLength(3);
    Type(U"é日x!");  // the fourth character does not fit
    EXPECT_EQ(box.text(), "é日x");
    box.setSelStart(1);
    box.setSelLength(1);
    Type(U"本");  // replacing a selection keeps the length: allowed
    EXPECT_EQ(box.text(), "é本x");
    EXPECT_EQ(carets, (std::vector<int>{1, 2, 3, 2}));
    box.userPaste("1499日x");
    EXPECT_EQ(box.text(), "149");
}

TEST_F(TextBoxTyping, BackspaceDeletesTheSelectionOrTheCharacterBeforeTheCaret) {
    box.setText("日本語");
    box.setSelStart(2);
    Type(U"\b");
    EXPECT_EQ(box.text(), "日語");
    EXPECT_EQ(box.selStart(), 1);
    box.setSelStart(0);
    box.setSelLength(5);  // clamped to the text
    Type(U"\b");
    EXPECT_EQ(box.text(), "");
    carets.clear();
    Type(U"\b\t\r");  // nothing to delete; other control codes edit nothing
    EXPECT_TRUE(carets.empty());
}

}  // namespace
}  // namespace tabulon
