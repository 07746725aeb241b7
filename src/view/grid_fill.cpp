// Filling the grid for a node: layout, then values.
//
// Cells are written by address (setTextMatrix, setCellForeColor ...) instead of by
// making each cell current in turn and restoring the current cell afterwards. The
// result is the same: the current cell ends where it was, and every grid notification
// that moving it would raise is inert while blnGridLoaded is false, which it is for
// the whole fill.
//
// The CellValues of a column are found through DocumentModel::cellValuesIndex, so a
// fill costs O(rows x columns shown) however many other nodes the document holds; each
// column still applies every matching CellValues in document order, with the same
// messages as a scan of the GridValue's children would give.
//
// Decisions:
// - A CellValue without any child node reads as "".
// - A UnitDrop text whose "(" is its last character has no unit text to cut the
//   closing character from: that is a run-time failure of the column fill (1035).
// - The header and row lists are the child nodes of ColumnHeaders and RowHeaders as
//   the document model lists them; a comment among them has no attributes to read and
//   fails the layout (1028).
#include "view/grid_fill.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "document/document_reading.h"
#include "document/lookups.h"
#include "support/failure.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "support/scoped_value.h"
#include "view/cell_colors.h"
#include "view/cell_problems.h"
#include "view/design_geometry.h"
#include "view/layout_reading.h"
#include "view/unit_codes.h"
#include "view/unit_display.h"

namespace tabulon {

namespace {

// Every attribute of element in document order. A node without an attribute list
// (not an element) is a run-time failure, as reading its attributes would be.
template <class Visit>
void ForEachAttribute(xml::Node element, Visit&& visit) {
    if (element.type() != xml::NodeType::Element) {
        throw RuntimeFailure("Object variable not set");
    }
    const std::size_t count = element.attributeCount();
    for (std::size_t i = 0; i < count; ++i) {
        const xml::Attribute attribute = element.attribute(i);
        visit(attribute.name(), attribute.value());
    }
}

// The stored text of a CellValue: the value of its first child node.
std::string StoredText(xml::Node cellValue) {
    return std::string(cellValue.firstChild().value());
}

// Cell (r, c) as the English display of the CellValue behind it.
void ApplyCellValue(ControlCore& core, xml::Node cell, int r, int c) {
    FlexGrid& grid = core.form.msgGridView;
    const RowInfo& row = core.doc.arrRowInfo.at(static_cast<std::size_t>(r));
    grid.setTextMatrix(r, c, CellDisplayText(row, StoredText(cell)));
    grid.setCellAlignment(r, c, EditorKindInfo(row.ControlType).alignment);
    const bool enabled = GetAttributeValue(core.sink, cell, "Enabled") == "1";
    grid.setCellForeColor(r, c, CellTextColor(enabled));
    const bool valid = GetAttributeValue(core.sink, cell, "Valid") == "1";
    grid.setCellBackColor(r, c, CellBackColor(valid));
    grid.setCellNote(r, c, valid ? std::string() : ProblemNote(core, cell, row));
}

void ApplyCellValues(ControlCore& core, xml::Node cellValues, int c) {
    FlexGrid& grid = core.form.msgGridView;
    int r = 1;
    for (xml::Node cell = cellValues.firstChild(); cell && r < grid.rows();
         cell = cell.nextSibling(), ++r) {
        core.doc.arrCellNodes.set(r, c, cell);
        ApplyCellValue(core, cell, r, c);
    }
}

// The matching CellValues of gridValue when it is not the indexed element of that
// column (a caller outside the node fill): a plain scan of its children.
std::vector<xml::Node> ScanCellValues(ControlCore& core, xml::Node gridValue,
                                      const std::string& key) {
    std::vector<xml::Node> matching;
    for (xml::Node node = gridValue.firstChild(); node; node = node.nextSibling()) {
        if (GetAttributeValue(core.sink, node, "GridValueKey") == key) matching.push_back(node);
    }
    return matching;
}

}  // namespace

bool FillGridHeaders(ControlCore& core, const std::string& key) {
    return Guarded(core.sink, "1028", [&] {
        DocumentModel& doc = core.doc;
        Form& form = core.form;
        FlexGrid& grid = form.msgGridView;
        if (!doc.strCurrentHeaderKey.empty() && doc.strCurrentHeaderKey == key) return true;

        doc.arrRowInfo.clear();
        const std::int16_t found = FindArrayIndex(core.sink, doc.arrGridHeaderKeys, key);
        if (found == -1) {
            grid.setCols(0);
            grid.setRows(0);
            form.hscGrid.SetLeftMargin(0);
            form.hscGrid.SetScrollEnabled(false);
            form.vscGrid.SetTopMargin(0);
            form.vscGrid.SetScrollEnabled(false);
            form.cboFilter.setEnabled(false);
            form.cboFilter.setText(std::string(design::kFilterAll));
            doc.strCurrentHeaderKey.clear();
            doc.strCurrentValueKey.clear();
            core.sink.Information("Grid header key '" + key + "' not found in XML.");
            return false;
        }

        doc.strCurrentHeaderKey = key;
        const xml::Node header = doc.arrGridHeaderNodes.at(static_cast<std::size_t>(found));
        const std::vector<xml::Node> cols = header.firstChildElement("ColumnHeaders").children();
        const std::vector<xml::Node> rows = header.firstChildElement("RowHeaders").children();

        // A layout too large for the grid (or for the 16-bit row and column numbers) is
        // refused before anything is sized.
        if (!GridCanHold(rows.size() + 1, cols.size())) throw RuntimeFailure("Out of memory");
        grid.setCols(0);
        grid.setRows(0);
        grid.setCols(static_cast<int>(cols.size()));
        grid.setRows(static_cast<int>(rows.size()) + 1);
        grid.setFixedRows(1);
        grid.setFixedCols(1);

        doc.arrColWidths.assign(cols.size() + 1, 0);
        for (std::size_t i = 0; i < cols.size(); ++i) {
            const int c = static_cast<int>(i);
            ForEachAttribute(cols[i], [&](std::string_view name, std::string_view value) {
                if (name == "HName") {
                    grid.setTextMatrix(0, c, std::string(value));
                } else if (name == "Width") {
                    // A value column with a width starts hidden until the filter shows it.
                    grid.setColWidth(c, c == 0 ? ReadInt32(value) : 0);
                    doc.arrColWidths[i] = ReadInt16(value);
                }
            });
            if (doc.arrColWidths[i] == 0) {
                doc.arrColWidths[i] = ToInt16(static_cast<double>(grid.colWidth(c)));
            }
        }

        doc.arrRowInfo.assign(rows.size() + 1, RowInfo{});
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::int16_t row = ToInt16(static_cast<double>(i) + 1);
            if (!ReadRowHeader(core, rows[i], row)) return false;
        }
        return true;
    });
}

