#include "unitinput/unit_catalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>

#include "unitinput/unit_registrar.h"

namespace tabulon {
namespace {

// Published conversion factors (NIST SP 811, Appendix B, seven significant digits),
// combined here independently of how the catalogue derives its factors.
constexpr double kTonKw = 3.516853;  // ton of refrigeration in kW
constexpr double kBtuPerHourW = 0.2930711;
constexpr double kSqFtM2 = 0.09290304;
constexpr double kCfmLps = 0.4719474;
constexpr double kGpmLps = 0.06309020;
constexpr double kPoundKg = 0.4535924;
constexpr double kHpKw = 0.7456999;
constexpr double kPsiKpa = 6.894757;
constexpr double kCalIt = 4186.8;  // J per kcal

struct StandardValue {
    int code;
    const char* name;
    double english;
    double metric;
};

// One row per built-in conversion, then temperatures at well-known points (the scales'
// offsets) and gauge and absolute pressures at zero (no atmosphere added).
const StandardValue kStandardValues[] = {
    {1, "SQFT_TO_SQM", 1, kSqFtM2},
    {2, "SQFTTON_TO_SQMKW", 1, kSqFtM2 / kTonKw},
    {3, "EER_TO_COP", 10, 10 * kBtuPerHourW},
    {4, "KBTU_TO_MJ", 1, 1.055056},
    {5, "KWH_TO_MJ", 1, 3.6},
    {6, "TONHR_TO_KWH", 1, kTonKw},
    {7, "KBTUSQFT_TO_MJSQM", 1, 11.35653},
    {8, "BTUSQFT_TO_KJSQM", 1, 11.35653},
    {9, "BTUCUFT_TO_KCALM3", 1, 37258.95 / kCalIt},
    {10, "BTUGAL_TO_KCALL", 1, 278.7163 / kCalIt},
    {11, "CFM_TO_M3S", 1, 4.719474e-4},
    {12, "CFM_TO_M3H", 1, 1.699011},
    {13, "CFM_TO_LPS", 1, kCfmLps},
    {14, "GPM_TO_LPS", 1, kGpmLps},
    {15, "CFMSQFT_TO_LSSQM", 1, 5.08},
    {16, "CFMTON_TO_LSKW", 1, kCfmLps / kTonKw},
    {17, "GPMTON_TO_LSKW", 1, kGpmLps / kTonKw},
    {18, "INCH_TO_MM", 1, 25.4},
    {19, "FT_TO_M", 1, 0.3048},
    {20, "LB_TO_KG", 1, kPoundKg},
    {21, "LBSQFT_TO_KGSQM", 1, 4.882428},
    {22, "LBTONHR_TO_KGKWH", 1, kPoundKg / kTonKw},
    {23, "LBCUFT_TO_KGM3", 1, 16.01846},
    {24, "TONS_TO_KW", 1, kTonKw},
    {25, "BHP_TO_KW", 1, kHpKw},
    {26, "HP_TO_KW", 1, kHpKw},
    {27, "BTUHR_TO_W", 1, kBtuPerHourW},
    {28, "MBH_TO_KW", 1, kBtuPerHourW},
    {29, "KW_TO_KW", 7.5, 7.5},
    {30, "WSQFT_TO_WSQM", 1, 10.76391},
    {31, "BTUHRSQFT_TO_WSQM", 1, 3.154591},
    {32, "MBHTON_TO_IKWKW", 12, 1},
    {33, "KWTON_TO_IKWKW", 1, 1 / kTonKw},
    {34, "FTWG_TO_KPA", 1, 2.989067},
    {35, "INWG_TO_KPA", 1, 0.2490889},
    {36, "PSI_TO_KPA", 1, kPsiKpa},
    {37, "BTULBF_TO_KJKGK", 1, 4.1868},
    {38, "F_TO_C", 212, 100},
    {39, "R_TO_K", 491.67, 273.15},
    {40, "F_TO_K", 32, 273.15},
    {41, "BTUHRFTF_TO_WMK", 1, 1.730735},
    {42, "HRSQFTFBTU_TO_SQMKW", 1, 0.1761102},
    {43, "HRSQFTFBTU_TO_SQMKKW", 1, 176.1102},
    {44, "BTUHRSQFTF_TO_WSQMK", 1, 5.678263},
    {45, "FTS_TO_MS", 1, 0.3048},
    {46, "FPM_TO_MS", 1, 0.00508},
    {47, "LBFTHR_TO_PAS", 1, 4.133789e-4},
    {48, "CUFT_TO_M3", 1, 0.02831685},
    {49, "GAL_TO_L", 1, 3.785412},
    {50, "CFH_TO_M3H", 1, 0.02831685},
    {51, "GPH_TO_LH", 1, 3.785412},
    {52, "PSIG_TO_KPA", 1, kPsiKpa},
    {53, "BTULB_TO_KJKG", 1, 2.326},
    {54, "BHP_TO_BHP", 7.5, 7.5},
    {55, "INWG_TO_PA", 1, 249.0889},
    {56, "KBTU_TO_KWH", 1, kBtuPerHourW},
    {57, "KWH_TO_KWH", 7.5, 7.5},
    {58, "PSIA_TO_KPA", 1, kPsiKpa},
    {59, "KWHLB_TO_KWHKG", 1, 1 / kPoundKg},
    {60, "KBTULB_TO_KWHKG", 1, kBtuPerHourW / kPoundKg},
    {61, "PCT_TO_PCT", 7.5, 7.5},
    {62, "LBHR_TO_KGS", 1, 1.259979e-4},
    {63, "HPTON_TO_KWKW", 1, kHpKw / kTonKw},
    {38, "F_TO_C", 32, 0},
    {38, "F_TO_C", -40, -40},
    {38, "F_TO_C", 98.6, 37},
    {40, "F_TO_K", -459.67, 0},
    {39, "R_TO_K", 0, 0},
    {36, "PSI_TO_KPA", 0, 0},
    {52, "PSIG_TO_KPA", 0, 0},
    {58, "PSIA_TO_KPA", 0, 0},
};

constexpr double kSixDigits = 2e-6;  // relative agreement with seven-digit published values

TEST(UnitCatalogue, EveryConversionMatchesItsPublishedValue) {
    const UnitRegistrar registrar;
    std::set<int> covered;
    for (const StandardValue& v : kStandardValues) {
        const UnitConversion* row = FindBuiltInConversion(v.code);
        ASSERT_NE(row, nullptr) << v.code;
        EXPECT_EQ(row->name, v.name) << v.code;
        const double metric = registrar.Convert(v.english, v.code, UnitRegistrar::kToMetric);
        EXPECT_NEAR(metric, v.metric, std::max(kSixDigits * std::abs(v.metric), 1e-9))
            << v.name << " " << v.english;
        covered.insert(v.code);
    }
    EXPECT_EQ(covered.size(), 63u);
    EXPECT_EQ(BuiltInConversions().size(), 63u);
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

// A label is typed inside "(...)" in a cell and trimmed when read back.
bool TypableLabel(std::string_view label) {
    if (label.empty() || label.front() == ' ' || label.back() == ' ') return false;
    return std::all_of(label.begin(), label.end(), [](char c) {
        return c >= 32 && c <= 126 && c != '(' && c != ')' && c != ';';
    });
}

std::string_view EnglishPart(std::string_view name) {
    return name.substr(0, name.find("_TO_"));
}
std::string_view MetricPart(std::string_view name) {
    return name.substr(name.find("_TO_") + 4);
}

TEST(UnitCatalogue, LabelsAreTypableAndShareOnlyWhereTheUnitIsTheSame) {
    const auto rows = BuiltInConversions();
    for (const UnitConversion& a : rows) {
        EXPECT_TRUE(TypableLabel(a.english)) << a.name;
        EXPECT_TRUE(TypableLabel(a.metric)) << a.name;
        for (const UnitConversion& b : rows) {
            if (a.index >= b.index) continue;
            const bool sameEnglish = a.english == b.english;
            const bool sameMetric = a.metric == b.metric;
            EXPECT_FALSE(sameEnglish && sameMetric) << a.name << " / " << b.name;
            if (sameEnglish) {
                EXPECT_EQ(EnglishPart(a.name), EnglishPart(b.name)) << a.name;
            }
            if (sameMetric) {
                EXPECT_EQ(MetricPart(a.name), MetricPart(b.name)) << a.name;
            }
        }
    }
}

}  // namespace
}  // namespace tabulon
