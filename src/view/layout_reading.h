// Reading a node's layout (GridHeader) without filling the grid: what the grid of any
// tree node would show around its values, for the views that look past the node on
// screen (problem walks, find). The rules are the grid fill's own.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "document/document_model.h"
#include "platform/xml/xml_document.h"

namespace tabulon {

// One RowHeader attribute into the row's rules (ControlType, Format, Unit, MinVal,
// MaxVal, ListValues, MaxLength read as a 16-bit number); other names are not rules
// and are left alone. A MaxLength beyond 16 bits throws OverflowFailure.
void ApplyRowAttribute(RowInfo& info, std::string_view name, std::string_view value);

// Whether the grid can be sized for a layout of so many grid rows and columns: at most
// 32767 of each (they are 16-bit numbers) and FlexGrid::kMaxCells cells. The fill
// refuses a layout beyond that before it sizes anything (1028), so no node shows it.
bool GridCanHold(std::size_t rows, std::size_t cols);

// A layout as the grid fill lays it out: its ColumnHeader and RowHeader nodes.
struct Layout {
    std::vector<xml::Node> columns;  // column c (0: the row-caption column)
    std::vector<xml::Node> rows;     // grid row r is rows[r - 1]
    // Grid rows and columns, fixed ones included (only for a layout the grid can hold).
    int gridRows() const { return static_cast<int>(rows.size()) + 1; }
    int gridCols() const { return static_cast<int>(columns.size()); }
};

// The layout named key (the first GridHeader with that Key); nullopt when there is none
// or the grid cannot hold it.
std::optional<Layout> FindLayout(const DocumentModel& doc, const std::string& key);

// The caption a ColumnHeader or RowHeader gives its cell (HName as written; "" when
// it has none).
std::string HeaderCaption(xml::Node header);

// The rules of a RowHeader as ReadRowHeader reads them. Throws what ApplyRowAttribute
// throws; a node that is not an element gives empty rules.
RowInfo RowRules(xml::Node rowHeader);

}  // namespace tabulon
