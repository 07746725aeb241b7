// The CellValues elements of every value column, by GridValueKey.
//
// A node selection looks a key up once per column it shows; the cost must not grow
// with the document. One hash look-up finds the key's slot, and the matches of all
// columns for that key lie side by side in one flat array (grouped by key, then by
// column, each group in document order), so a selection touches a few cache lines
// however many keys the document holds.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/xml/xml_document.h"

namespace tabulon {

class CellValuesIndex {
public:
    // Indexes the element children of each GridValue of gridValues under their trimmed
    // GridValueKey; other children are left out. O(document).
    void Build(const std::vector<xml::Node>& gridValues);
    void clear();

    // The number of columns indexed by the last Build (0 when cleared).
    std::size_t columns() const { return columns_; }

    // The CellValues of column (index into the gridValues of Build) whose trimmed key
    // is key, in document order; empty for an unknown key or column.
    std::span<const xml::Node> matching(std::size_t column, const std::string& key) const;

private:
    std::unordered_map<std::string, std::uint32_t> slots_;
    std::size_t columns_ = 0;
    // For slot s and column c, nodes_[offsets_[s * columns_ + c] ..
    // offsets_[s * columns_ + c + 1]).
    std::vector<std::uint32_t> offsets_;
    std::vector<xml::Node> nodes_;
};

}  // namespace tabulon
