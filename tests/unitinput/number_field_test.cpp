// The number field of the unit boxes: a line edit with a caret and a selection that
// takes only what can stand in a number.
#include <gtest/gtest.h>

#include <cctype>
#include <memory>
#include <string>

#include "platform/key_codes.h"
#include "unitinput/unit_num_box.h"

namespace tabulon {
namespace {

constexpr int kFtToM = 19;
constexpr int kFToC = 38;

struct FieldCase {
    const char* rule;
    const char* text;
    int selStart, selLength;
    double minimum, maximum;  // feet; 0 and 0: no limits
    const char* typed;        // one key press per character
    const char* pasted;
    const char* expected;
};

const FieldCase kCases[] = {
    {"typing replaces the selection", "75.18", 0, 5, 0, 500, "99", "", "99"},
    {"a digit goes in at the caret", "99", 0, 0, 0, 500, "1", "", "199"},
    {"one decimal point", "1.5", 3, 0, 0, 500, ".2", "", "1.52"},
    {"a point replacing the point", "1.5", 1, 1, 0, 500, ".", "", "1.5"},
    {"minus only in front", "15", 2, 0, -50, 500, "-", "", "15"},
    {"minus in front where the minimum is below zero", "15", 0, 0, -50, 500, "-", "", "-15"},
    {"no minus where the minimum is not", "15", 0, 0, 50, 500, "-", "", "15"},
    {"no limits allow a minus", "15", 0, 0, 0, 0, "-", "", "-15"},
    {"one minus", "-15", 0, 0, -50, 500, "-", "", "-15"},
    {"an exponent after the digits", "15", 2, 0, 0, 500, "e3", "", "15e3"},
    {"no exponent before the digits", "15", 0, 0, 0, 500, "e", "", "15"},
    {"a sign right after the exponent", "1e", 2, 0, 50, 500, "-3", "", "1e-3"},
    {"no point in the exponent", "1e5", 3, 0, 0, 500, ".", "", "1e5"},
    {"no exponent beyond any number", "1e30", 4, 0, 0, 500, "89", "", "1e308"},
    {"no letters, blanks or grouping", "12", 2, 0, 0, 500, "a ,+", "", "12"},
    {"Backspace deletes the selection", "400", 1, 2, 0, 500, "\b", "", "4"},
    {"a paste keeps what fits", "400", 0, 3, 0, 5000, "", "1,234.5 ton", "1234.5"},
    {"a paste at the caret", "12", 1, 0, 0, 500, "", "0.5", "10.52"},
    {"a paste of nothing numeric changes nothing", "400", 0, 3, 0, 500, "", "abc", "400"},
    {"a paste ends at its first line", "", 0, 0, 0, 500, "", "12\n34", "12"},
};

class NumberField : public ::testing::TestWithParam<FieldCase> {};

TEST_P(NumberField, TakesWhatCanStandInANumber) {
    const FieldCase& c = GetParam();
    UnitNumBox box("b");
    box.SetUnitCode(kFtToM);
    box.SetMinimum(c.minimum);
    box.SetMaximum(c.maximum);
    box.ApplyLimits();
    box.SetNumberText(c.text);
    box.SetSelection(c.selStart, c.selLength);
    for (const char* key = c.typed; *key != '\0'; ++key)
        box.UserKeyPress(*key);
    if (*c.pasted != '\0') box.UserPaste(c.pasted);
    EXPECT_EQ(box.NumberText(), c.expected);
}

INSTANTIATE_TEST_SUITE_P(Rules, NumberField, ::testing::ValuesIn(kCases),
                         [](const ::testing::TestParamInfo<FieldCase>& param) {
                             std::string name;
                             for (const char* p = param.param.rule; *p != '\0'; ++p) {
                                 if (std::isalnum(static_cast<unsigned char>(*p))) name += *p;
                             }
                             return name;
                         });

TEST(NumberField, CaretKeysMoveAndSelectDeleteRemovesAndCtrlASelectsAll) {
    UnitNumBox box("b");
    box.SetNumberText("12345");
    EXPECT_EQ(box.Caret(), 5);  // text set by code: the caret at its end
    box.UserKeyDown(keys::kHome, 0);
    box.UserKeyDown(keys::kRight, 0);
    box.UserKeyDown(keys::kRight, kShiftBit);
    box.UserKeyDown(keys::kRight, kShiftBit);
    EXPECT_EQ(box.SelText(), "23");
    box.UserKeyDown(keys::kLeft, 0);  // on a selection: to its start
    EXPECT_EQ(box.Caret(), 1);
    EXPECT_EQ(box.SelLength(), 0);
    box.UserKeyDown(keys::kEnd, kShiftBit);
    box.UserKeyDown(keys::kDelete, 0);
    EXPECT_EQ(box.NumberText(), "1");
    box.UserKeyDown(keys::kRight, kCtrlBit | kShiftBit);  // other modifiers do nothing
    box.UserKeyDown('A', kCtrlBit);
    EXPECT_EQ(box.SelText(), "1");
    box.UserKeyPress(keys::kBackspace);
    EXPECT_EQ(box.NumberText(), "");
}

TEST(NumberField, AMetricMinimumBelowZeroAllowsAMinusSign) {
    UnitNumBox box("b");
    auto registrar = std::make_shared<UnitRegistrar>();
    registrar->setSystem(UnitRegistrar::kMetric);
    box.SetRegistrar(registrar);
    box.SetUnitCode(kFToC);
    box.SetMinimum(0);  // 0 F is about -17.8 C
    box.SetMaximum(100);
    box.ApplyLimits();
    box.SetNumberText("5");
    box.SetSelection(0, 0);
    box.UserKeyPress('-');
    EXPECT_EQ(box.NumberText(), "-5");
}

}  // namespace
}  // namespace tabulon
