// The number box with a choice of units, one case per decision of its header; filling
// it from a row, picking and committing are checked on the control (tests/editing).
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

class UnitDropBoxTest : public ::testing::Test {
protected:
    UnitDropBoxTest() : registrar(std::make_shared<UnitRegistrar>()), box("unitDropControl") {
        box.SetRegistrar(registrar);
    }
    void UseMetric() { registrar->setSystem(UnitRegistrar::kMetric); }

    std::shared_ptr<UnitRegistrar> registrar;
    UnitDropBox box;
};

// Labels of the current system first, then the other's; a shared label goes to the
// first unit listed.
TEST_F(UnitDropBoxTest, SelectsByTheLabelsOfEitherSystem) {
    box.AddUnit(kKwhToMj);
    box.AddUnit(kKbtuToMj);
    box.AddUnit(kFtToM);
    UseMetric();
    box.SelectUnitByText("MJ");
    EXPECT_EQ(box.SelectedUnitIndex(), kKwhToMj);
    box.SelectUnitByText("kBtu");
    EXPECT_EQ(box.SelectedUnitIndex(), kKbtuToMj);
    box.SelectUnitByText("ft");
    EXPECT_EQ(box.SelectedUnitText(), "m");
    EXPECT_THROW(box.SelectUnitByText("FT"), UnitRejectedFailure);
}

// The user's switch keeps the quantity when both units reach the same Metric unit and
// relabels the number otherwise; selecting by code never converts.
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
             {kKbtuToMj, kKwhToMj, "0.000", "1", "0.293"},  // built in: MJ both
             {barrel, halfGallon, "0.0", "3", "12.0"},      // custom: hL both
             {kFtToM, kInchToMm, "0.0", "12", "12"},        // m and mm: relabelled
             {kKbtuToMj, kKwhToMj, "0", "abc", "abc"},      // no number to convert
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
        box.SelectUnitCode(c.from);
        EXPECT_EQ(box.NumberText(), c.shown);
    }
}

}  // namespace
}  // namespace tabulon
