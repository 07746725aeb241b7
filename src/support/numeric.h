// Reading numbers out of text and converting them to the control's integer types.
//
// The rule for "read as a number" is fixed here once for the whole system:
// skip leading spaces and tabs, then take the longest prefix of the form
//   [+-]digits[.digits][(e|E)[+-]digits]
// where the digits may be missing on one side of the point but not both. No hex,
// no inf/nan, no locale: the decimal separator is always ".". Text without such a
// prefix reads 0.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tabulon {

// The leading numeric part of text. A magnitude beyond the double range throws
// OverflowFailure (never returns infinity); a tiny one reads 0.
double ReadNumber(std::string_view text);

// Length of the numeric prefix ReadNumber would take, counted from the start of
// text (leading blanks included); 0 when there is none.
std::size_t NumericPrefixLength(std::string_view text);

// Round half to even, then range-check: throws OverflowFailure when the result is
// outside the type (or the value is not finite).
std::int16_t ToInt16(double value);
std::int32_t ToInt32(double value);

// Convenience: ToInt16(ReadNumber(text)) and ToInt32(ReadNumber(text)).
std::int16_t ReadInt16(std::string_view text);
std::int32_t ReadInt32(std::string_view text);

// A number "written as text": at most 15 significant digits, no trailing zeros, no
// leading blank, "." as separator, scientific form with a signed two-digit (or
// longer) exponent outside 1E-4 <= |x| < 1E+15 (0.1 + 0.2 gives "0.3", 1e20 gives
// "1E+20", 1e-5 gives "1E-05"). Negative zero is "0".
std::string NumberToText(double value);

// An integer in plain decimal.
std::string IntegerToText(long long value);

}  // namespace tabulon
