#include "document/cell_values_index.h"

#include "support/text.h"

namespace tabulon {

void CellValuesIndex::Build(const std::vector<xml::Node>& gridValues) {
    clear();
    columns_ = gridValues.size();

    // First the slot of every element in document order, column by column; then a
    // stable counting sort into groups by (slot, column).
    struct Entry {
        std::uint32_t group;
        xml::Node node;
    };
    std::vector<Entry> entries;
    for (std::size_t c = 0; c < columns_; ++c) {
        for (xml::Node cellValues = gridValues[c].firstChild(); cellValues;
             cellValues = cellValues.nextSibling()) {
            if (cellValues.type() != xml::NodeType::Element) continue;
            const auto [it, added] =
                slots_.try_emplace(Trim(cellValues.attribute("GridValueKey").value()),
                                   static_cast<std::uint32_t>(slots_.size()));
            const std::size_t group = it->second * columns_ + c;
            entries.push_back({static_cast<std::uint32_t>(group), cellValues});
        }
    }

    offsets_.assign(slots_.size() * columns_ + 1, 0);
    for (const Entry& entry : entries)
        ++offsets_[entry.group + 1];
    for (std::size_t g = 1; g < offsets_.size(); ++g)
        offsets_[g] += offsets_[g - 1];
    nodes_.resize(entries.size());
    std::vector<std::uint32_t> next(offsets_.begin(), offsets_.end() - 1);
    for (const Entry& entry : entries)
        nodes_[next[entry.group]++] = entry.node;
}

void CellValuesIndex::clear() {
    slots_.clear();
    columns_ = 0;
    offsets_.clear();
    nodes_.clear();
}

std::span<const xml::Node> CellValuesIndex::matching(std::size_t column,
                                                     const std::string& key) const {
    if (column >= columns_) return {};
    const auto it = slots_.find(key);
    if (it == slots_.end()) return {};
    const std::size_t group = it->second * columns_ + column;
    return std::span<const xml::Node>(nodes_).subspan(offsets_[group],
                                                      offsets_[group + 1] - offsets_[group]);
}

}  // namespace tabulon
