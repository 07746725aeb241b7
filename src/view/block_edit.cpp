#include "view/block_edit.h"

#include <algorithm>
#include <map>

#include "document/lookups.h"
#include "support/cell_table_text.h"
#include "support/scoped_value.h"
#include "view/cell_editors.h"
#include "view/cell_selection.h"
#include "view/commit.h"
#include "view/edit_recording.h"
#include "view/editor_value.h"
#include "view/pasted_value.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

namespace {

constexpr std::size_t kReportedLines = 20;

struct Target {
    int row;
    int col;
    std::string value;
};

// The cell becomes current without its editor opening.
void MoveQuietly(ControlCore& core, int row, int col) {
    const ScopedValue<bool> quiet(core.doc.blnGridLoaded, false);
    core.form.msgGridView.setRow(row);
    core.form.msgGridView.setCol(col);
}

// Opens the cell's editor, types the value and commits it; true when the cell asks
// for the host's validation.
bool WriteCell(ControlCore& core, const Target& target, BlockEditReport& report) {
    MoveQuietly(core, target.row, target.col);
    const auto skip = [&](std::string reason) {
        report.skipped.push_back({target.row, target.col, target.value, std::move(reason)});
        return false;
    };
    const xml::Node element = core.doc.arrCellNodes.upperBound1() >= target.row &&
                                      core.doc.arrCellNodes.upperBound2() >= target.col
                                  ? core.doc.arrCellNodes.at(target.row, target.col)
                                  : xml::Node();
    if (!element) return skip("no value here");
    if (GetAttributeValue(core.sink, element, "Enabled") != "1") return skip("disabled");
    OpenCellEditor(core);
    if (VisibleEditorValue(core.form).editor == nullptr) return skip("no editor opens here");
    const PasteOutcome outcome = PutIntoOpenEditor(core, target.value);
    if (!outcome.taken) {
        HideCellEditors(core);
        core.blnEditorActive = false;
        core.unitRegistrar.reset();
        return skip(outcome.reason);
    }
    const bool validate = CommitBlockCell(core);
    HideCellEditors(core);
    ++report.written;
    if (!outcome.reason.empty()) {
        report.skipped.push_back({target.row, target.col, target.value, outcome.reason, true});
    }
    return validate;
}

// Writes the targets column by column as one undo step, then selects range; the
// views are held meanwhile, so that they mirror the result once.
BlockEditReport WriteCells(ControlCore& core, std::vector<Target> targets, const CellRange& range,
                           int beyondGrid) {
    BlockEditReport report;
    report.beyondGrid = beyondGrid;
    FlexGrid& grid = core.form.msgGridView;
    std::stable_sort(targets.begin(), targets.end(),
                     [](const Target& a, const Target& b) { return a.col < b.col; });
    const ViewBatch::Hold hold(core.views);
    {
        const EditHistory::StepGuard step(core.history, CurrentLocation(core));
        std::size_t i = 0;
        while (i < targets.size()) {
            const int col = targets[i].col;
            int validateRow = -1;
            for (; i < targets.size() && targets[i].col == col; ++i) {
                if (WriteCell(core, targets[i], report) && validateRow < 0)
                    validateRow = targets[i].row;
            }
            if (validateRow >= 0) {
                const ViewBatch::Pause hostRuns(core.views);
                ValidateColumnWithHost(core, validateRow, col);
            }
        }
    }
    if (range.bottom >= range.top && range.right >= range.left) {
        MoveQuietly(core, range.top, range.left);
        grid.setRowSel(range.bottom);
        grid.setColSel(range.right);
    }
    RefreshAdvanceScrollbars(core);
    grid.setFocus();
    return report;
}

bool Ready(ControlCore& core) {
    const FlexGrid& grid = core.form.msgGridView;
    if (!core.doc.blnGridLoaded || grid.rows() <= grid.fixedRows() ||
        grid.cols() <= grid.fixedCols()) {
        return false;
    }
    CommitCellEdit(core);
    HideCellEditors(core);
    return true;
}

// The value of every cell of range from source(row, col).
template <class Source>
std::vector<Target> Over(const FlexGrid& grid, const CellRange& range, Source&& source) {
    std::vector<Target> targets;
    for (const int col : ShownColumns(grid, range.left, range.right)) {
        for (int row = range.top; row <= range.bottom; ++row)
            targets.push_back({row, col, source(row, col)});
    }
    return targets;
}

// The report, after the user's message for it.
BlockEditReport Told(ControlCore& core, BlockEditReport report) {
    core.sink.Information(BlockEditMessage(core, report));
    return report;
}

}  // namespace

