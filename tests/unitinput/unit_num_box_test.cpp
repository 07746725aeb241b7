// The number box with one fixed unit: what its number field takes beyond the editing
// journey (tests/journeys/unit_numbers.session), its codes, limits and formats.
#include "unitinput/unit_num_box.h"

#include <gtest/gtest.h>

#include <memory>

#include "unitinput/unit_errors.h"

namespace tabulon {
namespace {

constexpr int kFtToM = 19;
constexpr int kFToC = 38;

std::shared_ptr<UnitRegistrar> MetricRegistrar() {
    auto r = std::make_shared<UnitRegistrar>();
    r->setSystem(UnitRegistrar::kMetric);
    return r;
}

TEST(NumberField, TakesOnlyWhatCanStandInANumber) {
    struct Case {
        const char* rule;
        bool metric;
        const char* text;
        int selStart, selLength;
        double minimum, maximum;  // Fahrenheit; 0 and 0: no limits
        const char* typed;        // one key press per character
        const char* pasted;
        const char* expected;
    };
    const Case cases[] = {
        {"a point replacing the point", false, "1.5", 1, 1, 0, 500, ".", "", "1.5"},
        {"no limits allow a minus", false, "15", 0, 0, 0, 0, "-", "", "-15"},
        {"one minus", false, "-15", 0, 0, -50, 500, "-", "", "-15"},
        {"a Metric minimum below zero allows a minus", true, "5", 0, 0, 0, 100, "-", "", "-5"},
        {"no exponent before the digits", false, "15", 0, 0, 0, 500, "e", "", "15"},
        {"a sign right after the exponent", false, "1e", 2, 0, 50, 500, "-3", "", "1e-3"},
        {"no exponent before the point", false, "1.5", 1, 0, 0, 500, "e", "", "1.5"},
        {"no point in the exponent", false, "1e5", 3, 0, 0, 500, ".", "", "1e5"},
        {"no exponent beyond any number", false, "1e30", 4, 0, 0, 500, "89", "", "1e308"},
        {"a paste at the caret", false, "12", 1, 0, 0, 500, "", "0.5", "10.52"},
        {"a paste ends at its first line", false, "", 0, 0, 0, 500, "", "12\n34", "12"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.rule);
        UnitNumBox box("b");
        box.SetRegistrar(c.metric ? MetricRegistrar() : std::make_shared<UnitRegistrar>());
        box.SetUnitCode(kFToC);
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
}

// Limits count once applied, inclusive; 0 and 0 are none; Metric numbers are judged
// in English, through the offset of a temperature too.
TEST(UnitNumBox, RangeCheck) {
    UnitNumBox box("b");
    box.SetMaximum(100);
    box.SetNumberText("150");
    EXPECT_TRUE(box.Check());  // not applied yet
    struct Case {
        bool metric;
        double minimum, maximum;
        const char* text;
        bool inRange;
    };
    const Case cases[] = {
        {false, 0, 100, "100", true}, {false, 0, 100, "100.0001", false},
        {false, 0, 0, "-1e9", true},  {false, 0, 100, "50kg", true},
        {true, 32, 212, "0", true},   {true, 32, 212, "-0.1", false},
        {true, 32, 212, "100", true},
    };
    box.SetUnitCode(kFToC);
    for (const Case& c : cases) {
        box.SetRegistrar(c.metric ? MetricRegistrar() : std::make_shared<UnitRegistrar>());
        box.SetMinimum(c.minimum);
        box.SetMaximum(c.maximum);
        box.ApplyLimits();
        box.SetNumberText(c.text);
        EXPECT_EQ(box.Check(), c.inRange) << c.minimum << ".." << c.maximum << " " << c.text;
    }
}

// A value set by code is written in the edit format while focused, in the display
// format otherwise, and rewritten when a format changes; typed text stays as typed.
TEST(UnitNumBox, ValuesFollowTheFormatsAndTypedTextStays) {
    FocusManager focus;
    UnitNumBox box("b");
    box.attachFocus(&focus);
    box.SetValue(1234.5);
    box.SetDisplayFormat("#,##0.00");
    box.SetEditFormat("0.000");
    EXPECT_EQ(box.NumberText(), "1,234.50");
    box.setFocus();
    box.SetValue(1234.5);
    EXPECT_EQ(box.NumberText(), "1234.500");
    box.UserSetText("7.1");
    box.SetFormat("0.00");
    EXPECT_EQ(box.NumberText(), "7.1");
}

}  // namespace
}  // namespace tabulon
