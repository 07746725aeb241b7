// A block of cells as text: tab-separated values (what spreadsheets put on the
// clipboard as plain text and read back), CSV, and an HTML table.
//
// Decisions:
// - Written: cells apart by a tab, rows ended by CRLF after every row but the last
//   (a spreadsheet's own plain text); a cell holding a tab, a line break or a double
//   quote is quoted, its quotes doubled. CSV quotes the same way around commas.
// - Read: rows end at LF or CRLF (a lone CR too); one line break at the very end
//   does not start an empty row; a cell starting with a double quote runs to the
//   closing quote, with "" as one quote, so quoted cells may hold tabs and line
//   breaks. Rows may have different lengths.
// - HTML: one <table> with <td> cells, text escaped (& < > "), UTF-8 declared.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

using CellTable = std::vector<std::vector<std::string>>;

std::string ToTabSeparated(const CellTable& table);
std::string ToCsv(const CellTable& table);
std::string ToHtmlTable(const CellTable& table);
CellTable ParseTabSeparated(std::string_view text);

// True when text holds a tab or a line break: more than one cell.
bool HoldsSeveralCells(std::string_view text);

}  // namespace tabulon
