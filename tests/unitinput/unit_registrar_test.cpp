#include "unitinput/unit_registrar.h"

#include <gtest/gtest.h>

#include <limits>

#include "unitinput/unit_errors.h"

namespace tabulon {
namespace {

constexpr int kToMetric = UnitRegistrar::kToMetric;
constexpr int kToEnglish = UnitRegistrar::kToEnglish;

// Custom codes count up from 64 in one registrar; an English name registered again
// keeps its first code and factor; another registrar knows none of them.
TEST(UnitRegistrar, CustomUnitsGetCodesFromSixtyFourPerRegistrar) {
    UnitRegistrar r;
    EXPECT_EQ(r.RegisterCustomUnit(2.5, "bbl", "hL", ""), 64);
    EXPECT_EQ(r.RegisterCustomUnit(0.5, "cup", "dL", ""), 65);
    EXPECT_EQ(r.RegisterCustomUnit(3, "bbl", "L", ""), 64);
    EXPECT_EQ(r.Convert(4, 64, kToMetric), 10);
    EXPECT_EQ(r.Convert(10, 64, kToEnglish), 4);
    EXPECT_EQ(r.UnitName(64, kToMetric), "hL");
    EXPECT_EQ(r.UnitName(65, kToEnglish), "cup");
    EXPECT_THROW(r.Convert(1, 66, kToMetric), UnitRejectedFailure);
    EXPECT_FALSE(UnitRegistrar().Knows(64));
}

// Nothing that could not be shown, selected or converted to a finite number.
TEST(UnitRegistrar, RefusesNamesFactorsAndResultsThatCouldNotBeUsed) {
    UnitRegistrar r;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (const double factor : {0.0, -1.0, nan, inf}) {
        EXPECT_THROW(r.RegisterCustomUnit(factor, "x", "y", ""), UnitRejectedFailure) << factor;
    }
    EXPECT_THROW(r.RegisterCustomUnit(1, "", "y", ""), UnitRejectedFailure);
    EXPECT_THROW(r.RegisterCustomUnit(1, "x", "", ""), UnitRejectedFailure);
    EXPECT_EQ(r.RegisterCustomUnit(1e-300, "tiny", "t", ""), 64);  // nothing before counted
    EXPECT_THROW(r.Convert(1e10, 64, kToEnglish), OverflowFailure);
    EXPECT_THROW(r.Convert(1e308, 55, kToMetric), OverflowFailure);  // in wg -> Pa, x249
    EXPECT_THROW(r.Convert(nan, 0, kToEnglish), OverflowFailure);
    EXPECT_THROW(r.Convert(1, 19, 2), UnitRejectedFailure);
    EXPECT_THROW(r.setSystem(2), UnitRejectedFailure);
}

}  // namespace
}  // namespace tabulon
