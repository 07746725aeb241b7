#include "document/validation_scan.h"

#include "support/failure.h"

namespace tabulon {

// Runs over every CellValue of a large document on each OK and View/Print, so it
// walks the DOM through handles only and allocates nothing per cell: the key is
// copied once, for the invalid cell.
std::optional<InvalidCell> FindFirstInvalidCell(const DocumentModel& doc) {
    for (std::size_t i = 0; i < doc.arrGridValueNodes.size(); ++i) {
        for (xml::Node column = doc.arrGridValueNodes[i].firstChild(); column;
             column = column.nextSibling()) {
            if (column.type() != xml::NodeType::Element) continue;
            int row = 0;
            for (xml::Node cell = column.firstChild(); cell; cell = cell.nextSibling()) {
                ++row;
                if (cell.attribute("Valid").value() == "1") continue;
                // Every child counts as a row; one that is not an element has no
                // Valid flag to read, which is a failure of the scan.
                if (cell.type() != xml::NodeType::Element) {
                    throw RuntimeFailure("Object doesn't support this property or method");
                }
                return InvalidCell{i, std::string(column.attribute("GridValueKey").value()), row};
            }
        }
    }
    return std::nullopt;
}

}  // namespace tabulon
