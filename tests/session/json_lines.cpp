#include "session/json_lines.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

namespace tabulon::testing {

namespace {

const JsonValue kNull;

// ordered_json keeps the members in their written order.
using Json = nlohmann::ordered_json;

JsonValue Convert(const Json& json) {
    JsonValue value;
    if (json.is_boolean()) {
        value.boolean = json.get<bool>();
    } else if (json.is_number()) {
        value.number = json.get<double>();
        value.text = json.dump();
    } else if (json.is_string()) {
        value.text = json.get<std::string>();
    } else if (json.is_array()) {
        for (const Json& item : json)
            value.items.push_back(Convert(item));
    } else if (json.is_object()) {
        for (const auto& [key, member] : json.items())
            value.members.emplace_back(key, Convert(member));
    }
    return value;
}

}  // namespace

bool JsonValue::has(const std::string& key) const {
    return &(*this)[key] != &kNull;
}

const JsonValue& JsonValue::operator[](const std::string& key) const {
    for (const auto& member : members) {
        if (member.first == key) return member.second;
    }
    return kNull;
}

const JsonValue& JsonValue::operator[](std::size_t index) const {
    return index < items.size() ? items[index] : kNull;
}

std::string JsonValue::keyList() const {
    std::string joined;
    for (const auto& member : members)
        joined += (joined.empty() ? "" : " ") + member.first;
    return joined;
}

std::vector<JsonValue> ParseJsonLines(const std::string& text) {
    std::vector<JsonValue> values;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (line.empty()) continue;
        const Json json = Json::parse(line, nullptr, false);
        EXPECT_FALSE(json.is_discarded()) << "not JSON: " << line;
        values.push_back(Convert(json));
    }
    return values;
}

}  // namespace tabulon::testing
