// Building the JSON objects the session prints, one per output line, on the quoting
// rule of support/json.h. Keys keep the order in which they are added; members are
// written as "key": value separated by ", ", arrays as [a, b].
//
// Each member kind has its own name (Str, Bool, Int, Num ...), so a string literal
// never turns into a boolean by overload resolution.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::cli::session {

class JsonArray;

class JsonObject {
public:
    JsonObject& Str(std::string_view key, std::string_view value);
    JsonObject& Bool(std::string_view key, bool value);
    JsonObject& Int(std::string_view key, std::int64_t value);
    // A double written as text (at most 15 significant digits, "1E+20" form for very
    // large or small values), which is valid JSON; never infinite or NaN here.
    JsonObject& Num(std::string_view key, double value);
    // "#rrggbb" for a 0xRRGGBB colour.
    JsonObject& Color(std::string_view key, std::uint32_t rgb);
    JsonObject& Obj(std::string_view key, const JsonObject& value);
    JsonObject& Arr(std::string_view key, const JsonArray& value);

    // The object as one line of text.
    std::string Text() const { return "{" + body_ + "}"; }

private:
    JsonObject& Raw(std::string_view key, const std::string& json);
    std::string body_;
};

class JsonArray {
public:
    JsonArray& Str(std::string_view value);
    JsonArray& Bool(bool value);
    JsonArray& Int(std::int64_t value);
    JsonArray& Num(double value);
    JsonArray& Obj(const JsonObject& value);
    JsonArray& Arr(const JsonArray& value);

    std::string Text() const { return "[" + body_ + "]"; }

private:
    JsonArray& Raw(const std::string& json);
    std::string body_;
};

// A list of strings as a JSON array.
JsonArray StringArray(const std::vector<std::string>& items);

// The colour as "#rrggbb" (lower-case hex digits).
std::string ColorText(std::uint32_t rgb);

}  // namespace tabulon::cli::session
