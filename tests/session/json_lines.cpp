// Each line is read by nlohmann-json's strict parser into an ordered_json, so members
// keep their written order.
#include "session/json_lines.h"

#include <nlohmann/json.hpp>
#include <sstream>

namespace tabulon::testing {

namespace {

const JsonValue kNull;

using Json = nlohmann::ordered_json;

JsonValue Convert(const Json& json) {
    JsonValue value;
    if (json.is_boolean()) {
        value.type = JsonValue::Type::Bool;
        value.boolean = json.get<bool>();
    } else if (json.is_number()) {
        value.type = JsonValue::Type::Number;
        value.number = json.get<double>();
        value.text = json.dump();
    } else if (json.is_string()) {
        value.type = JsonValue::Type::String;
        value.text = json.get<std::string>();
    } else if (json.is_array()) {
        value.type = JsonValue::Type::Array;
        for (const Json& item : json)
            value.items.push_back(Convert(item));
    } else if (json.is_object()) {
        value.type = JsonValue::Type::Object;
        for (const auto& [key, member] : json.items())
            value.members.emplace_back(key, Convert(member));
    }
    return value;
}

}  // namespace

bool JsonValue::has(const std::string& key) const {
    for (const auto& member : members) {
        if (member.first == key) return true;
    }
    return false;
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

std::vector<std::string> JsonValue::keys() const {
    std::vector<std::string> names;
    for (const auto& member : members)
        names.push_back(member.first);
    return names;
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
    std::string line;
    while (std::getline(lines, line)) {
        if (line.empty()) continue;
        try {
            values.push_back(Convert(Json::parse(line)));
        } catch (const Json::parse_error& error) {
            JsonValue bad;
            bad.parseError = std::string(error.what()) + ": " + line;
            values.push_back(bad);
        }
    }
    return values;
}

}  // namespace tabulon::testing
