// JsonFilePropertyBag: the session tool's property bag, kept in a JSON file (one flat
// object of key -> boolean, number or string). Load throws RuntimeFailure with the
// path and a readable reason (with the line and column for malformed text) for a
// missing, unreadable or malformed file; Save writes atomically (a temporary file beside the
// target, then rename) and throws RuntimeFailure when it cannot, leaving the target as
// it was.
#pragma once

#include <string>

#include "platform/property_bag.h"

namespace tabulon {

class JsonFilePropertyBag : public MemoryPropertyBag {
public:
    static JsonFilePropertyBag Load(const std::string& path);
    void Save(const std::string& path) const;
    // The file's content: the values as one flat JSON object, keys sorted, one per line
    // indented by two spaces ("{}" when empty), without a final line break. A double
    // that is not finite throws std::invalid_argument.
    std::string ToJson() const;
};

}  // namespace tabulon
