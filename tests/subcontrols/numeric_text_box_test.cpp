#include "subcontrols/numeric_text_box.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "testing/recording_sink.h"

namespace tabulon {
namespace {

// Logs the order in which keys are read and written.
class OrderBag : public MemoryPropertyBag {
public:
    PropertyValue Read(const std::string& key, const PropertyValue& def) override {
        order.push_back("read " + key);
        return MemoryPropertyBag::Read(key, def);
    }
    void Write(const std::string& key, const PropertyValue& value,
               const PropertyValue& def) override {
        order.push_back("write " + key);
        MemoryPropertyBag::Write(key, value, def);
    }
    std::vector<std::string> order;
};

class NumericTextBox : public ::testing::Test {
protected:
    void SetUp() override {
        box.onChange = [this] { ++changes; };
    }
    void Type(const std::string& keys) {
        for (char k : keys)
            box.textBox().userKeyPress(k);
    }
    // Empties the box as the user would, then types.
    void Enter(const std::string& keys) {
        box.textBox().userPaste("");
        Type(keys);
    }
    std::vector<RecordedMessage> Infos(std::initializer_list<const char*> texts) {
        std::vector<RecordedMessage> out;
        for (const char* t : texts)
            out.push_back({MessageIcon::Information, t});
        return out;
    }

    RecordingSink sink;
    ctlNumericTextBox box{"txtLeft", &sink};
    int changes = 0;
};

TEST_F(NumericTextBox, ALetterIsTakenBackOutAndTheCaretStaysAtIt) {
    Enter("12");
    changes = 0;
    Type("x");
    EXPECT_EQ(box.textBox().text(), "12");
    EXPECT_EQ(box.textBox().selStart(), 2);
    EXPECT_EQ(changes, 2);  // the rewrite (nested), then the letter's own change
}

TEST_F(NumericTextBox, BackspacePutsTheCaretOneAfterWhereItWas) {
    box.textBox().userPaste("123");
    box.textBox().setSelStart(1);
    box.textBox().userKeyPress(8);
    EXPECT_EQ(box.textBox().text(), "23");
    EXPECT_EQ(box.textBox().selStart(), 2);
}

TEST_F(NumericTextBox, TypedValueOutOfRangeIsAnnouncedOnLeaving) {
    box.SetMinValue(100);
    box.SetMaxValue(500);
    Enter("50");
    box.userLeave();
    EXPECT_EQ(box.textBox().text(), "100");
    Enter("900");
    box.userLeave();
    EXPECT_EQ(box.textBox().text(), "500");
    EXPECT_EQ(sink.messages(),
              Infos({"Value cannot be less than 100", "Value cannot be greater than 500"}));
    box.SetMaxValue(400);
    box.userLeave();  // nothing typed since: clamped silently
    EXPECT_EQ(box.textBox().text(), "400");
    EXPECT_EQ(sink.messages().size(), 2u);
}

TEST_F(NumericTextBox, CodeAssignmentClampsSilently) {
    box.SetMinValue(100);
    changes = 0;
    box.SetValue(50);
    EXPECT_EQ(box.textBox().text(), "100");
    EXPECT_EQ(changes, 1);
    EXPECT_TRUE(sink.messages().empty());
    box.SetValue(100);  // same text: no change
    EXPECT_EQ(changes, 1);
}

TEST_F(NumericTextBox, BoundsOfZeroAreNoBounds) {
    box.SetValue(-2147483647 - 1);
    EXPECT_EQ(box.Value(), -2147483647 - 1);
    Enter("-123456");
    box.userLeave();
    EXPECT_EQ(box.textBox().text(), "-123456");
    EXPECT_TRUE(sink.messages().empty());
}

TEST_F(NumericTextBox, LeavingRoundsTheLeadingNumberHalfToEven) {
    const std::pair<const char*, const char*> cases[] = {
        {"2.5", "2"}, {"3.5", "4"}, {"", "0"}, {"-.5", "0"}, {"7.5e1px", "75"}, {"--3", "0"}};
    for (auto [typed, left] : cases) {
        box.textBox().userPaste(typed);
        box.userLeave();
        EXPECT_EQ(box.textBox().text(), left) << typed;
    }
}

TEST_F(NumericTextBox, MaxLengthIsCappedAtNineAndOneToThreeKeepTheText) {
    box.SetMaxLength(12);
    EXPECT_EQ(box.MaxLength(), 9);
    box.SetMaxLength(4);
    box.SetValue(77);
    EXPECT_EQ(box.textBox().text(), "77");
    box.SetMaxLength(3);
    box.SetValue(5);
    EXPECT_EQ(box.textBox().text(), "77");
    box.textBox().setSelStart(2);
    Type("k");  // with the text left alone a letter stays
    EXPECT_EQ(box.textBox().text(), "77k");
}

TEST_F(NumericTextBox, LosingTheFocusRunsTheLeaveRule) {
    FocusManager focus;
    Component other("cmdApply");
    box.textBox().attachFocus(&focus);
    other.attachFocus(&focus);
    box.SetMaxValue(10);
    box.textBox().setFocus();
    Enter("11");
    other.setFocus();
    EXPECT_EQ(box.textBox().text(), "10");
    EXPECT_EQ(sink.messages(), Infos({"Value cannot be greater than 10"}));
}

TEST_F(NumericTextBox, TheTextBoxFillsTheControlAtLeast330High) {
    box.move(100, 200, 2000, 100);
    EXPECT_EQ(box.height(), 330);
    EXPECT_EQ((std::vector{box.textBox().left(), box.textBox().top(), box.textBox().width(),
                           box.textBox().height()}),
              (std::vector{0, 0, 2000, 330}));
    box.setHeight(500);
    EXPECT_EQ(box.textBox().height(), 500);
}

// Defaults are not stored; Value and MaxLength are read straight into the text box.
TEST(NumericTextBoxProperties, KeysOrderDefaultsAndValuesReadStraightIntoTheTextBox) {
    ctlNumericTextBox box("txtLeft");
    OrderBag bag;
    box.WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());
    box.ReadProperties(bag);
    EXPECT_EQ(bag.order, (std::vector<std::string>{
                             "write MaxLength", "write Value", "write MinValue", "write MaxValue",
                             "read Value", "read MaxLength", "read MinValue", "read MaxValue"}));

    bag.values() = {{"Value", std::string("99999")},
                    {"MaxLength", std::int64_t{12}},
                    {"MinValue", std::int64_t{1}},
                    {"MaxValue", std::int64_t{100}}};
    box.ReadProperties(bag);
    EXPECT_EQ(box.textBox().text(), "99999");
    EXPECT_EQ(box.MaxLength(), 12);
    EXPECT_EQ(box.MinValue(), 1);
    EXPECT_EQ(box.MaxValue(), 100);

    MemoryPropertyBag out;
    box.WriteProperties(out);
    EXPECT_EQ(out.values(), bag.values());
}

}  // namespace
}  // namespace tabulon
