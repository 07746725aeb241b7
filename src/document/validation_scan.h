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
// element (a comment) throws RuntimeFailure. Decision: the rows are not looked up in
// the document on every scan but kept in doc.validityIndex, whose flags are read live;
// when the index is out of date (the document changed shape, see
// xml::StructureVersion, or the value columns are others) the scan gathers it anew
// first. Allocates nothing per cell otherwise. A scan that finds every row valid is
// remembered until any attribute value is set (xml::AttributeValuesVersion), so that
// the gate on a large document answers at once while nothing changed.
std::optional<InvalidCell> FindFirstInvalidCell(DocumentModel& doc);

// Sets a cell's Valid flag as a commit does. Setting it to "1" in a document already
// known to be valid keeps it known, so the next gate need not read every flag again.
void SetValidFlag(DocumentModel& doc, xml::Node cell, bool valid);

// Gathers doc.validityIndex from arrGridValueNodes, whatever the rows hold (the scan
// judges them), noting whether every row is valid. Loading does it, so that the first
// scan after a load is as quick as the others. Failures other than running out of
// memory cannot occur.
void GatherValidityIndex(DocumentModel& doc);

// Gathers doc.validityIndex only when it is out of date (see FindFirstInvalidCell).
void EnsureValidityIndex(DocumentModel& doc);

}  // namespace tabulon