BlockEditReport PasteCells(ControlCore& core, const std::string& tabSeparated) {
    const CellTable table = ParseTabSeparated(tabSeparated);
    if (table.empty() || !Ready(core)) return {};
    const FlexGrid& grid = core.form.msgGridView;
    const CellRange selected = SelectedRange(grid);
    if (table.size() == 1 && table[0].size() == 1 && SeveralCellsSelected(grid)) {
        const std::string& value = table[0][0];
        return Told(core, WriteCells(core, Over(grid, selected, [&](int, int) { return value; }),
                                     selected, 0));
    }
    const std::vector<int> shown = ShownColumns(grid, selected.left, grid.cols() - 1);
    std::vector<Target> targets;
    int beyond = 0;
    CellRange written{selected.top, selected.left, selected.top - 1, selected.left - 1};
    for (std::size_t r = 0; r < table.size(); ++r) {
        const int row = selected.top + static_cast<int>(r);
        for (std::size_t c = 0; c < table[r].size(); ++c) {
            if (row >= grid.rows() || c >= shown.size()) {
                ++beyond;
                continue;
            }
            targets.push_back({row, shown[c], table[r][c]});
            written.bottom = std::max(written.bottom, row);
            written.right = std::max(written.right, shown[c]);
        }
    }
    return Told(core, WriteCells(core, std::move(targets), written, beyond));
}

BlockEditReport FillDown(ControlCore& core) {
    const FlexGrid& grid = core.form.msgGridView;
    const CellRange range = SelectedRange(grid);
    if (range.bottom <= range.top || !Ready(core)) return {};
    const CellRange rest{range.top + 1, range.left, range.bottom, range.right};
    const auto first = [&](int, int col) { return grid.textMatrix(range.top, col); };
    return Told(core, WriteCells(core, Over(grid, rest, first), range, 0));
}

BlockEditReport FillRight(ControlCore& core) {
    const FlexGrid& grid = core.form.msgGridView;
    const CellRange range = SelectedRange(grid);
    const std::vector<int> shown = ShownColumns(grid, range.left, range.right);
    if (shown.size() < 2 || !Ready(core)) return {};
    const CellRange rest{range.top, shown[1], range.bottom, range.right};
    const auto first = [&](int row, int) { return grid.textMatrix(row, shown[0]); };
    return Told(core, WriteCells(core, Over(grid, rest, first), range, 0));
}

BlockEditReport ClearCells(ControlCore& core) {
    const FlexGrid& grid = core.form.msgGridView;
    const CellRange range = SelectedRange(grid);
    if (!Ready(core)) return {};
    std::vector<Target> targets;
    for (Target& target : Over(grid, range, [](int, int) { return std::string(); })) {
        const std::size_t row = static_cast<std::size_t>(target.row);
        const EditorKind kind = row < core.doc.arrRowInfo.size()
                                    ? core.doc.arrRowInfo[row].ControlType
                                    : EditorKind::None;
        if (kind == EditorKind::TextBox || kind == EditorKind::ComboBox)
            targets.push_back(std::move(target));
    }
    return WriteCells(core, std::move(targets), range, 0);
}

std::string BlockEditMessage(const ControlCore& core, const BlockEditReport& report) {
    const FlexGrid& grid = core.form.msgGridView;
    std::string text;
    std::size_t lines = 0;
    for (const SkippedCell& cell : report.skipped) {
        if (++lines > kReportedLines) continue;
        text += "\n" + grid.textMatrix(cell.row, 0) + ", " + grid.textMatrix(0, cell.col) + ": \"" +
                cell.value + "\" " + (cell.written ? "written, " : "") + cell.reason;
    }
    if (lines > kReportedLines) {
        text += "\n... and " + std::to_string(lines - kReportedLines) + " more";
    }
    if (report.beyondGrid > 0) {
        text += "\n" + std::to_string(report.beyondGrid) + " value(s) lay beyond the grid";
    }
    if (text.empty()) return {};
    const std::size_t skipped = static_cast<std::size_t>(
        std::count_if(report.skipped.begin(), report.skipped.end(),
                      [](const SkippedCell& cell) { return !cell.written; }));
    return std::to_string(report.written) + " cell(s) pasted, " + std::to_string(skipped) +
           " skipped:" + text;
}

}  // namespace tabulon
