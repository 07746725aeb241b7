// The loaded document and every table the control builds from it. One set per
// control instance; a new load replaces all of it (custom units in the per-thread
// conversion table stay, by design).
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "document/cell_values_index.h"
#include "document/editor_kind.h"
#include "document/tree_records.h"
#include "platform/xml/xml_document.h"
#include "support/file_stamp.h"

namespace tabulon {

// Editing rules of one grid row, from its RowHeader.
struct RowInfo {
    EditorKind ControlType = EditorKind::None;
    std::string Format;
    std::int16_t MaxLength = 0;
    std::string Unit;
    std::string MinVal;
    std::string MaxVal;
    std::string ListValues;
};

// arrCustomUnits: column 0 EUnit, 1 MUnit, 2 the factor as text.
using CustomUnitRow = std::array<std::string, 3>;

// The CellValue element behind each grid cell, indexed (row, column) from 0 with
// inclusive upper bounds as sized. An emptied table reports upper bounds of -1, so
// bound checks against it simply fail instead of erroring. Columns keep only the rows
// set (up to the last one), so the table grows with the CellValue elements shown, not
// with the size of the grid.
class CellNodeTable {
public:
    void reset(int upperRow, int upperCol);
    void clear() { reset(-1, -1); }
    int upperBound1() const { return upperRow_; }
    int upperBound2() const { return upperCol_; }
    // Out-of-range indices throw InvalidArgumentFailure ("Subscript out of range"). A
    // cell never set reads as an empty node.
    xml::Node at(int row, int col) const;
    void set(int row, int col, xml::Node node);

private:
    int upperRow_ = -1;
    int upperCol_ = -1;
    std::vector<std::vector<xml::Node>> columns_;
};

// The Valid flag of every row of every value column, in the saving gate's order,
// gathered by its scan (validation_scan.h) and used again for as long as the document
// keeps its shape (xml::StructureVersion) and the value columns are the same. Flags
// are read live through the attribute handles, so edits of values need no rebuild.
struct ValidityIndex {
    struct Column {
        std::size_t gridValue = 0;  // index into arrGridValueNodes
        xml::Node element;          // the CellValues element
        std::size_t firstRow = 0;   // into rows
        std::size_t rowCount = 0;
    };
    struct Row {
        xml::Attribute valid;  // empty when the child has no Valid attribute
        bool element = false;  // whether the child is an element
    };

    bool built = false;
    std::uint64_t structure = 0;        // xml::StructureVersion() when built
    std::vector<xml::Node> gridValues;  // the arrGridValueNodes it was built from
    std::vector<Column> columns;
    std::vector<Row> rows;
    // xml::AttributeValuesVersion() when every row was last seen valid; while it holds,
    // the gate need not read the flags again.
    std::optional<std::uint64_t> allValidAt;
};

struct DocumentModel {
    std::unique_ptr<xml::Document> objXMLDoc;
    xml::Node objXMLRoot;
    xml::Node objTreeStructure;
    xml::Node objGridStructure;
    std::string strXMLPath;
    // The file at strXMLPath as it was read (or last saved), for the save's check that
    // it is still that file, unchanged.
    FileStamp xmlFileStamp;
    std::string strMeasurementUnit;
    std::vector<CustomUnitRow> arrCustomUnits;
    std::vector<std::string> arrGridHeaderKeys;
    std::vector<xml::Node> arrGridHeaderNodes;
    std::vector<xml::Node> arrGridValueNodes;

    // Tree records in document pre-order, always with one spare record at the end.
    TreeRecords udtTreeNodes;
    TreeNodeInfo udtCurrentNode;  // never cleared between nodes: attributes inherit
    std::int16_t intTreeLevel = 0;
    bool blnTreeImages = false;  // not reset by a new load

    // The grid now shown.
    std::vector<RowInfo> arrRowInfo;
    std::vector<std::int16_t> arrColWidths;
    CellNodeTable arrCellNodes;
    std::vector<xml::Node> arrColumnNodes;
    std::vector<std::string> colFilterValues;
    std::string strCurrentHeaderKey;
    std::string strCurrentValueKey;
    bool blnGridLoaded = false;
    // The tree node (1-based) whose selection filled the grid last; 0 before any.
    int shownTreeNode = 0;
    // The last value fill failed and emptied the value cells (its elements stay).
    bool valuesFillFailed = false;
    // A display pass over the grid shown ended at a fault, leaving cells unconverted.
    bool displayPassFaulted = false;

    // Of arrGridValueNodes; rebuilt lazily when stale (after a host event may have
    // changed the document).
    CellValuesIndex cellValuesIndex;
    bool cellValuesIndexStale = true;

    // Kept by the saving gate's scan; rebuilt by it when out of date.
    ValidityIndex validityIndex;

    // Real tree records (without the spare one).
    int treeRecordCount() const {
        return udtTreeNodes.empty() ? 0 : static_cast<int>(udtTreeNodes.size()) - 1;
    }
};

}  // namespace tabulon
