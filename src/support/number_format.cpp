#include "support/number_format.h"

#include "support/numeric.h"

namespace tabulon {

// Placeholder until the format engine lands: the number written as text.
std::string FormatNumber(double value, std::string_view /*format*/) { return NumberToText(value); }

}  // namespace tabulon
