#include "session/json_file_property_bag.h"

#include <type_traits>

#include "platform/file_io.h"
#include "session/json.h"
#include "support/atomic_file.h"
#include "support/failure.h"

namespace tabulon {

namespace {

// Bag files are a few hundred bytes; anything near this is not one.
constexpr std::size_t kMaxBagBytes = 16u * 1024u * 1024u;

}  // namespace

JsonFilePropertyBag JsonFilePropertyBag::Load(const std::string& path) {
    JsonFilePropertyBag bag;
    try {
        bag.values() = json::ParseFlatObject(ReadRegularFile(path, kMaxBagBytes));
    } catch (const std::runtime_error& failure) {
        throw RuntimeFailure("Cannot read property bag '" + path + "': " + failure.what());
    }
    return bag;
}

std::string JsonFilePropertyBag::ToJson() const {
    // The bag's values are JSON's flat values: same alternatives, same order.
    static_assert(std::is_same_v<PropertyValue, json::FlatValue>);
    return json::WriteFlatObject(values());
}

void JsonFilePropertyBag::Save(const std::string& path) const {
    std::string reason;
    if (!WriteFileAtomically(path, ToJson() + "\n", &reason)) {
        throw RuntimeFailure("Cannot save property bag '" + path + "': " + reason);
    }
}

}  // namespace tabulon
