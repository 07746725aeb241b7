#include "support/json.h"

#include <stdexcept>

namespace tabulon::json {

// Placeholder until the JSON module lands.
std::string Quote(std::string_view text) { return "\"" + std::string(text) + "\""; }
std::map<std::string, FlatValue> ParseFlatObject(std::string_view) {
    throw std::runtime_error("not implemented");
}
std::string WriteFlatObject(const std::map<std::string, FlatValue>&) { return "{}"; }

}  // namespace tabulon::json
