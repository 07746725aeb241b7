// The lines are read by nlohmann-json's strict parser through its event interface, so
// members keep their written order and numbers their literal text.
#include "session/json_lines.h"

#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

namespace tabulon::testing {

namespace {

const JsonValue kNull;

using Json = nlohmann::json;

// Builds one JsonValue from the parser's events.
class ValueBuilder : public nlohmann::json_sax<Json> {
public:
    JsonValue result;

    bool null() override {
        Add(JsonValue::Type::Null);
        return true;
    }
    bool boolean(bool value) override {
        Add(JsonValue::Type::Bool).boolean = value;
        return true;
    }
    bool number_integer(number_integer_t value) override {
        return Number(static_cast<double>(value), std::to_string(value));
    }
    bool number_unsigned(number_unsigned_t value) override {
        return Number(static_cast<double>(value), std::to_string(value));
    }
    bool number_float(number_float_t value, const string_t& literal) override {
        return Number(value, literal);
    }
    bool string(string_t& value) override {
        Add(JsonValue::Type::String).text = std::move(value);
        return true;
    }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override {
        open_.push_back(&Add(JsonValue::Type::Object));
        return true;
    }
    bool key(string_t& name) override {
        key_ = std::move(name);
        return true;
    }
    bool end_object() override {
        open_.pop_back();
        return true;
    }
    bool start_array(std::size_t) override {
        open_.push_back(&Add(JsonValue::Type::Array));
        return true;
    }
    bool end_array() override {
        open_.pop_back();
        return true;
    }
    bool parse_error(std::size_t, const std::string&,
                     const nlohmann::detail::exception& failure) override {
        throw std::runtime_error(failure.what());
    }

private:
    // A new value in the innermost open object or array, or the result itself. The
    // parent stays put while it is open: its own parent gets nothing new meanwhile.
    JsonValue& Add(JsonValue::Type type) {
        JsonValue* value = &result;
        if (!open_.empty()) {
            JsonValue& parent = *open_.back();
            if (parent.type == JsonValue::Type::Object) {
                value = &parent.members.emplace_back(key_, JsonValue{}).second;
            } else {
                value = &parent.items.emplace_back();
            }
        }
        value->type = type;
        return *value;
    }
    bool Number(double value, std::string literal) {
        JsonValue& number = Add(JsonValue::Type::Number);
        number.number = value;
        number.text = std::move(literal);
        return true;
    }

    std::vector<JsonValue*> open_;
    std::string key_;
};

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
            ValueBuilder builder;
            Json::sax_parse(line, &builder);
            values.push_back(std::move(builder.result));
        } catch (const std::exception& error) {
            JsonValue bad;
            bad.parseError = std::string(error.what()) + ": " + line;
            values.push_back(bad);
        }
    }
    return values;
}

}  // namespace tabulon::testing
