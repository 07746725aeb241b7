#include "unitinput/unit_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "unitinput/unit_registrar.h"

namespace tabulon {
namespace {

// Published values (NIST SP 811, Appendix B, seven significant digits), a few rows per
// mechanism: the whole table is pinned by docs/units.md, generated from the tool.
constexpr double kTonKw = 3.516853;  // ton of refrigeration in kW
constexpr double kPsiKpa = 6.894757;

struct StandardValue {
    int code;
    const char* name;
    double english;
    double metric;
};

// Plain and derived factors, the identity rows, temperatures at well-known points (the
// scales' offsets) and gauge and absolute pressures at zero (no atmosphere added).
const StandardValue kStandardValues[] = {
    {1, "SQFT_TO_SQM", 1, 0.09290304},
    {2, "SQFTTON_TO_SQMKW", 1, 0.09290304 / kTonKw},
    {24, "TONS_TO_KW", 1, kTonKw},
    {29, "KW_TO_KW", 7.5, 7.5},
    {63, "HPTON_TO_KWKW", 1, 0.7456999 / kTonKw},
    {38, "F_TO_C", 212, 100},
    {38, "F_TO_C", -40, -40},
    {40, "F_TO_K", -459.67, 0},
    {39, "R_TO_K", 491.67, 273.15},
    {52, "PSIG_TO_KPA", 1, kPsiKpa},
    {52, "PSIG_TO_KPA", 0, 0},
    {58, "PSIA_TO_KPA", 0, 0},
};

constexpr double kSixDigits = 2e-6;  // relative agreement with seven-digit published values

TEST(UnitCatalogue, ConversionsMatchTheirPublishedValues) {
    const UnitRegistrar registrar;
    for (const StandardValue& v : kStandardValues) {
        const UnitConversion* row = FindBuiltInConversion(v.code);
        ASSERT_NE(row, nullptr) << v.code;
        EXPECT_EQ(row->name, v.name) << v.code;
        const double metric = registrar.Convert(v.english, v.code, UnitRegistrar::kToMetric);
        EXPECT_NEAR(metric, v.metric, std::max(kSixDigits * std::abs(v.metric), 1e-9))
            << v.name << " " << v.english;
    }
}

TEST(UnitCatalogue, EveryConversionRoundTripsToTwelveDigits) {
    const UnitRegistrar r;
    const double values[] = {-459.67, -40, -1, 0, 1e-3, 1, 12.5, 98.6, 1234.5678, 1e9};
    for (int code = 0; code <= kBuiltInConversionCount; ++code) {
        for (const double v : values) {
            const double there = r.Convert(v, code, UnitRegistrar::kToMetric);
            const double back = r.Convert(there, code, UnitRegistrar::kToEnglish);
            EXPECT_NEAR(back, v, 1e-12 * std::max(std::abs(v), 1.0)) << code << " " << v;
        }
    }
}

}  // namespace
}  // namespace tabulon
