#include "document/document_model.h"

#include "support/failure.h"

namespace tabulon {

namespace {

std::size_t Offset(int row, int col, int upperRow, int upperCol) {
    if (row < 0 || row > upperRow || col < 0 || col > upperCol) {
        throw InvalidArgumentFailure("Subscript out of range");
    }
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(upperCol + 1) +
           static_cast<std::size_t>(col);
}

}  // namespace

void CellNodeTable::reset(int upperRow, int upperCol) {
    nodes_.clear();
    if (upperRow < 0 || upperCol < 0) {
        upperRow_ = -1;
        upperCol_ = -1;
        return;
    }
    upperRow_ = upperRow;
    upperCol_ = upperCol;
    nodes_.resize(static_cast<std::size_t>(upperRow + 1) * static_cast<std::size_t>(upperCol + 1));
}

xml::Node& CellNodeTable::at(int row, int col) {
    return nodes_[Offset(row, col, upperRow_, upperCol_)];
}

const xml::Node& CellNodeTable::at(int row, int col) const {
    return nodes_[Offset(row, col, upperRow_, upperCol_)];
}

}  // namespace tabulon
