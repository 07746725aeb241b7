// Every grid of the document as the user sees it, one CSV file per tree node that
// shows one, for spreadsheets; the tables the workbook export (grid_workbook.h) writes
// too.
//
// Decisions:
// - One file per node (nodes of one layout may hold different values and columns),
//   named NNNNNN_KEY.csv: the node's place in the tree, so the files sort in tree
//   order, then its key with characters other than letters, digits, "-", "_" and "."
//   made "_".
// - The column captions, then one line per row starting with its caption; a number
//   row (UnitNum) carries its unit after the caption, "Flow (gpm)", in the document's
//   unit system, as its cells show their values. Cells as shown, hidden columns
//   included. CRLF line ends.
// - A file of that name already there is replaced as a saved document is
//   (support/atomic_file.h): whole or not at all, its owner and mode kept; a read-only
//   file, a folder, a FIFO or a device in its place is refused.
// - The nodes are shown one after the other (the open editor is committed first, as
//   when the user selects a node) and the node shown before is shown again at the end.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "support/cell_table_text.h"
#include "view/control_core.h"

namespace tabulon {

// The grid shown now, captions included (see decisions).
CellTable ShownGridTable(ControlCore& core);

// Shows every node that has a grid, in tree order, and hands write its place in the
// tree (1-based), its key and ShownGridTable; returns how many. The node shown before
// is shown again afterwards, also when write throws (the failure goes on).
int ForEachShownGrid(
    ControlCore& core,
    const std::function<void(int index, const std::string& key, const CellTable& table)>& write);

// Writes the files into folder (made when missing); returns how many. A file that
// cannot be written throws RuntimeFailure naming it.
int ExportGridsAsCsv(ControlCore& core, const std::filesystem::path& folder);

}  // namespace tabulon
