// Reading the session's output back: one JSON value per line. A line that is not
// valid JSON becomes a value whose parseError says why, so a test fails on it with a
// readable message instead of crashing.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::testing {

class JsonValue {
public:
    enum class Type { Null, Bool, Number, String, Array, Object };

    Type type = Type::Null;
    bool boolean = false;
    double number = 0;
    std::string text;  // strings; for numbers the number as JSON writes it
    std::vector<JsonValue> items;
    std::vector<std::pair<std::string, JsonValue>> members;  // in written order
    std::string parseError;

    bool has(const std::string& key) const;
    // The member (a Null value when absent) / the item (Null when out of range).
    const JsonValue& operator[](const std::string& key) const;
    const JsonValue& operator[](std::size_t index) const;
    std::vector<std::string> keys() const;
    // The member names in order, separated by blanks.
    std::string keyList() const;
};

// Parses every non-empty line of text.
std::vector<JsonValue> ParseJsonLines(const std::string& text);

}  // namespace tabulon::testing
