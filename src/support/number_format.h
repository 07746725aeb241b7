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
// 12.35, 9.995 gives 10.00), never on the binary approximation: the shortest decimal
// text that reads back as the same double is what gets rounded.
//
// How the codes combine (decided here, pinned in number_format_test.cpp):
// - All integer digits are shown, however few placeholders there are; digits beyond
//   them go where the first integer placeholder stands. A placeholder without a digit
//   shows "0" for `0` and nothing for `#`, so 0 with "#" is "" and 0.5 with "#.0" is ".5".
//   Trailing fraction `#` whose digit is 0 show nothing; a written point is always
//   shown (5 with "0.##" is "5."). Only the first `.` is the point, later ones are text.
// - In the integer part a `,` between two placeholders turns grouping on, a `,` after
//   the last one divides by 1,000 (each), a `,` before the first one is text. Commas in
//   the fraction or exponent are text.
// - Every `%` multiplies by 100 ("0%%" shows 0.5 as "5000%%").
// - `E+`/`E-` count only when a `0` or `#` follows the sign; otherwise they are text.
//   The mantissa has as many integer digits as there are integer placeholders
//   (12345 with "00.0E+00" is "12.3E+03"; with ".00E+00" it is ".12E+05"). Only the
//   first exponent mark counts.
// - The minus sign goes before everything else ("-$5"). A value whose shown digits are
//   all zero gets no minus: -0.001 with "0.00" gives "0.00".
// - A section with neither digit placeholders nor a point shows only its text, with no
//   number and no sign (-5 with "abc" is "abc").
// - Sections are chosen by the value before rounding: negative values use the second
//   section (without an added minus), exactly zero (also -0) uses the third. An empty
//   chosen section falls back to the first, which adds the minus again; an empty first
//   section gives the number written as text. A fourth section is never used.
// - `\` at the very end shows nothing; an unclosed `"` runs to the end of the format.
#pragma once

#include <string>
#include <string_view>

namespace tabulon {

// Formats value with format. Never throws for any format text (malformed codes are
// shown as text); a non-finite value throws OverflowFailure. Very large values print
// all their integer digits; values too small for the placeholders print as zero.
std::string FormatNumber(double value, std::string_view format);

// The control's storage format for converted values.
inline constexpr std::string_view kStorageFormat = "#########0.0000000";

}  // namespace tabulon