bool ReadRowHeader(ControlCore& core, xml::Node rowHeader, std::int16_t row) {
    return Guarded(core.sink, "1029", [&] {
        FlexGrid& grid = core.form.msgGridView;
        RowInfo info;
        std::int16_t height = 0;
        ForEachAttribute(rowHeader, [&](std::string_view name, std::string_view value) {
            if (name == "HName") {
                grid.setTextMatrix(row, 0, std::string(value));
            } else if (name == "Height") {
                height = ReadInt16(value);
            } else {
                ApplyRowAttribute(info, name, value);
            }
        });
        grid.setRowHeight(
            row, std::max<std::int32_t>(height, EditorKindInfo(info.ControlType).minRowHeight));
        core.doc.arrRowInfo.at(static_cast<std::size_t>(row)) = std::move(info);
        return true;
    });
}

bool FillGridValues(ControlCore& core, const std::string& key) {
    return Guarded(core.sink, "1030", [&] {
        DocumentModel& doc = core.doc;
        FlexGrid& grid = core.form.msgGridView;
        bool ok = true;
        doc.blnGridLoaded = false;
        if (!doc.strCurrentValueKey.empty() && doc.strCurrentValueKey == key) {
            doc.blnGridLoaded = true;
            return true;
        }
        doc.strCurrentValueKey = key;
        doc.valuesFillFailed = false;
        doc.displayPassFaulted = false;
        if (grid.cols() < 2 || grid.rows() < 2) {
            doc.arrCellNodes.clear();
            return true;
        }

        doc.arrCellNodes.reset(grid.rows() - 1, grid.cols() - 1);
        doc.colFilterValues.clear();
        std::int16_t c = 1;
        for (const xml::Node& gridValue : doc.arrGridValueNodes) {
            if (c > grid.cols()) break;
            if (!FillGridColumn(core, gridValue, c, key)) {
                ok = false;
                doc.valuesFillFailed = true;
                ClearGridCells(core);
                break;
            }
            c = ToInt16(static_cast<double>(c) + 1);
        }

        if (doc.strMeasurementUnit == "METRIC") ConvertGridUnits(core, 0);
        doc.blnGridLoaded = true;
        return ok;
    });
}

