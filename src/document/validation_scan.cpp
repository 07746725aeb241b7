#include "document/validation_scan.h"

#include "support/failure.h"

namespace tabulon {

namespace {

bool UpToDate(const ValidityIndex& index, const DocumentModel& doc) {
    return index.built && index.structure == xml::StructureVersion() &&
           index.gridValues == doc.arrGridValueNodes;
}

bool KnownValid(const ValidityIndex& index, const DocumentModel& doc) {
    return UpToDate(index, doc) && index.allValidAt == xml::AttributeValuesVersion();
}

bool Valid(const ValidityIndex::Row& row) {
    return row.valid.value() == "1";
}

}  // namespace

void GatherValidityIndex(DocumentModel& doc) {
    ValidityIndex& index = doc.validityIndex;
    index.built = false;
    index.structure = xml::StructureVersion();
    index.gridValues = doc.arrGridValueNodes;
    index.columns.clear();
    index.rows.clear();
    index.allValidAt.reset();
    bool allValid = true;
    for (std::size_t i = 0; i < doc.arrGridValueNodes.size(); ++i) {
        for (xml::Node column = doc.arrGridValueNodes[i].firstChild(); column;
             column = column.nextSibling()) {
            if (column.type() != xml::NodeType::Element) continue;
            const std::size_t first = index.rows.size();
            for (xml::Node row = column.firstChild(); row; row = row.nextSibling()) {
                index.rows.push_back(
                    {row.attribute("Valid"), row.type() == xml::NodeType::Element});
                allValid = allValid && Valid(index.rows.back());
            }
            index.columns.push_back({i, column, first, index.rows.size() - first});
        }
    }
    index.built = true;
    if (allValid) index.allValidAt = xml::AttributeValuesVersion();
}

void EnsureValidityIndex(DocumentModel& doc) {
    if (!UpToDate(doc.validityIndex, doc)) GatherValidityIndex(doc);
}

// Runs over every CellValue of a large document on each OK and View/Print, so it reads
// only the flags, through the handles kept in the index, and allocates nothing: the key
// is copied once, for the invalid cell.
std::optional<InvalidCell> FindFirstInvalidCell(DocumentModel& doc) {
    EnsureValidityIndex(doc);
    ValidityIndex& index = doc.validityIndex;
    if (KnownValid(index, doc)) return std::nullopt;
    for (const ValidityIndex::Column& column : index.columns) {
        for (std::size_t r = 0; r < column.rowCount; ++r) {
            const ValidityIndex::Row& row = index.rows[column.firstRow + r];
            if (Valid(row)) continue;
            // Every child counts as a row; one that is not an element has no Valid flag
            // to read, which is a failure of the scan.
            if (!row.element) {
                throw RuntimeFailure("Object doesn't support this property or method");
            }
            return InvalidCell{column.gridValue,
                               std::string(column.element.attribute("GridValueKey").value()),
                               static_cast<int>(r) + 1};
        }
    }
    index.allValidAt = xml::AttributeValuesVersion();
    return std::nullopt;
}

void SetValidFlag(DocumentModel& doc, xml::Node cell, bool valid) {
    ValidityIndex& index = doc.validityIndex;
    const bool known = KnownValid(index, doc);
    cell.setAttribute("Valid", valid ? "1" : "0");
    // Adding a missing flag changes the shape, and the index is gathered again anyway.
    if (known && valid && UpToDate(index, doc)) index.allValidAt = xml::AttributeValuesVersion();
}

}  // namespace tabulon
