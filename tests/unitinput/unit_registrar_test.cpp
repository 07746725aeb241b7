#include "unitinput/unit_registrar.h"

#include <gtest/gtest.h>

#include <limits>

#include "unitinput/unit_errors.h"

namespace tabulon {
namespace {

constexpr int kToMetric = UnitRegistrar::kToMetric;
constexpr int kToEnglish = UnitRegistrar::kToEnglish;

// Code 0 is the identity without labels.
TEST(UnitRegistrar, UnitNameFollowsTheDirectionAndLabelTheSystem) {
    UnitRegistrar r;
    EXPECT_EQ(r.Convert(12.5, 0, kToMetric), 12.5);
    EXPECT_EQ(r.Convert(12.5, 0, kToEnglish), 12.5);
    EXPECT_EQ(r.UnitName(0, kToMetric), "");
    EXPECT_EQ(r.UnitName(0, kToEnglish), "");
    EXPECT_EQ(r.UnitName(19, kToMetric), "m");
    EXPECT_EQ(r.UnitName(19, kToEnglish), "ft");
    EXPECT_EQ(r.system(), UnitRegistrar::kEnglish);
    EXPECT_EQ(r.Label(19), "ft");
    r.setSystem(UnitRegistrar::kMetric);
    EXPECT_EQ(r.Label(19), "m");
}

TEST(UnitRegistrar, RefusesUnknownCodesDirectionsAndSystems) {
    UnitRegistrar r;
    for (const int code : {-1, 64, 65, 1000}) {
        EXPECT_FALSE(r.Knows(code)) << code;
        EXPECT_THROW(r.Convert(1, code, kToMetric), UnitRejectedFailure) << code;
        EXPECT_THROW(r.UnitName(code, kToEnglish), UnitRejectedFailure) << code;
    }
    EXPECT_THROW(r.Convert(1, 19, 2), UnitRejectedFailure);
    EXPECT_THROW(r.UnitName(19, -1), UnitRejectedFailure);
    r.setSystem(UnitRegistrar::kMetric);
    EXPECT_THROW(r.setSystem(2), UnitRejectedFailure);
    EXPECT_EQ(r.system(), UnitRegistrar::kMetric);
}

TEST(UnitRegistrar, CustomUnitsGetCodesFromSixtyFourPerRegistrar) {
    UnitRegistrar r;
    EXPECT_EQ(r.RegisterCustomUnit(2.5, "bbl", "hL", "unimportantString"), 64);
    EXPECT_EQ(r.RegisterCustomUnit(0.5, "cup", "dL", "unimportantString"), 65);
    EXPECT_TRUE(r.Knows(64));
    EXPECT_TRUE(r.Knows(65));
    EXPECT_FALSE(r.Knows(66));
    EXPECT_EQ(r.Convert(4, 64, kToMetric), 10);
    EXPECT_EQ(r.Convert(10, 64, kToEnglish), 4);
    EXPECT_EQ(r.UnitName(65, kToMetric), "dL");
    EXPECT_EQ(r.UnitName(65, kToEnglish), "cup");

    const UnitRegistrar other;
    EXPECT_FALSE(other.Knows(64));
    EXPECT_THROW(other.Convert(1, 64, kToMetric), UnitRejectedFailure);
}

TEST(UnitRegistrar, SameEnglishNameKeepsItsFirstCodeAndFactor) {
    UnitRegistrar r;
    EXPECT_EQ(r.RegisterCustomUnit(2, "bbl", "hL", ""), 64);
    EXPECT_EQ(r.RegisterCustomUnit(3, "bbl", "L", ""), 64);
    EXPECT_EQ(r.Convert(1, 64, kToMetric), 2);
    EXPECT_EQ(r.UnitName(64, kToMetric), "hL");
    EXPECT_EQ(r.RegisterCustomUnit(3, "BBL", "L", ""), 65);  // names compare exactly
}

TEST(UnitRegistrar, RefusesFactorsThatCouldYieldInfinityOrNaN) {
    UnitRegistrar r;
    const double bad[] = {0.0,
                          -0.0,
                          -1.0,
                          std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity()};
    for (const double factor : bad) {
        EXPECT_THROW(r.RegisterCustomUnit(factor, "x", "y", ""), UnitRejectedFailure) << factor;
    }
    EXPECT_THROW(r.RegisterCustomUnit(1, "", "y", ""), UnitRejectedFailure);
    EXPECT_THROW(r.RegisterCustomUnit(1, "x", "", ""), UnitRejectedFailure);
    EXPECT_EQ(r.RegisterCustomUnit(1, "x", "y", ""), 64);  // nothing was registered before
}

TEST(UnitRegistrar, NonFiniteResultsAreOverflowsNotValues) {
    UnitRegistrar r;
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(r.Convert(1e308, 55, kToMetric), OverflowFailure);  // in wg -> Pa, x249
    EXPECT_THROW(r.Convert(nan, 19, kToMetric), OverflowFailure);
    EXPECT_THROW(r.Convert(nan, 0, kToEnglish), OverflowFailure);
    r.RegisterCustomUnit(1e-300, "tiny", "t", "");
    EXPECT_THROW(r.Convert(1e10, 64, kToEnglish), OverflowFailure);
}

}  // namespace
}  // namespace tabulon
