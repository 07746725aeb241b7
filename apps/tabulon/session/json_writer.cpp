#include "session/json_writer.h"

#include "session/json.h"
#include "support/numeric.h"

namespace tabulon::cli::session {

std::string ColorText(std::uint32_t rgb) {
    static constexpr char kDigits[] = "0123456789abcdef";
    std::string text = "#";
    for (int shift = 20; shift >= 0; shift -= 4)
        text.push_back(kDigits[(rgb >> shift) & 0xFu]);
    return text;
}

JsonObject& JsonObject::Raw(std::string_view key, const std::string& json) {
    if (!body_.empty()) body_ += ", ";
    body_ += json::Quote(key);
    body_ += ": ";
    body_ += json;
    return *this;
}

JsonObject& JsonObject::Str(std::string_view key, std::string_view value) {
    return Raw(key, json::Quote(value));
}
JsonObject& JsonObject::Bool(std::string_view key, bool value) {
    return Raw(key, value ? "true" : "false");
}
JsonObject& JsonObject::Int(std::string_view key, std::int64_t value) {
    return Raw(key, IntegerToText(value));
}
JsonObject& JsonObject::Num(std::string_view key, double value) {
    return Raw(key, NumberToText(value));
}
JsonObject& JsonObject::Color(std::string_view key, std::uint32_t rgb) {
    return Raw(key, json::Quote(ColorText(rgb)));
}
JsonObject& JsonObject::Obj(std::string_view key, const JsonObject& value) {
    return Raw(key, value.Text());
}
JsonObject& JsonObject::Arr(std::string_view key, const JsonArray& value) {
    return Raw(key, value.Text());
}

JsonArray& JsonArray::Raw(const std::string& json) {
    if (!body_.empty()) body_ += ", ";
    body_ += json;
    return *this;
}

JsonArray& JsonArray::Str(std::string_view value) {
    return Raw(json::Quote(value));
}
JsonArray& JsonArray::Bool(bool value) {
    return Raw(value ? "true" : "false");
}
JsonArray& JsonArray::Int(std::int64_t value) {
    return Raw(IntegerToText(value));
}
JsonArray& JsonArray::Num(double value) {
    return Raw(NumberToText(value));
}
JsonArray& JsonArray::Obj(const JsonObject& value) {
    return Raw(value.Text());
}
JsonArray& JsonArray::Arr(const JsonArray& value) {
    return Raw(value.Text());
}

JsonArray StringArray(const std::vector<std::string>& items) {
    JsonArray array;
    for (const std::string& item : items)
        array.Str(item);
    return array;
}

}  // namespace tabulon::cli::session
