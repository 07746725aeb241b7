// Filling the grid for a node: the layout from its GridHeader, then the values from
// the CellValues of its GridValueKey, recording the element behind every cell.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/xml/xml_document.h"
#include "view/control_core.h"

namespace tabulon {

bool FillGridHeaders(ControlCore& core, const std::string& key);               // 1028
bool ReadRowHeader(ControlCore& core, xml::Node rowHeader, std::int16_t row);  // 1029
bool FillGridValues(ControlCore& core, const std::string& key);                // 1030
// Fills column c from the CellValues children of gridValue whose key matches.
bool FillGridColumn(ControlCore& core, xml::Node gridValue, std::int16_t c,
                    const std::string& key);  // 1035
void ClearGridCells(ControlCore& core);
// Fills column c again from its GridValue element (arrGridValueNodes), as after the
// host changed it: blnGridLoaded is false while it fills and afterwards says whether
// the fill succeeded; in a Metric document the column is converted for display again.
bool RefillColumn(ControlCore& core, std::int16_t c);

// Shows again the cells of column c that the given CellValue elements are behind, when
// only those elements changed since the column was filled: what RefillColumn would show,
// without reading the rest of the column. False, with cells maybe half written, when a
// refill could show more than that (a display pass of the grid ended at a unit fault)
// or one of the cells fails: the caller then refills the column.
bool RefreshCells(ControlCore& core, std::int16_t c, std::span<const xml::Node> elements);

// What a value cell of a row shows, in English, for the stored text t: a UnitNum
// value formatted with the row's Format, a UnitDrop value as number(unit), any other
// as stored. A UnitDrop text whose "(" is its last character throws.
std::string CellDisplayText(const RowInfo& row, const std::string& t);

// The CellValues of gridValue (index into arrGridValueNodes) whose GridValueKey equals
// key, in document order, from the index (rebuilt first when stale).
std::span<const xml::Node> MatchingCellValues(ControlCore& core, std::size_t gridValue,
                                              const std::string& key);

}  // namespace tabulon
