// Session output text: the JSON string literal every line of `tabulon session` writes
// its texts with.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::json {

// A JSON string literal, quotes included. Quote, backslash and control characters
// are escaped (\b \f \n \r \t, the others as \u00XX), so the literal never spans
// lines; bytes that are not valid UTF-8 become U+FFFD (one per maximal invalid
// sequence) so the output is always valid JSON. Everything else is copied as is.
std::string Quote(std::string_view text);

}  // namespace tabulon::json
