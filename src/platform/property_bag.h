// PropertyBag: the host's keyed store of design-time settings. A value equal to
// its default need not be stored; reading a missing key gives the default.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <variant>

namespace tabulon {

using PropertyValue = std::variant<bool, std::int64_t, double, std::string>;

// Conversions applied when a stored value is read into a typed setting, as the
// platform's type conversion does. Failures are RuntimeFailure: "Type mismatch" for
// text that does not convert, OverflowFailure for numbers outside the target type.
//
// Text converts when, spaces trimmed, it is "True" or "False" (any case) or is
// wholly a number by the system's number rule ("12", " -3.5 ", "1e3"; not "12abc",
// not ""). Booleans read as numbers are -1 (true) and 0; numbers read as booleans
// are true unless 0. Integers round half to even and are range-checked.
bool PropertyToBool(const PropertyValue& value);
std::int32_t PropertyToInt32(const PropertyValue& value);
std::int16_t PropertyToInt16(const PropertyValue& value);
// Booleans give "True"/"False", numbers the number written as text.
std::string PropertyToString(const PropertyValue& value);

class PropertyBag {
public:
    virtual ~PropertyBag() = default;
    // The stored value of key, or defaultValue when none is stored.
    virtual PropertyValue Read(const std::string& key, const PropertyValue& defaultValue) = 0;
    // Stores value under key; when it equals defaultValue (same type and value) the
    // key is removed instead.
    virtual void Write(const std::string& key, const PropertyValue& value,
                       const PropertyValue& defaultValue) = 0;

    bool ReadBool(const std::string& key, bool def) { return PropertyToBool(Read(key, def)); }
    std::int32_t ReadInt32(const std::string& key, std::int32_t def) {
        return PropertyToInt32(Read(key, std::int64_t{def}));
    }
    std::int16_t ReadInt16(const std::string& key, std::int16_t def) {
        return PropertyToInt16(Read(key, std::int64_t{def}));
    }
    std::string ReadString(const std::string& key, const std::string& def) {
        return PropertyToString(Read(key, def));
    }
};

// A bag held in memory; keys kept sorted (insertion order is irrelevant).
class MemoryPropertyBag : public PropertyBag {
public:
    PropertyValue Read(const std::string& key, const PropertyValue& defaultValue) override;
    void Write(const std::string& key, const PropertyValue& value,
               const PropertyValue& defaultValue) override;

    const std::map<std::string, PropertyValue>& values() const { return values_; }
    std::map<std::string, PropertyValue>& values() { return values_; }

private:
    std::map<std::string, PropertyValue> values_;
};

}  // namespace tabulon
