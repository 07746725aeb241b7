// The small amount of JSON the system speaks: session output lines and property-bag
// files (one flat object of key -> boolean, number or string).
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>

namespace tabulon::json {

// A JSON string literal, quotes included. Quote, backslash and control characters
// are escaped (\b \f \n \r \t, the others as \u00XX), so the literal never spans
// lines; bytes that are not valid UTF-8 become U+FFFD (one per maximal invalid
// sequence) so the output is always valid JSON. Everything else is copied as is.
std::string Quote(std::string_view text);

using FlatValue = std::variant<bool, std::int64_t, double, std::string>;

// Why and where (byte offset into the text) a parse failed; what() reads
// "<reason> at offset <offset>".
class ParseError : public std::runtime_error {
public:
    ParseError(std::string reason, std::size_t offset);
    const std::string& reason() const { return reason_; }
    std::size_t offset() const { return offset_; }

private:
    std::string reason_;
    std::size_t offset_;
};

// Parses one JSON object whose values are booleans, numbers or strings, strictly
// (RFC 8259 grammar; whitespace around tokens; nothing after the object). Integers
// without fraction or exponent become int64 (double when beyond int64); other numbers
// double. Strings must be valid UTF-8 without raw control characters; escapes
// include \uXXXX with surrogate pairs (a lone surrogate is an error). Throws
// ParseError for anything else: null, arrays, nested objects, duplicate keys,
// numbers beyond the double range.
std::map<std::string, FlatValue> ParseFlatObject(std::string_view text);

// Writes the object back, keys sorted, one key per line indented by two spaces
// ("{}" when empty), without a final line break. Doubles are written so that they
// read back as the same double (and as a double: 2.0 is written "2.0"); a
// non-finite double throws std::invalid_argument.
std::string WriteFlatObject(const std::map<std::string, FlatValue>& object);

}  // namespace tabulon::json
