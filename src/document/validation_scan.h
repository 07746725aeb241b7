// The scan behind the saving gate: the first CellValue whose Valid is not exactly
// "1", in GridValue order, then CellValues order, then row order.
#pragma once

#include <optional>
#include <string>

#include "document/document_model.h"

namespace tabulon {

struct InvalidCell {
    std::size_t gridValue = 0;  // index into arrGridValueNodes (grid column - 1)
    std::string key;            // GridValueKey of its CellValues
    int row = 0;                // 1-based position among the CellValues' children
};

// Scans the whole document; nullopt when every value is valid. Only element children
// of a GridValue are columns; every child of a column is a row, and one that is not an
// element (a comment) throws RuntimeFailure. Allocates nothing per cell.
std::optional<InvalidCell> FindFirstInvalidCell(const DocumentModel& doc);

}  // namespace tabulon
