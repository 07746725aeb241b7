#include "unitinput/unit_drop_box.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "unitinput/unit_errors.h"

namespace tabulon {
namespace {

constexpr int kKbtuToMj = 4;
constexpr int kKwhToMj = 5;
constexpr int kInchToMm = 18;
constexpr int kFtToM = 19;
constexpr int kTonsToKw = 24;
constexpr int kMbhToKw = 28;

class UnitDropBoxTest : public ::testing::Test {
protected:
    UnitDropBoxTest() : registrar(std::make_shared<UnitRegistrar>()), box("unitDropControl") {
        box.SetRegistrar(registrar);
    }
    void UseMetric() { registrar->setSystem(UnitRegistrar::kMetric); }

    std::shared_ptr<UnitRegistrar> registrar;
    UnitDropBox box;
};

TEST_F(UnitDropBoxTest, NumberPartIsNeverNarrowerThanTwoHundredTwips) {
    struct Case {
        int requested, number;
    };
    for (const Case c : {Case{100, 200}, Case{-5, 200}, Case{200, 200}, Case{750, 750}}) {
        box.SetNumberWidth(c.requested);
        EXPECT_EQ(box.NumberWidth(), c.number) << c.requested;
    }
    // A 300-twip cell: half asked for, the rest goes to the unit part.
    box.SetNumberWidth(150);
    box.SetUnitWidth(300 - box.NumberWidth());
    EXPECT_EQ(box.UnitWidth(), 100);
    box.SetUnitWidth(-20);
    EXPECT_EQ(box.UnitWidth(), 0);
}

TEST_F(UnitDropBoxTest, RefusesUnknownZeroAndRepeatedCodes) {
    box.AddUnit(kFtToM, "0.00");
    for (const int code : {0, 64, -1, kFtToM}) {
        EXPECT_THROW(box.AddUnit(code), UnitRejectedFailure) << code;
    }
    ASSERT_EQ(box.Units().size(), 1u);
    EXPECT_EQ(box.FormatOf(kFtToM), "0.00");
}

TEST_F(UnitDropBoxTest, EmptyListIsNotCompleteAndClearingEmptiesTheSelection) {
    EXPECT_THROW(box.ListComplete(), UnitRejectedFailure);
    box.AddUnit(kFtToM);
    EXPECT_NO_THROW(box.ListComplete());
    box.SelectUnitByText("ft");
    box.ClearUnits();
    EXPECT_EQ(box.SelectedUnitIndex(), -1);
    EXPECT_EQ(box.SelectedUnitText(), "");
    EXPECT_THROW(box.ListComplete(), UnitRejectedFailure);
}

TEST_F(UnitDropBoxTest, SelectsByLabelAndReportsTheConversionCode) {
    box.AddUnit(kFtToM, 0, 100, "0.0");
    box.AddUnit(kInchToMm, 0, 1200, "0");
    EXPECT_EQ(box.SelectedUnitIndex(), -1);
    EXPECT_EQ(box.SelectedUnitText(), "");
    box.SelectUnitByText("in");
    EXPECT_EQ(box.SelectedUnitIndex(), kInchToMm);
    EXPECT_EQ(box.SelectedUnitText(), "in");
    EXPECT_EQ(box.FormatOf(box.SelectedUnitIndex()), "0");
    EXPECT_EQ(box.FormatOf(kKwhToMj), "");

    EXPECT_THROW(box.SelectUnitByText("yd"), UnitRejectedFailure);
    EXPECT_THROW(box.SelectUnitByText("IN"), UnitRejectedFailure);  // exact match only
    EXPECT_THROW(box.SelectUnitByText(" in"), UnitRejectedFailure);
    EXPECT_EQ(box.SelectedUnitIndex(), kInchToMm);  // kept
}

TEST_F(UnitDropBoxTest, MetricSystemShowsMetricLabelsAndStillReadsEnglishOnes) {
    box.AddUnit(kFtToM);
    box.AddUnit(kInchToMm);
    UseMetric();
    EXPECT_EQ(box.UnitLabels(), (std::vector<std::string>{"m", "mm"}));
    box.SelectUnitByText("mm");
    EXPECT_EQ(box.SelectedUnitIndex(), kInchToMm);
    box.SelectUnitByText("ft");  // a cell written with the English label
    EXPECT_EQ(box.SelectedUnitIndex(), kFtToM);
    EXPECT_EQ(box.SelectedUnitText(), "m");
}

TEST_F(UnitDropBoxTest, SharedLabelResolvesToTheFirstUnitListed) {
    box.AddUnit(kKwhToMj);
    box.AddUnit(kKbtuToMj);
    UseMetric();
    box.SelectUnitByText("MJ");
    EXPECT_EQ(box.SelectedUnitIndex(), kKwhToMj);
    box.SelectUnitByText("kBtu");  // the English labels still tell them apart
    EXPECT_EQ(box.SelectedUnitIndex(), kKbtuToMj);
}

TEST_F(UnitDropBoxTest, RangeCheckUsesTheSelectedUnitsEnglishLimits) {
    box.AddUnit(kFtToM, 1, 10, "0.0");
    box.AddUnit(kInchToMm, 0, 0, "0");  // no limits
    box.AddUnit(kKwhToMj, 5, 1, "");    // minimum above maximum
    box.SetNumberText("-1000");
    EXPECT_TRUE(box.Check());  // nothing selected

    struct Case {
        bool metric;
        const char* unit;
        const char* number;
        bool inRange;
    };
    const Case cases[] = {
        {false, "ft", "10", true},  {false, "ft", "0.5", false}, {false, "in", "-1000", true},
        {true, "m", "3", true},     {true, "m", "3.1", false},   {true, "m", "0.3", false},
        {false, "kWh", "3", false}, {false, "kWh", "0", false},
    };
    for (const Case& c : cases) {
        registrar->setSystem(c.metric ? UnitRegistrar::kMetric : UnitRegistrar::kEnglish);
        box.SelectUnitByText(c.unit);
        box.SetNumberText(c.number);
        EXPECT_EQ(box.Check(), c.inRange) << c.unit << " " << c.number;
    }
}

TEST_F(UnitDropBoxTest, CustomUnitsUseTheRegistrarsLabels) {
    const int code = registrar->RegisterCustomUnit(2, "bbl", "hL", "unimportantString");
    box.AddUnit(code, 0, 10, "0.0");
    box.SelectUnitByText("bbl");
    EXPECT_EQ(box.SelectedUnitIndex(), 64);
    UseMetric();
    EXPECT_EQ(box.SelectedUnitText(), "hL");
    box.SetNumberText("20");  // 10 bbl
    EXPECT_TRUE(box.Check());
    box.SetNumberText("21");
    EXPECT_FALSE(box.Check());
}

TEST_F(UnitDropBoxTest, NewRegistrarDropsTheUnitsItDoesNotKnow) {
    const int code = registrar->RegisterCustomUnit(2, "bbl", "hL", "");
    box.AddUnit(kFtToM);
    box.AddUnit(code);
    box.SelectUnitByText("bbl");
    box.SetRegistrar(std::make_shared<UnitRegistrar>());
    ASSERT_EQ(box.Units().size(), 1u);
    EXPECT_EQ(box.Units()[0].code, kFtToM);
    EXPECT_EQ(box.SelectedUnitIndex(), -1);
}

TEST_F(UnitDropBoxTest, UserPicksOnlyUnitsOnTheList) {
    box.AddUnit(kFtToM);
    int notifications = 0;
    box.Subscribe([&](const ChangeInfo&) { ++notifications; });
    EXPECT_FALSE(box.UserPickUnit("yd"));
    EXPECT_EQ(notifications, 0);
    EXPECT_TRUE(box.UserPickUnit("ft"));
    EXPECT_EQ(notifications, 1);
}

// The user's switch of unit keeps the quantity when both units reach the same Metric
// unit, and relabels the number otherwise.
TEST_F(UnitDropBoxTest, SwitchingUnitsKeepsTheQuantityWhenBothShareAMetricUnit) {
    const int barrel = registrar->RegisterCustomUnit(2, "bbl", "hL", "");
    const int halfGallon = registrar->RegisterCustomUnit(0.5, "hgal", "hL", "");
    struct Case {
        int from;
        int to;
        std::string toFormat;
        std::string typed;
        std::string shown;
    };
    for (const Case& c : std::vector<Case>{
             {kTonsToKw, kMbhToKw, "0", "72.5", "870"},     // built in: kW both
             {kKbtuToMj, kKwhToMj, "0.000", "1", "0.293"},  // MJ both
             {barrel, halfGallon, "0.0", "3", "12.0"},      // custom: hL both
             {kFtToM, kInchToMm, "0.0", "12", "12"},        // m and mm: relabelled
             {kTonsToKw, kMbhToKw, "0", "", ""},            // no number to convert
             {kTonsToKw, kMbhToKw, "0", "abc", "abc"},
         }) {
        SCOPED_TRACE(c.typed + " " + std::to_string(c.from) + " -> " + std::to_string(c.to));
        box.ClearUnits();
        box.AddUnit(c.from, "0.000");
        box.AddUnit(c.to, c.toFormat);
        box.SelectUnitCode(c.from);
        box.SetNumberText(c.typed);
        ASSERT_TRUE(box.UserPickUnit(box.UnitLabels()[1]));
        EXPECT_EQ(box.SelectedUnitIndex(), c.to);
        EXPECT_EQ(box.NumberText(), c.shown);
        // Selecting by code is not the user's switch: nothing is converted.
        box.SelectUnitCode(c.from);
        EXPECT_EQ(box.NumberText(), c.shown);
    }
    EXPECT_THROW(box.SelectUnitCode(kFtToM + 100), UnitRejectedFailure);
    box.SelectUnitCode(-1);
    EXPECT_EQ(box.SelectedUnitIndex(), -1);
}

}  // namespace
}  // namespace tabulon
