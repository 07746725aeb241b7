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

// Counts the box's change notifications.
struct Notifications {
    explicit Notifications(Observable& model) {
        model.Subscribe([this](const ChangeInfo&) { ++count; });
    }
    int count = 0;
};

TEST(UnitNumBox, HoldsOnlyCodesItsRegistrarKnows) {
    UnitNumBox box("unitNumControl");
    box.SetUnitCode(kFtToM);  // built-ins work without a registrar
    EXPECT_THROW(box.SetUnitCode(64), UnitRejectedFailure);
    EXPECT_EQ(box.UnitCode(), kFtToM);

    auto registrar = std::make_shared<UnitRegistrar>();
    const int custom = registrar->RegisterCustomUnit(2, "bbl", "hL", "unimportantString");
    box.SetRegistrar(registrar);
    box.SetUnitCode(custom);
    EXPECT_EQ(box.UnitLabel(), "bbl");
    EXPECT_THROW(box.SetUnitCode(custom + 1), UnitRejectedFailure);
    EXPECT_THROW(box.SetUnitCode(-1), UnitRejectedFailure);

    box.SetRegistrar(std::make_shared<UnitRegistrar>());  // does not know the custom code
    EXPECT_EQ(box.UnitCode(), 0);
    box.SetUnitCode(kFtToM);
    box.SetRegistrar(MetricRegistrar());
    EXPECT_EQ(box.UnitCode(), kFtToM);
    EXPECT_EQ(box.UnitLabel(), "m");
}

TEST(UnitNumBox, LimitsTakeEffectOnlyWhenAppliedAndInOrder) {
    UnitNumBox box("b");
    box.SetMinimum(0);
    box.SetMaximum(100);
    box.SetNumberText("150");
    EXPECT_TRUE(box.Check());  // not applied yet
    box.ApplyLimits();
    EXPECT_FALSE(box.Check());

    box.SetMinimum(10);
    box.SetMaximum(5);
    EXPECT_THROW(box.ApplyLimits(), UnitRejectedFailure);
    EXPECT_EQ(box.AppliedMinimum(), 0);
    EXPECT_EQ(box.AppliedMaximum(), 100);
}

TEST(UnitNumBox, RangeCheckIsInclusiveAndZeroZeroMeansNoLimits) {
    UnitNumBox box("b");
    struct Case {
        double minimum, maximum;
        const char* text;
        bool inRange;
    };
    const Case cases[] = {
        {0, 100, "0", true},     {0, 100, "100", true}, {0, 100, "100.0001", false},
        {0, 100, "-0.5", false}, {-10, 0, "-5", true},  {0, 0, "-1e9", true},
        {0, 0, "abc", true},     {5, 5, "5", true},     {0, 100, "50kg", true},
    };
    for (const Case& c : cases) {
        box.SetMinimum(c.minimum);
        box.SetMaximum(c.maximum);
        box.ApplyLimits();
        box.SetNumberText(c.text);
        EXPECT_EQ(box.Check(), c.inRange) << c.minimum << ".." << c.maximum << " " << c.text;
    }
}

TEST(UnitNumBox, MetricNumbersAreCheckedAgainstEnglishLimits) {
    UnitNumBox box("b");
    box.SetRegistrar(MetricRegistrar());
    box.SetUnitCode(kFtToM);
    box.SetMinimum(0);
    box.SetMaximum(10);  // feet
    box.ApplyLimits();
    box.SetNumberText("3");  // 9.84 ft
    EXPECT_TRUE(box.Check());
    box.SetNumberText("3.1");  // 10.17 ft
    EXPECT_FALSE(box.Check());

    box.SetUnitCode(kFToC);
    box.SetMinimum(32);
    box.SetMaximum(212);
    box.ApplyLimits();
    box.SetNumberText("0");
    EXPECT_TRUE(box.Check());
    box.SetNumberText("-0.1");
    EXPECT_FALSE(box.Check());
    box.SetNumberText("100");
    EXPECT_TRUE(box.Check());
}

TEST(UnitNumBox, ValuesAreWrittenWithTheFormatAndRewrittenWhenItChanges) {
    UnitNumBox box("b");
    box.SetValue(12.345);
    EXPECT_EQ(box.NumberText(), "12.345");  // no format: written as text
    box.SetFormat("0.00");
    EXPECT_EQ(box.NumberText(), "12.35");
    EXPECT_EQ(box.DisplayFormat(), "0.00");
    EXPECT_EQ(box.EditFormat(), "0.00");
    box.SetFormat("0.0000");
    EXPECT_EQ(box.NumberText(), "12.3450");  // from the value, not from "12.35"
    EXPECT_DOUBLE_EQ(box.Number(), 12.345);

    box.UserSetText("7.1");
    box.SetFormat("0.00");
    EXPECT_EQ(box.NumberText(), "7.1");  // typed text stays as typed
    box.SetNumber(0);
    EXPECT_EQ(box.NumberText(), "0.00");
}

TEST(UnitNumBox, FocusedBoxWritesValuesWithTheEditFormat) {
    FocusManager focus;
    UnitNumBox box("b");
    box.attachFocus(&focus);
    box.SetDisplayFormat("#,##0.0");
    box.SetEditFormat("0.000");
    box.SetValue(1234.5);
    EXPECT_EQ(box.NumberText(), "1,234.5");
    box.setFocus();
    box.SetValue(1234.5);
    EXPECT_EQ(box.NumberText(), "1234.500");
}

TEST(UnitNumBox, TypingAppendsAndBackspacesAndNotifiesEachChange) {
    UnitNumBox box("b");
    Notifications seen(box);
    for (const int key : {'1', '2', '.', '5'})
        box.UserKeyPress(key);
    EXPECT_EQ(box.NumberText(), "12.5");
    box.UserKeyPress(8);
    EXPECT_EQ(box.NumberText(), "12.");
    box.UserKeyPress(13);  // ignored: no change, no notification
    EXPECT_EQ(seen.count, 5);
    box.UserSetText("12.");
    EXPECT_EQ(seen.count, 5);  // same text
    box.UserSetText("");
    box.UserKeyPress(8);  // nothing to remove
    EXPECT_EQ(box.NumberText(), "");
    EXPECT_EQ(seen.count, 6);
}

}  // namespace
}  // namespace tabulon
