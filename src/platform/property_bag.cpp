#include "platform/property_bag.h"

#include <optional>

#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"

namespace tabulon {

namespace {

// The number a text stands for, or none when it does not convert.
std::optional<double> TextAsNumber(const std::string& text) {
    const std::string trimmed = Trim(text);
    if (EqualsIgnoreCase(trimmed, "True")) return -1.0;
    if (EqualsIgnoreCase(trimmed, "False")) return 0.0;
    const std::size_t length = NumericPrefixLength(trimmed);
    if (length == 0 || length != trimmed.size()) return std::nullopt;
    return ReadNumber(trimmed);
}

double PropertyToNumber(const PropertyValue& value) {
    if (const bool* b = std::get_if<bool>(&value)) return *b ? -1.0 : 0.0;
    if (const std::int64_t* i = std::get_if<std::int64_t>(&value)) return static_cast<double>(*i);
    if (const double* d = std::get_if<double>(&value)) return *d;
    const std::optional<double> number = TextAsNumber(std::get<std::string>(value));
    if (!number) throw RuntimeFailure("Type mismatch");
    return *number;
}

}  // namespace

bool PropertyToBool(const PropertyValue& value) {
    if (const bool* b = std::get_if<bool>(&value)) return *b;
    return PropertyToNumber(value) != 0.0;
}

std::int32_t PropertyToInt32(const PropertyValue& value) {
    return ToInt32(PropertyToNumber(value));
}

std::int16_t PropertyToInt16(const PropertyValue& value) {
    return ToInt16(PropertyToNumber(value));
}

std::string PropertyToString(const PropertyValue& value) {
    if (const bool* b = std::get_if<bool>(&value)) return *b ? "True" : "False";
    if (const std::int64_t* i = std::get_if<std::int64_t>(&value)) return IntegerToText(*i);
    if (const double* d = std::get_if<double>(&value)) return NumberToText(*d);
    return std::get<std::string>(value);
}

PropertyValue MemoryPropertyBag::Read(const std::string& key, const PropertyValue& defaultValue) {
    const auto it = values_.find(key);
    return it == values_.end() ? defaultValue : it->second;
}

void MemoryPropertyBag::Write(const std::string& key, const PropertyValue& value,
                              const PropertyValue& defaultValue) {
    if (value == defaultValue) {
        values_.erase(key);
    } else {
        values_.insert_or_assign(key, value);
    }
}

}  // namespace tabulon
