// The property pages' number box: its kept behaviours and decisions. The pages' own
// refusals and the session's page commands are tested in tests/propertypages.
#include "subcontrols/numeric_text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/recording_sink.h"

namespace tabulon {
namespace {

class NumericTextBox : public ::testing::Test {
protected:
    void SetUp() override {
        box.onChange = [this] { ++changes; };
    }
    void Type(const std::string& keys) {
        for (char k : keys)
            box.textBox().userKeyPress(k);
    }

    RecordingSink sink;
    ctlNumericTextBox box{"txtLeft", &sink};
    int changes = 0;
};

// A letter is taken back out (two changes: the nested rewrite and the letter's own);
// after any other key the caret goes one past where the selection started.
TEST_F(NumericTextBox, TypingKeepsTheNumberAndPlacesTheCaret) {
    box.textBox().userPaste("");
    Type("123");
    changes = 0;
    Type("x");
    EXPECT_EQ(box.textBox().text(), "123");
    EXPECT_EQ(box.textBox().selStart(), 3);
    EXPECT_EQ(changes, 2);
    box.textBox().setSelStart(1);
    box.textBox().userKeyPress(8);
    EXPECT_EQ(box.textBox().text(), "23");
    EXPECT_EQ(box.textBox().selStart(), 2);
}

// Typed values are clamped on leaving, by the gesture or by a focus loss, with a
// message; values set by code silently; bounds of 0 are none.
TEST_F(NumericTextBox, OutOfRangeValuesAreClamped) {
    FocusManager focus;
    Component other("cmdApply");
    box.textBox().attachFocus(&focus);
    other.attachFocus(&focus);
    box.SetMinValue(100);
    box.SetMaxValue(500);
    box.textBox().setFocus();
    box.textBox().userPaste("50");
    other.setFocus();
    EXPECT_EQ(box.textBox().text(), "100");
    box.textBox().userPaste("900");
    box.userLeave();
    EXPECT_EQ(box.textBox().text(), "500");
    box.SetValue(50);
    EXPECT_EQ(box.textBox().text(), "100");
    EXPECT_EQ(sink.messages(),
              (std::vector<RecordedMessage>{
                  {MessageIcon::Information, "Value cannot be less than 100"},
                  {MessageIcon::Information, "Value cannot be greater than 500"}}));

    box.SetMinValue(0);
    box.SetMaxValue(0);
    box.textBox().userPaste("-123456");
    box.userLeave();
    EXPECT_EQ(box.textBox().text(), "-123456");
    EXPECT_EQ(sink.messages().size(), 2u);
}

TEST_F(NumericTextBox, LeavingRoundsTheLeadingNumberHalfToEven) {
    const std::pair<const char*, const char*> cases[] = {
        {"2.5", "2"}, {"3.5", "4"}, {"", "0"}, {"7.5e1px", "75"}};
    for (auto [typed, left] : cases) {
        box.textBox().userPaste(typed);
        box.userLeave();
        EXPECT_EQ(box.textBox().text(), left) << typed;
    }
}

// Defaults are not stored; what is read is written back the same.
TEST(NumericTextBoxProperties, ReadValuesAreWrittenBackTheSame) {
    ctlNumericTextBox box("txtLeft");
    MemoryPropertyBag bag;
    box.WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());
    bag.values() = {{"Value", std::string("99999")},
                    {"MaxLength", std::int64_t{12}},
                    {"MinValue", std::int64_t{1}},
                    {"MaxValue", std::int64_t{100}}};
    box.ReadProperties(bag);
    EXPECT_EQ(box.textBox().text(), "99999");
    MemoryPropertyBag out;
    box.WriteProperties(out);
    EXPECT_EQ(out.values(), bag.values());
}

}  // namespace
}  // namespace tabulon
