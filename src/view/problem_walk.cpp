#include "view/problem_walk.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <unordered_map>

#include "document/validation_scan.h"
#include "view/cell_editors.h"
#include "view/cell_problems.h"
#include "view/commit.h"
#include "view/go_to_cell.h"
#include "view/grid_fill.h"
#include "view/layout_reading.h"
#include "view/problem_reasons.h"

namespace tabulon {

namespace {

// The node that shows the values of one key, and its layout.
struct Viewer {
    int node = 0;
    std::optional<Layout> layout;
};

Viewer ViewerOf(ControlCore& core, const std::string& key) {
    const std::vector<int> nodes = core.problems.nodesFor(key, core.doc.udtTreeNodes);
    if (nodes.empty()) return {};
    const int selected = core.form.treTreeView.selectedIndex();
    const bool onScreen = std::find(nodes.begin(), nodes.end(), selected) != nodes.end();
    const int node = onScreen ? selected : nodes.front();
    const std::string layout(
        core.doc.udtTreeNodes.text(static_cast<std::size_t>(node - 1), TreeField::GridHeaderKey));
    return {node, FindLayout(core.doc, layout)};
}

// Whether the viewer's grid shows row i (from 0) of column, a CellValues of GridValue
// gridValue with the given key.
bool Shows(ControlCore& core, const Viewer& viewer, std::size_t gridValue, const xml::Node& column,
           const std::string& key, std::size_t i) {
    if (viewer.node == 0 || !viewer.layout) return false;
    if (static_cast<int>(i) + 1 >= viewer.layout->gridRows()) return false;
    if (static_cast<int>(gridValue) + 1 >= viewer.layout->gridCols()) return false;
    const std::span<const xml::Node> matching = MatchingCellValues(core, gridValue, key);
    for (auto later = matching.rbegin(); later != matching.rend(); ++later) {
        if (*later == column) return true;
        if (later->childCount() > i) return false;  // a later CellValues fills the row
    }
    return false;
}

// Viewers found so far, by key.
class Viewers {
public:
    explicit Viewers(ControlCore& core) : core_(core) {}
    const Viewer& of(const std::string& key) {
        const auto [found, fresh] = viewers_.try_emplace(key);
        if (fresh) found->second = ViewerOf(core_, key);
        return found->second;
    }

private:
    ControlCore& core_;
    std::unordered_map<std::string, Viewer> viewers_;
};

// The column of the index holding flat row position f.
const ValidityIndex::Column& ColumnAt(const ValidityIndex& index, std::size_t f) {
    // Empty columns share their firstRow with the column after them, so the last
    // column starting at or before f is the one holding it.
    const auto after = std::upper_bound(
        index.columns.begin(), index.columns.end(), f,
        [](std::size_t position, const ValidityIndex::Column& c) { return position < c.firstRow; });
    return *(after - 1);
}

// The flat position of the current cell's value in the index; nullopt when the
// current cell shows none.
std::optional<std::size_t> CurrentPosition(ControlCore& core) {
    const DocumentModel& doc = core.doc;
    const FlexGrid& grid = core.form.msgGridView;
    const int r = grid.row();
    const int c = grid.col();
    if (!doc.blnGridLoaded || r < 1 || c < 1 || r > doc.arrCellNodes.upperBound1() ||
        c > doc.arrCellNodes.upperBound2()) {
        return std::nullopt;
    }
    const xml::Node cell = doc.arrCellNodes.at(r, c);
    if (!cell) return std::nullopt;
    const xml::Node parent = cell.parent();
    for (const ValidityIndex::Column& column : doc.validityIndex.columns) {
        if (column.element == parent && static_cast<std::size_t>(r) <= column.rowCount)
            return column.firstRow + static_cast<std::size_t>(r - 1);
    }
    return std::nullopt;
}

std::string ReasonShownBy(ControlCore& core, const Layout& layout, const xml::Node& cell,
                          std::size_t i) {
    RowInfo rules;
    try {
        rules = RowRules(layout.rows.at(i));
    } catch (const std::exception&) {
        rules = RowInfo{};  // the grid cannot show this layout; its rules say nothing
    }
    return ProblemNote(core, cell, rules);
}

}  // namespace

std::vector<ProblemCell> ListProblems(ControlCore& core) {
    DocumentModel& doc = core.doc;
    EnsureValidityIndex(doc);
    Viewers viewers(core);
    std::vector<ProblemCell> problems;
    for (const ValidityIndex::Column& column : doc.validityIndex.columns) {
        const std::string key = ProblemKey(column.element);
        std::size_t i = 0;
        for (xml::Node cell = column.element.firstChild(); cell; cell = cell.nextSibling(), ++i) {
            if (cell.type() != xml::NodeType::Element) continue;
            if (cell.attribute("Valid").value() == "1") continue;
            ProblemCell problem;
            problem.gridValue = column.gridValue;
            problem.key = key;
            problem.row = static_cast<int>(i) + 1;
            const Viewer& viewer = viewers.of(key);
            if (Shows(core, viewer, column.gridValue, column.element, key, i)) {
                problem.node = viewer.node;
                problem.rowCaption = HeaderCaption(viewer.layout->rows[i]);
                problem.columnCaption = HeaderCaption(viewer.layout->columns[column.gridValue + 1]);
                problem.reason = ReasonShownBy(core, *viewer.layout, cell, i);
            } else {
                const std::string* note = core.problems.sessionNote(cell);
                problem.reason = note != nullptr ? *note : std::string(kMarkedInDocument);
            }
            problems.push_back(std::move(problem));
        }
    }
    return problems;
}

bool GoToProblem(ControlCore& core, bool forward) {
    Form& form = core.form;
    if (!form.msgGridView.enabled()) return false;
    if (form.anyEditorVisible()) {
        CommitCellEdit(core);
        HideCellEditors(core);
        // Where the walk finds nothing, the keyboard stays with the grid.
        form.msgGridView.setFocus();
    }
    DocumentModel& doc = core.doc;
    EnsureValidityIndex(doc);
    const ValidityIndex& index = doc.validityIndex;
    const std::size_t total = index.rows.size();
    if (total == 0) return false;

    // From the value after (before) the current one round to the current one itself.
    const std::optional<std::size_t> here = CurrentPosition(core);
    std::size_t start = forward ? 0 : total - 1;
    if (here) start = forward ? (*here + 1) % total : (*here + total - 1) % total;
    Viewers viewers(core);
    for (std::size_t k = 0; k < total; ++k) {
        const std::size_t f = forward ? (start + k) % total : (start + total - k) % total;
        const ValidityIndex::Row& row = index.rows[f];
        if (!row.element || row.valid.value() == "1") continue;
        const ValidityIndex::Column& column = ColumnAt(index, f);
        const std::string key = ProblemKey(column.element);
        const std::size_t i = f - column.firstRow;
        const Viewer& viewer = viewers.of(key);
        if (!Shows(core, viewer, column.gridValue, column.element, key, i)) continue;
        return GoToCell(core, viewer.node, static_cast<int>(i) + 1,
                        static_cast<int>(column.gridValue) + 1);
    }
    return false;
}

}  // namespace tabulon
