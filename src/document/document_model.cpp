#include "document/document_model.h"

#include "support/failure.h"

namespace tabulon {

namespace {

void CheckIndices(int row, int col, int upperRow, int upperCol) {
    if (row < 0 || row > upperRow || col < 0 || col > upperCol) {
        throw InvalidArgumentFailure("Subscript out of range");
    }
}

}  // namespace

void CellNodeTable::reset(int upperRow, int upperCol) {
    columns_.clear();
    if (upperRow < 0 || upperCol < 0) {
        upperRow_ = -1;
        upperCol_ = -1;
        return;
    }
    upperRow_ = upperRow;
    upperCol_ = upperCol;
    columns_.resize(static_cast<std::size_t>(upperCol) + 1);
}

xml::Node CellNodeTable::at(int row, int col) const {
    CheckIndices(row, col, upperRow_, upperCol_);
    const std::vector<xml::Node>& column = columns_[static_cast<std::size_t>(col)];
    const auto index = static_cast<std::size_t>(row);
    return index < column.size() ? column[index] : xml::Node();
}

void CellNodeTable::set(int row, int col, xml::Node node) {
    CheckIndices(row, col, upperRow_, upperCol_);
    std::vector<xml::Node>& column = columns_[static_cast<std::size_t>(col)];
    const auto index = static_cast<std::size_t>(row);
    if (index >= column.size()) {
        if (node.empty()) return;
        column.resize(index + 1);
    }
    column[index] = node;
}

}  // namespace tabulon