bool FillGridColumn(ControlCore& core, xml::Node gridValue, std::int16_t c,
                    const std::string& key) {
    return Guarded(core.sink, "1035", [&] {
        DocumentModel& doc = core.doc;
        FlexGrid& grid = core.form.msgGridView;
        bool found = false;
        bool handled = false;

        // Column c shows GridValue c - 1; any other element is scanned directly.
        const auto position = static_cast<std::size_t>(c) - 1;
        std::vector<xml::Node> scanned;
        const bool indexed = c >= 1 && position < doc.arrGridValueNodes.size() &&
                             doc.arrGridValueNodes[position] == gridValue;
        if (!indexed) scanned = ScanCellValues(core, gridValue, key);
        const std::span<const xml::Node> matching =
            indexed ? MatchingCellValues(core, position, key) : std::span<const xml::Node>(scanned);

        for (const xml::Node& cellValues : matching) {
            found = true;
            const std::string filterValue = GetAttributeValue(core.sink, cellValues, "FilterValue");
            if (!filterValue.empty() &&
                FindItemIndex(core.sink, doc.colFilterValues, filterValue) == -1) {
                doc.colFilterValues.push_back(filterValue);
            }
            doc.arrColumnNodes.at(static_cast<std::size_t>(c)) = cellValues;
            if (c >= grid.cols()) {
                core.sink.Information("Less column defined in 'ColumnHeaders' element");
                handled = true;
                continue;
            }
            ApplyCellValues(core, cellValues, c);
            handled = true;
        }

        if (!found) core.sink.Information("Grid value key '" + key + "' not found in XML");
        if (!handled) {
            for (int r = 1; r < grid.rows(); ++r)
                grid.setTextMatrix(r, c, "");
        }
        return handled;
    });
}

bool RefillColumn(ControlCore& core, std::int16_t c) {
    DocumentModel& doc = core.doc;
    const xml::Node gridValue = doc.arrGridValueNodes.at(static_cast<std::size_t>(c) - 1);
    doc.blnGridLoaded = false;
    const FlexGrid::QuietCells quiet(core.form.msgGridView);
    const bool filled = FillGridColumn(core, gridValue, c, doc.strCurrentValueKey);
    doc.blnGridLoaded = filled;
    if (filled && MetricDocument(core)) ConvertGridUnits(core, c);
    return filled;
}

bool RefreshCells(ControlCore& core, std::int16_t c, std::span<const xml::Node> elements) {
    DocumentModel& doc = core.doc;
    FlexGrid& grid = core.form.msgGridView;
    if (doc.displayPassFaulted || c < 1 || c > doc.arrCellNodes.upperBound2()) return false;
    // A set: an undone paste may bring back thousands of cells of a long column.
    const std::unordered_set<xml::Node, xml::Node::Hash> changed(elements.begin(), elements.end());
    // Rows in order, so that a failing cell is the one the refill would fail at first.
    std::vector<std::pair<int, int>> cells;
    for (int r = 1; r < grid.rows() && r <= doc.arrCellNodes.upperBound1(); ++r) {
        const xml::Node shown = doc.arrCellNodes.at(r, c);
        if (shown && changed.contains(shown)) cells.emplace_back(r, c);
    }
    const ScopedValue<bool> quiet(doc.blnGridLoaded, false);
    try {
        for (const auto& [r, col] : cells)
            ApplyCellValue(core, doc.arrCellNodes.at(r, col), r, col);
    } catch (...) {
        return false;
    }
    return !MetricDocument(core) || ConvertGridCells(core, cells);
}

std::string CellDisplayText(const RowInfo& row, const std::string& t) {
    if (row.ControlType == EditorKind::UnitDrop) {
        const std::size_t open = t.find('(');
        if (open == std::string::npos) return t;
        // The last character, not the last byte: "12(m²" shows as "12(m)".
        return t.substr(0, open) + "(" +
               WithoutLastCharacter(std::string_view(t).substr(open + 1)) + ")";
    }
    if (row.ControlType == EditorKind::UnitNum) return FormatNumber(ReadNumber(t), row.Format);
    return t;
}

void ClearGridCells(ControlCore& core) {
    FlexGrid& grid = core.form.msgGridView;
    for (int r = 1; r < grid.rows(); ++r) {
        for (int c = 1; c < grid.cols(); ++c)
            grid.setTextMatrix(r, c, "");
    }
}

std::span<const xml::Node> MatchingCellValues(ControlCore& core, std::size_t gridValue,
                                              const std::string& key) {
    DocumentModel& doc = core.doc;
    if (doc.cellValuesIndexStale || doc.cellValuesIndex.columns() != doc.arrGridValueNodes.size()) {
        RebuildCellValuesIndex(doc);
    }
    return doc.cellValuesIndex.matching(gridValue, key);
}

}  // namespace tabulon
