#include "units/conversion_table.h"

#include <memory>
#include <unordered_map>

#include "support/numeric.h"
#include "support/text.h"
#include "unitinput/unit_catalogue.h"

namespace tabulon {

namespace {

struct ConversionTable {
    std::unordered_map<std::string, std::int16_t, CaseInsensitiveHash, CaseInsensitiveEqual> codes;
    std::vector<std::string> order;  // names as added, for ConversionEntries

    void Add(std::string_view name, std::int16_t code) {
        const auto [it, added] = codes.emplace(std::string(name), code);
        if (!added) throw DuplicateConversionFailure(name);
        order.push_back(it->first);
    }
};

thread_local std::unique_ptr<ConversionTable> gcolConversion;

ConversionTable& RequireTable() {
    if (!gcolConversion) throw ConversionTableAbsentFailure();
    return *gcolConversion;
}

}  // namespace

UnknownConversionFailure::UnknownConversionFailure(std::string_view name)
    : RuntimeFailure("Unknown conversion name \"" + std::string(name) + "\"") {}

DuplicateConversionFailure::DuplicateConversionFailure(std::string_view name)
    : RuntimeFailure("Conversion name already present: \"" + std::string(name) + "\"") {}

ConversionTableAbsentFailure::ConversionTableAbsentFailure()
    : RuntimeFailure("No conversion table on this thread") {}

void BuildConversionTable() {
    auto table = std::make_unique<ConversionTable>();
    table->Add("", 0);
    for (const UnitConversion& row : BuiltInConversions()) {
        table->Add(row.name, static_cast<std::int16_t>(row.index));
    }
    gcolConversion = std::move(table);
}

void ReleaseConversionTable() {
    gcolConversion.reset();
}

bool HasConversionTable() {
    return gcolConversion != nullptr;
}

std::int16_t ConversionIndex(std::string_view name) {
    const ConversionTable& table = RequireTable();
    const auto it = table.codes.find(std::string(name));
    if (it == table.codes.end()) throw UnknownConversionFailure(name);
    return it->second;
}

void AddConversion(std::string_view name, int index) {
    ConversionTable& table = RequireTable();
    table.Add(name, ToInt16(index));
}

std::vector<std::pair<std::string, std::int16_t>> ConversionEntries() {
    std::vector<std::pair<std::string, std::int16_t>> entries;
    if (!gcolConversion) return entries;
    entries.reserve(gcolConversion->order.size());
    for (const std::string& name : gcolConversion->order) {
        entries.emplace_back(name, gcolConversion->codes.at(name));
    }
    return entries;
}

}  // namespace tabulon
