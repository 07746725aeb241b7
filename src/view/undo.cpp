#include "view/undo.h"

#include <algorithm>
#include <map>
#include <span>
#include <vector>

#include "support/scoped_value.h"
#include "view/cell_editors.h"
#include "view/cell_problems.h"
#include "view/grid_fill.h"
#include "view/node_selection.h"
#include "view/scrollbar_refresh.h"

namespace tabulon {

namespace {

enum class Direction { Back, Forward };

// Puts the step's content back. elements: the step's elements, looked up before it, when
// restoring one leaves the others' handles valid (a step of CellValues only); else each
// is looked up as its turn comes.
void Restore(ControlCore& core, const EditStep& step, Direction direction,
             std::span<const xml::Node> elements) {
    const xml::Node root = core.doc.objXMLDoc->root();
    const auto restore = [&](std::size_t i) {
        const ElementChange& change = step.changes[i];
        const xml::Node element = elements.empty() ? xml::NodeAt(root, change.path) : elements[i];
        (direction == Direction::Back ? change.before : change.after).RestoreInto(element);
    };
    const std::size_t count = step.changes.size();
    for (std::size_t i = 0; i < count; ++i)
        restore(direction == Direction::Back ? count - 1 - i : i);
}

// The cell becomes current, scrolled into view, without an editor opening.
void MakeCellCurrent(ControlCore& core, int row, int col) {
    FlexGrid& grid = core.form.msgGridView;
    const bool inside = row >= grid.fixedRows() && row < grid.rows() && col >= grid.fixedCols() &&
                        col < grid.cols();
    if (inside) {
        // While the grid counts as not loaded its notifications open and commit nothing.
        const ScopedValue<bool> quiet(core.doc.blnGridLoaded, false);
        if (!grid.rowIsVisible(row)) grid.setTopRow(row);
        if (grid.colWidth(col) > 0 && !grid.colIsVisible(col)) grid.setLeftCol(col);
        grid.setRow(row);
        grid.setCol(col);
    }
    RefreshAdvanceScrollbars(core);
    grid.setFocus();
}

// The columns the step touched show the document again. Where only CellValue texts and
// flags changed, just their cells are shown again; anything else refills the column.
void ShowColumns(ControlCore& core, const EditStep& step, std::span<const xml::Node> elements,
                 bool cellsOnly) {
    std::map<int, std::vector<xml::Node>> columns;
    for (std::size_t i = 0; i < step.changes.size(); ++i)
        columns[step.changes[i].column].push_back(elements[i]);
    const int shown = std::min(core.form.msgGridView.cols() - 1,
                               static_cast<int>(core.doc.arrGridValueNodes.size()));
    const FlexGrid::QuietCells quiet(core.form.msgGridView);
    for (const auto& [column, changed] : columns) {
        if (column < 1 || column > shown) continue;
        const auto c = static_cast<std::int16_t>(column);
        if (!cellsOnly || !RefreshCells(core, c, changed)) RefillColumn(core, c);
    }
}

// cellsOnly: the step changed CellValues only (else the GridValueKey index may be out of
// date).
void ShowStep(ControlCore& core, const EditStep& step, std::span<const xml::Node> elements,
              bool cellsOnly) {
    DocumentModel& doc = core.doc;
    const EditLocation& where = step.where;
    if (!cellsOnly) doc.cellValuesIndexStale = true;
    const bool onScreen =
        where.treeNode == 0 || (doc.blnGridLoaded && doc.strCurrentHeaderKey == where.headerKey &&
                                doc.strCurrentValueKey == where.valueKey);
    if (onScreen) {
        ShowColumns(core, step, elements, cellsOnly);
    } else if (where.treeNode <= doc.treeRecordCount()) {
        // Filled afresh, whatever keys the grid shows now.
        doc.strCurrentHeaderKey.clear();
        doc.strCurrentValueKey.clear();
        core.form.treTreeView.setSelectedIndex(where.treeNode);
        SelectTreeNode(core, where.treeNode);
    }
    MakeCellCurrent(core, where.row, where.col);
}

void Apply(ControlCore& core, Direction direction) {
    EditHistory& history = core.history;
    // Nothing is recorded while a step is applied and shown.
    const ScopedValue<bool> applying(history.applying, true);
    HideCellEditors(core);
    core.blnEditorActive = false;
    core.unitRegistrar.reset();
    const EditStep& step =
        direction == Direction::Back ? history.StepToUndo() : history.StepToRedo();
    const bool cellsOnly =
        std::all_of(step.changes.begin(), step.changes.end(),
                    [](const ElementChange& change) { return change.cellValue; });
    std::vector<xml::Node> elements;
    const xml::Node root = core.doc.objXMLDoc->root();
    for (const ElementChange& change : step.changes)
        elements.push_back(xml::NodeAt(root, change.path));
    {
        // Counts, tree marks and reasons follow the flags the step puts back.
        const ValidityWatch watch(core, elements, ValidityWatch::Cause::Restore);
        Restore(core, step, direction,
                cellsOnly ? std::span<const xml::Node>(elements) : std::span<const xml::Node>());
    }
    if (direction == Direction::Back) {
        history.Undone();
    } else {
        history.Redone();
    }
    ShowStep(core, step, elements, cellsOnly);
}

}  // namespace

bool CanUndo(const ControlCore& core) {
    return CanUndoEditor(core) || core.history.CanUndo();
}

bool CanRedo(const ControlCore& core) {
    return !EditorChanged(core) && (CanRedoEditor(core) || core.history.CanRedo());
}

bool Undo(ControlCore& core) {
    if (UndoEditor(core)) return true;
    if (!core.history.CanUndo()) return false;
    Apply(core, Direction::Back);
    return true;
}

bool Redo(ControlCore& core) {
    if (EditorChanged(core)) return false;
    if (RedoEditor(core)) return true;
    if (!core.history.CanRedo()) return false;
    Apply(core, Direction::Forward);
    return true;
}

}  // namespace tabulon
