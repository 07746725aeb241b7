// The small amount of JSON the system speaks: session output lines and property-bag
// files (one flat object of key -> boolean, number or string).
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <variant>

namespace tabulon::json {

// A JSON string literal, quotes included. Control characters, quote and backslash
// are escaped; bytes that are not valid UTF-8 become U+FFFD so the output is
// always valid JSON.
std::string Quote(std::string_view text);

using FlatValue = std::variant<bool, std::int64_t, double, std::string>;

// Parses one JSON object whose values are booleans, numbers or strings (integers
// without fraction or exponent become int64). Throws std::runtime_error with a
// reason and offset for anything else.
std::map<std::string, FlatValue> ParseFlatObject(std::string_view text);

// Writes the object back, keys sorted, one key per line.
std::string WriteFlatObject(const std::map<std::string, FlatValue>& object);

}  // namespace tabulon::json
