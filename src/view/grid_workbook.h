// Every grid of the document as the user sees it in one spreadsheet workbook (.xlsx),
// one worksheet per tree node that shows a grid: the tables of the CSV export
// (grid_export.h), in the same order, written by another writer.
//
// Decisions:
// - Each worksheet holds its node's table cell for cell: the column captions in the
//   first row, each row's caption (with a number row's unit) in the first column.
// - A cell whose text is a plain decimal number (an optional "-", digits without a
//   leading zero, optional decimals, at most 15 significant digits, not minus zero:
//   "223.0", "-12", "0.125") is a number cell whose number format has as many decimals
//   as the text, so the spreadsheet shows that same text and can compute with it.
//   Every other text ("3.05(m)", "1,234", "1E+20", "+5", "007") stays text as shown.
// - Worksheet names: the node's key with each of [ ] : * ? / \ made "_", cut to 31
//   characters (one outside the Basic Multilingual Plane counts two), a leading or
//   trailing "'" made "_"; an empty key gives "Sheet". A name already taken, compared
//   without regard to ASCII case, and the reserved "History" get "~2", "~3" ... at the
//   end, the name cut to leave room.
// - The workbook is built in a scratch file and then replaces the target in one step
//   (support/atomic_file.h): a failure leaves the target as it was.
#pragma once

#include <string>

#include "view/control_core.h"

namespace tabulon {

// Writes the workbook to file; returns how many worksheets. Throws RuntimeFailure
// naming file when it cannot be written, when a cell holds more than 32,767
// characters or a grid is larger than a worksheet.
int ExportGridsAsXlsx(ControlCore& core, const std::string& file);

}  // namespace tabulon
