// The catalogue of the built-in English/Metric conversions, codes 1 to 63. Code 0 is
// "no conversion"; codes from kFirstCustomUnitCode up are custom units that a
// UnitRegistrar hands out. The codes are an interface contract with documents and
// may never be renumbered.
//
// Every row converts metric = english * factor + offset; the inverse is
// english = (metric - offset) / factor.
//
// Decisions kept in the table (unit_catalogue.cpp):
// - Temperatures follow the kelvin definitions: F_TO_C is (F - 32) * 5/9, F_TO_K is
//   (F + 459.67) * 5/9, R_TO_K has no offset.
// - Pressures keep their reference point: PSIG_TO_KPA gives gauge kPa ("kPag"),
//   PSIA_TO_KPA absolute kPa ("kPaa"), both without an offset, because turning a
//   gauge into an absolute pressure needs the local atmospheric pressure, which no
//   document states.
// - Labels are short ASCII texts an author can type inside parentheses in a cell
//   value ("12.5(ft)"). Two rows share an English label only when they start from
//   the same English unit (CFM_TO_M3S/CFM_TO_M3H/CFM_TO_LPS all read "cu ft/min"),
//   and then their Metric labels differ, so a row offering both stays unambiguous
//   in either system. Two rows share a Metric label only when they end in the same
//   metric unit (KBTU_TO_MJ and KWH_TO_MJ both read "MJ"); no row shares both labels.
#pragma once

#include <span>
#include <string_view>

namespace tabulon {

struct UnitConversion {
    int index;
    std::string_view name;  // the conversion name documents use, e.g. "SQFT_TO_SQM"
    double factor;
    double offset;
    std::string_view english;  // label of the English unit
    std::string_view metric;   // label of the Metric unit
};

inline constexpr int kBuiltInConversionCount = 63;
inline constexpr int kFirstCustomUnitCode = 64;

// Rows 1 to 63 in code order (row i holds code i + 1).
std::span<const UnitConversion> BuiltInConversions();

// The row of a built-in code 1..63; nullptr for 0, custom codes and anything else.
const UnitConversion* FindBuiltInConversion(int code);

// True for 0 (no conversion) and 1..63.
constexpr bool IsBuiltInCode(int code) {
    return code >= 0 && code <= kBuiltInConversionCount;
}

}  // namespace tabulon
