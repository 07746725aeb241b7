// Reading the session's output back: one JSON value per line, members in written order.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tabulon::testing {

struct JsonValue {
    bool boolean = false;
    double number = 0;
    std::string text;  // strings; for numbers the number as JSON writes it
    std::vector<JsonValue> items;
    std::vector<std::pair<std::string, JsonValue>> members;

    bool has(const std::string& key) const;
    // The member (a null value when absent) / the item (null when out of range).
    const JsonValue& operator[](const std::string& key) const;
    const JsonValue& operator[](std::size_t index) const;
    // The member names in order, separated by blanks.
    std::string keyList() const;
};

// Parses every non-empty line of text; a line that is not JSON fails the test and
// reads as a null value.
std::vector<JsonValue> ParseJsonLines(const std::string& text);

}  // namespace tabulon::testing
