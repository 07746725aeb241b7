// Decisions:
// - The file is read by nlohmann-json's strict parser (RFC 8259, valid UTF-8, no
//   comments), through its event interface, so the rules of a flat bag apply while
//   reading: null, arrays and nested objects are refused, and so is a key given twice
//   (a JSON object may repeat keys; a bag that does would depend on which one wins).
// - Integers become int64; one beyond int64 (nlohmann reads it unsigned) becomes a
//   double, as a number with a fraction or exponent does.
// - The file is written by nlohmann-json: keys sorted, two-space indent, each double
//   in its shortest text that reads back as the same double and as a double ("2.0").
//   A double that is not finite has no JSON text and is refused.
#include "session/json_file_property_bag.h"

#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <string_view>

#include "platform/file_io.h"
#include "support/atomic_file.h"
#include "support/failure.h"

namespace tabulon {

namespace {

// Bag files are a few hundred bytes; anything near this is not one.
constexpr std::size_t kMaxBagBytes = std::size_t{16} * 1024 * 1024;

using Json = nlohmann::json;

// nlohmann's message without its "[json.exception.parse_error.101] " tag.
std::string Reason(const std::exception& failure) {
    const std::string_view what = failure.what();
    const std::size_t tagEnd = what.find("] ");
    return std::string(
        what.front() == '[' && tagEnd != std::string_view::npos ? what.substr(tagEnd + 2) : what);
}

// Builds the bag's values from the parser's events, refusing what a flat bag is not.
class FlatObjectReader : public nlohmann::json_sax<Json> {
public:
    explicit FlatObjectReader(std::map<std::string, PropertyValue>& values) : values_(values) {}

    bool null() override { Refuse("null is not a setting's value"); }
    bool boolean(bool value) override { return Store(value); }
    bool number_integer(number_integer_t value) override { return Store(std::int64_t{value}); }
    bool number_unsigned(number_unsigned_t value) override {
        if (value <= static_cast<number_unsigned_t>(std::numeric_limits<std::int64_t>::max())) {
            return Store(static_cast<std::int64_t>(value));
        }
        return Store(static_cast<double>(value));
    }
    bool number_float(number_float_t value, const string_t&) override { return Store(value); }
    bool string(string_t& value) override { return Store(std::move(value)); }
    bool binary(binary_t&) override { Refuse("binary values are not JSON text"); }
    bool start_object(std::size_t) override {
        if (inObject_) Refuse("a setting's value cannot be an object");
        inObject_ = true;
        return true;
    }
    bool key(string_t& name) override {
        if (!seen_.insert(name).second) Refuse("the key \"" + name + "\" is given twice");
        key_ = std::move(name);
        return true;
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t) override {
        Refuse(inObject_ ? "a setting's value cannot be an array" : "expected an object");
    }
    bool end_array() override { return true; }
    bool parse_error(std::size_t, const std::string&,
                     const nlohmann::detail::exception& failure) override {
        throw std::runtime_error(Reason(failure));
    }

private:
    [[noreturn]] static void Refuse(const std::string& why) { throw std::runtime_error(why); }

    bool Store(PropertyValue value) {
        if (!inObject_) Refuse("expected an object");
        values_.insert_or_assign(key_, std::move(value));
        return true;
    }

    std::map<std::string, PropertyValue>& values_;
    std::set<std::string> seen_;
    std::string key_;
    bool inObject_ = false;
};

Json AsJson(const PropertyValue& value) {
    if (const double* number = std::get_if<double>(&value); number && !std::isfinite(*number)) {
        throw std::invalid_argument("a number that is not finite has no JSON text");
    }
    return std::visit([](const auto& v) { return Json(v); }, value);
}

}  // namespace

JsonFilePropertyBag JsonFilePropertyBag::Load(const std::string& path) {
    JsonFilePropertyBag bag;
    try {
        const std::string text = ReadRegularFile(path, kMaxBagBytes);
        FlatObjectReader reader(bag.values());
        Json::sax_parse(text, &reader);
    } catch (const std::runtime_error& failure) {
        throw RuntimeFailure("Cannot read property bag '" + path + "': " + failure.what());
    }
    return bag;
}

std::string JsonFilePropertyBag::ToJson() const {
    Json object = Json::object();
    for (const auto& [key, value] : values())
        object[key] = AsJson(value);
    // Text that is not UTF-8 is written with U+FFFD, as the session's output is.
    return object.dump(2, ' ', false, Json::error_handler_t::replace);
}

void JsonFilePropertyBag::Save(const std::string& path) const {
    std::string reason;
    if (!WriteFileAtomically(path, ToJson() + "\n", &reason)) {
        throw RuntimeFailure("Cannot save property bag '" + path + "': " + reason);
    }
}

}  // namespace tabulon
