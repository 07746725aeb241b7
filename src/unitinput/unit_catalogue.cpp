#include "unitinput/unit_catalogue.h"

#include <array>

namespace tabulon {

namespace {

// Base units from NIST SP 811 (2008), Appendix B; each is exact by definition
// unless marked. Everything else is derived from these.
constexpr double kInch = 0.0254;  // m
constexpr double kFoot = 12 * kInch;
constexpr double kSquareFoot = kFoot * kFoot;
constexpr double kCubicFoot = kSquareFoot * kFoot;
constexpr double kGallon = 231 * kInch * kInch * kInch;      // US gallon, m^3
constexpr double kLitre = 0.001;                             // m^3
constexpr double kPound = 0.45359237;                        // kg
constexpr double kStandardGravity = 9.80665;                 // m/s^2
constexpr double kPoundForce = kPound * kStandardGravity;    // N
constexpr double kBtu = 1055.05585262;                       // J, International Table Btu
constexpr double kKilocalorie = 4186.8;                      // J, International Table calorie
constexpr double kMinute = 60;                               // s
constexpr double kHour = 3600;                               // s
constexpr double kKilowattHour = 1000 * kHour;               // J
constexpr double kBtuPerHour = kBtu / kHour;                 // W
constexpr double kTonOfRefrigeration = 12000 * kBtuPerHour;  // W
constexpr double kHorsepower = 550 * kFoot * kPoundForce;    // W, 550 ft*lbf/s
constexpr double kPsi = kPoundForce / (kInch * kInch);       // Pa
// Conventional water column: 1000 kg/m^3 under standard gravity.
constexpr double kInchOfWater = kInch * 1000 * kStandardGravity;  // Pa
constexpr double kFootOfWater = 12 * kInchOfWater;
constexpr double kRankine = 5.0 / 9.0;                       // K per degree F or R
constexpr double kFahrenheitZero = -32 * kRankine;           // in C
constexpr double kFahrenheitZeroKelvin = 459.67 * kRankine;  // in K

constexpr double kKilo = 1000;
constexpr double kMega = 1e6;

constexpr std::array<UnitConversion, kBuiltInConversionCount> kCatalogue = {{
    {1, "SQFT_TO_SQM", kSquareFoot, 0, "sq ft", "sq m"},
    {2, "SQFTTON_TO_SQMKW", kSquareFoot / (kTonOfRefrigeration / kKilo), 0, "sq ft/ton", "sq m/kW"},
    {3, "EER_TO_COP", kBtuPerHour, 0, "EER", "COP"},
    {4, "KBTU_TO_MJ", kKilo* kBtu / kMega, 0, "kBtu", "MJ"},
    {5, "KWH_TO_MJ", kKilowattHour / kMega, 0, "kWh", "MJ"},
    {6, "TONHR_TO_KWH", kTonOfRefrigeration / kKilo, 0, "ton-h", "kWh"},
    {7, "KBTUSQFT_TO_MJSQM", kKilo* kBtu / kMega / kSquareFoot, 0, "kBtu/sq ft", "MJ/sq m"},
    {8, "BTUSQFT_TO_KJSQM", kBtu / kKilo / kSquareFoot, 0, "Btu/sq ft", "kJ/sq m"},
    {9, "BTUCUFT_TO_KCALM3", kBtu / kKilocalorie / kCubicFoot, 0, "Btu/cu ft", "kcal/cu m"},
    {10, "BTUGAL_TO_KCALL", kBtu / kKilocalorie / (kGallon / kLitre), 0, "Btu/gal", "kcal/L"},
    {11, "CFM_TO_M3S", kCubicFoot / kMinute, 0, "cu ft/min", "cu m/s"},
    {12, "CFM_TO_M3H", kCubicFoot / kMinute* kHour, 0, "cu ft/min", "cu m/h"},
    {13, "CFM_TO_LPS", kCubicFoot / kLitre / kMinute, 0, "cu ft/min", "L/s"},
    {14, "GPM_TO_LPS", kGallon / kLitre / kMinute, 0, "gal/min", "L/s"},
    {15, "CFMSQFT_TO_LSSQM", kCubicFoot / kLitre / kMinute / kSquareFoot, 0, "cu ft/min/sq ft",
     "L/s/sq m"},
    {16, "CFMTON_TO_LSKW", kCubicFoot / kLitre / kMinute / (kTonOfRefrigeration / kKilo), 0,
     "cu ft/min/ton", "L/s/kW"},
    {17, "GPMTON_TO_LSKW", kGallon / kLitre / kMinute / (kTonOfRefrigeration / kKilo), 0,
     "gal/min/ton", "L/s/kW"},
    {18, "INCH_TO_MM", kInch* kKilo, 0, "in", "mm"},
    {19, "FT_TO_M", kFoot, 0, "ft", "m"},
    {20, "LB_TO_KG", kPound, 0, "lb", "kg"},
    {21, "LBSQFT_TO_KGSQM", kPound / kSquareFoot, 0, "lb/sq ft", "kg/sq m"},
    {22, "LBTONHR_TO_KGKWH", kPound / (kTonOfRefrigeration / kKilo), 0, "lb/ton-h", "kg/kWh"},
    {23, "LBCUFT_TO_KGM3", kPound / kCubicFoot, 0, "lb/cu ft", "kg/cu m"},
    {24, "TONS_TO_KW", kTonOfRefrigeration / kKilo, 0, "ton", "kW"},
    {25, "BHP_TO_KW", kHorsepower / kKilo, 0, "bhp", "kW"},
    {26, "HP_TO_KW", kHorsepower / kKilo, 0, "hp", "kW"},
    {27, "BTUHR_TO_W", kBtuPerHour, 0, "Btu/h", "W"},
    {28, "MBH_TO_KW", kKilo* kBtuPerHour / kKilo, 0, "MBH", "kW"},
    {29, "KW_TO_KW", 1, 0, "kW", "kW"},
    {30, "WSQFT_TO_WSQM", 1 / kSquareFoot, 0, "W/sq ft", "W/sq m"},
    {31, "BTUHRSQFT_TO_WSQM", kBtuPerHour / kSquareFoot, 0, "Btu/h/sq ft", "W/sq m"},
    {32, "MBHTON_TO_IKWKW", kKilo* kBtuPerHour / kTonOfRefrigeration, 0, "MBH/ton", "ikW/kW"},
    {33, "KWTON_TO_IKWKW", kKilo / kTonOfRefrigeration, 0, "kW/ton", "ikW/kW"},
    {34, "FTWG_TO_KPA", kFootOfWater / kKilo, 0, "ft wg", "kPa"},
    {35, "INWG_TO_KPA", kInchOfWater / kKilo, 0, "in wg", "kPa"},
    {36, "PSI_TO_KPA", kPsi / kKilo, 0, "psi", "kPa"},
    {37, "BTULBF_TO_KJKGK", kBtu / kKilo / (kPound * kRankine), 0, "Btu/lb F", "kJ/kg K"},
    {38, "F_TO_C", kRankine, kFahrenheitZero, "F", "C"},
    {39, "R_TO_K", kRankine, 0, "R", "K"},
    {40, "F_TO_K", kRankine, kFahrenheitZeroKelvin, "F", "K"},
    {41, "BTUHRFTF_TO_WMK", kBtuPerHour / (kFoot * kRankine), 0, "Btu/h ft F", "W/m K"},
    {42, "HRSQFTFBTU_TO_SQMKW", kSquareFoot* kRankine / kBtuPerHour, 0, "h sq ft F/Btu",
     "sq m K/W"},
    {43, "HRSQFTFBTU_TO_SQMKKW", kSquareFoot* kRankine / (kBtuPerHour / kKilo), 0, "h sq ft F/Btu",
     "sq m K/kW"},
    {44, "BTUHRSQFTF_TO_WSQMK", kBtuPerHour / (kSquareFoot * kRankine), 0, "Btu/h sq ft F",
     "W/sq m K"},
    {45, "FTS_TO_MS", kFoot, 0, "ft/s", "m/s"},
    {46, "FPM_TO_MS", kFoot / kMinute, 0, "ft/min", "m/s"},
    {47, "LBFTHR_TO_PAS", kPound / (kFoot * kHour), 0, "lb/ft h", "Pa s"},
    {48, "CUFT_TO_M3", kCubicFoot, 0, "cu ft", "cu m"},
    {49, "GAL_TO_L", kGallon / kLitre, 0, "gal", "L"},
    {50, "CFH_TO_M3H", kCubicFoot, 0, "cu ft/h", "cu m/h"},
    {51, "GPH_TO_LH", kGallon / kLitre, 0, "gal/h", "L/h"},
    {52, "PSIG_TO_KPA", kPsi / kKilo, 0, "psig", "kPag"},
    {53, "BTULB_TO_KJKG", kBtu / kKilo / kPound, 0, "Btu/lb", "kJ/kg"},
    {54, "BHP_TO_BHP", 1, 0, "bhp", "bhp"},
    {55, "INWG_TO_PA", kInchOfWater, 0, "in wg", "Pa"},
    {56, "KBTU_TO_KWH", kKilo* kBtu / kKilowattHour, 0, "kBtu", "kWh"},
    {57, "KWH_TO_KWH", 1, 0, "kWh", "kWh"},
    {58, "PSIA_TO_KPA", kPsi / kKilo, 0, "psia", "kPaa"},
    {59, "KWHLB_TO_KWHKG", 1 / kPound, 0, "kWh/lb", "kWh/kg"},
    {60, "KBTULB_TO_KWHKG", kKilo* kBtu / kKilowattHour / kPound, 0, "kBtu/lb", "kWh/kg"},
    {61, "PCT_TO_PCT", 1, 0, "%", "%"},
    {62, "LBHR_TO_KGS", kPound / kHour, 0, "lb/h", "kg/s"},
    {63, "HPTON_TO_KWKW", kHorsepower / kTonOfRefrigeration, 0, "hp/ton", "kW/kW"},
}};

constexpr bool IndicesRunInOrder() {
    for (std::size_t i = 0; i < kCatalogue.size(); ++i) {
        if (kCatalogue[i].index != static_cast<int>(i) + 1) return false;
    }
    return true;
}

constexpr bool FactorsArePositive() {
    for (const auto& row : kCatalogue) {
        if (!(row.factor > 0)) return false;
    }
    return true;
}

static_assert(kCatalogue.size() == 63, "one row per built-in conversion 1..63");
static_assert(IndicesRunInOrder(), "row i must hold code i + 1");
static_assert(FactorsArePositive(), "a conversion must be invertible");

}  // namespace

std::span<const UnitConversion> BuiltInConversions() {
    return kCatalogue;
}

const UnitConversion* FindBuiltInConversion(int code) {
    if (code < 1 || code > kBuiltInConversionCount) return nullptr;
    return &kCatalogue[static_cast<std::size_t>(code - 1)];
}

}  // namespace tabulon
