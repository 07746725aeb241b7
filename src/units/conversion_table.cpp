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

// The thread's table. A plain pointer, which has no destructor, so that it can still be
// read after the thread's destructors have run: a control held in a static is
// destroyed during process exit, after them, and its termination releases the table
// again. TableOwner frees the table when the thread ends and leaves null behind.
thread_local ConversionTable* gcolConversion = nullptr;

struct TableOwner {
    bool armed = false;
    ~TableOwner() {
        delete gcolConversion;
        gcolConversion = nullptr;
    }
};
thread_local TableOwner tTableOwner;

// Replaces the thread's table (null: none).
void ReplaceTable(std::unique_ptr<ConversionTable> table) {
    tTableOwner.armed = true;  // the first use on a thread registers its destructor
    delete gcolConversion;
    gcolConversion = table.release();
}

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
    ReplaceTable(std::move(table));
}

void ReleaseConversionTable() {
    delete gcolConversion;
    gcolConversion = nullptr;
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
