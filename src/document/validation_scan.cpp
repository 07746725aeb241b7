#include "document/validation_scan.h"

#include "support/failure.h"

namespace tabulon {

namespace {

bool UpToDate(const ValidityIndex& index, const DocumentModel& doc) {
    return index.built && index.structure == xml::StructureVersion() &&
           index.gridValues == doc.arrGridValueNodes;
}

}  // namespace

void GatherValidityIndex(DocumentModel& doc) {
    ValidityIndex& index = doc.validityIndex;
    index.built = false;
    index.structure = xml::StructureVersion();
    index.gridValues = doc.arrGridValueNodes;
    index.columns.clear();
    index.rows.clear();
    for (std::size_t i = 0; i < doc.arrGridValueNodes.size(); ++i) {
        for (xml::Node column = doc.arrGridValueNodes[i].firstChild(); column;
             column = column.nextSibling()) {
            if (column.type() != xml::NodeType::Element) continue;
            const std::size_t first = index.rows.size();
            for (xml::Node row = column.firstChild(); row; row = row.nextSibling()) {
                index.rows.push_back(
                    {row.attribute("Valid"), row.type() == xml::NodeType::Element});
            }
            index.columns.push_back({i, column, first, index.rows.size() - first});
        }
    }
    index.built = true;
}

// Runs over every CellValue of a large document on each OK and View/Print, so it reads
// only the flags, through the handles kept in the index, and allocates nothing: the key
// is copied once, for the invalid cell.
void EnsureValidityIndex(DocumentModel& doc) {
    if (!UpToDate(doc.validityIndex, doc)) GatherValidityIndex(doc);
}

std::optional<InvalidCell> FindFirstInvalidCell(DocumentModel& doc) {
    EnsureValidityIndex(doc);
    const ValidityIndex& index = doc.validityIndex;
    for (const ValidityIndex::Column& column : index.columns) {
        for (std::size_t r = 0; r < column.rowCount; ++r) {
            const ValidityIndex::Row& row = index.rows[column.firstRow + r];
            if (row.valid.value() == "1") continue;
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
    return std::nullopt;
}

}  // namespace tabulon
