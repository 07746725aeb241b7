// Number formats: the classic format codes used by `Format` attributes and by the
// storage format "#########0.0000000".
//
// Codes: `0` digit, `#` optional digit, `.` decimal point, `,` grouping (between
// digit codes) or thousands scaling (directly before the point / at the end),
// `%` percent (value x 100), `E+ E- e+ e-` exponents, `\x` and "text" literals, any
// other character literal. A format with ";" holds sections for positive;negative;
// zero. Named formats: "General Number", "Fixed", "Standard", "Percent",
// "Scientific" (matched without regard to case). An empty format gives the number
// written as text (NumberToText).
//
// Rounding is half away from zero on the decimal value (12.345 with 0.00 gives
// 12.35, 9.995 gives 10.00), never on the binary approximation.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

// Formats value with format. Never throws for any format text; a non-finite value
// throws OverflowFailure.
std::string FormatNumber(double value, std::string_view format);

// The control's storage format for converted values.
inline constexpr std::string_view kStorageFormat = "#########0.0000000";

}  // namespace tabulon
