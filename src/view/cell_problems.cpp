#include "view/cell_problems.h"

#include <algorithm>
#include <functional>
#include <unordered_set>

#include "document/validation_scan.h"
#include "support/text.h"
#include "view/control_core.h"
#include "view/problem_reasons.h"

namespace tabulon {

namespace {

bool IsValid(const xml::Node& cellValue) {
    return cellValue.attribute("Valid").value() == "1";
}

// Puts the key's count on every tree node that shows it.
void MarkNodes(ControlCore& core, const std::string& key) {
    core.form.treTreeView.setProblemCounts(core.problems.nodesFor(key, core.doc.udtTreeNodes),
                                           core.problems.countFor(key));
}

}  // namespace

int CellProblems::countFor(const std::string& key) const {
    const auto found = counts_.find(key);
    return found == counts_.end() ? 0 : found->second;
}

const std::string* CellProblems::sessionNote(const xml::Node& cellValue) const {
    const auto found = notes_.find(cellValue);
    return found == notes_.end() ? nullptr : &found->second;
}

void CellProblems::clear() {
    notes_.clear();
    clearCounts();
}

void CellProblems::clearCounts() {
    counts_.clear();
    nodes_.clear();
    total_ = 0;
}

void CellProblems::setSessionNote(const xml::Node& cellValue, std::string note) {
    notes_[cellValue] = std::move(note);
}

void CellProblems::dropSessionNote(const xml::Node& cellValue) {
    notes_.erase(cellValue);
}

void CellProblems::addToCount(const std::string& key, int delta) {
    counts_[key] += delta;
    total_ += delta;
}

std::vector<int> CellProblems::nodesFor(std::string_view key, const TreeRecords& records) const {
    const std::size_t hash = std::hash<std::string_view>{}(key);
    std::vector<int> nodes;
    for (auto at = std::lower_bound(nodes_.begin(), nodes_.end(), KeyedNode{hash, 0});
         at != nodes_.end() && at->hash == hash; ++at) {
        const auto record = static_cast<std::size_t>(at->node - 1);
        if (record < records.size() && records.text(record, TreeField::GridValueKey) == key)
            nodes.push_back(at->node);
    }
    return nodes;
}

void CellProblems::addNode(std::string_view key, int index) {
    nodes_.push_back({std::hash<std::string_view>{}(key), index});
}

void CellProblems::sortNodes() {
    std::sort(nodes_.begin(), nodes_.end());
}

std::string ProblemKey(const xml::Node& cellValues) {
    return Trim(cellValues.attribute("GridValueKey").value());
}

void ClearProblems(ControlCore& core) {
    core.problems.clear();
    core.problems.changed();
}

void CountProblems(ControlCore& core) {
    CellProblems& problems = core.problems;
    problems.clearCounts();
    const ValidityIndex& index = core.doc.validityIndex;
    for (const ValidityIndex::Column& column : index.columns) {
        int invalid = 0;
        for (std::size_t r = 0; r < column.rowCount; ++r) {
            const ValidityIndex::Row& row = index.rows[column.firstRow + r];
            if (row.element && row.valid.value() != "1") ++invalid;
        }
        if (invalid != 0) problems.addToCount(ProblemKey(column.element), invalid);
    }
    // Only nodes whose layout exists show a grid to carry the mark.
    const std::vector<std::string>& headers = core.doc.arrGridHeaderKeys;
    const std::unordered_set<std::string> layouts(headers.begin(), headers.end());
    TreeView& tree = core.form.treTreeView;
    const TreeRecords& records = core.doc.udtTreeNodes;
    std::string key;
    for (int n = 1; n <= core.doc.treeRecordCount() && n <= tree.count(); ++n) {
        const auto i = static_cast<std::size_t>(n - 1);
        if (!layouts.contains(std::string(records.text(i, TreeField::GridHeaderKey)))) continue;
        key = records.text(i, TreeField::GridValueKey);
        problems.addNode(key, n);
        tree.setProblemCount(n, problems.countFor(key));
    }
    problems.sortNodes();
    problems.changed();
}

std::string ProblemNote(ControlCore& core, xml::Node cellValue, const RowInfo& row) {
    if (const std::string* note = core.problems.sessionNote(cellValue)) return *note;
    return DocumentValueProblem(core, row, cellValue.firstChild().value());
}

void NoteRangeCheck(ControlCore& core, int row, int col, xml::Node cellValue, bool wasValid,
                    const std::string& problem) {
    core.form.msgGridView.setCellNote(row, col, problem);
    CellProblems& problems = core.problems;
    if (problem.empty()) {
        problems.dropSessionNote(cellValue);
    } else {
        problems.setSessionNote(cellValue, problem);
    }
    if (wasValid == problem.empty()) return;
    const std::string key = ProblemKey(cellValue.parent());
    problems.addToCount(key, problem.empty() ? -1 : 1);
    MarkNodes(core, key);
    problems.changed();
}

ValidityWatch::ValidityWatch(ControlCore& core, std::vector<xml::Node> elements, Cause cause)
    : core_(core), elements_(std::move(elements)), cause_(cause) {
    whole_ = !Look(before_);
}

ValidityWatch::~ValidityWatch() {
    try {
        Settle();
    } catch (...) {
        // Out of memory while settling: the counts stay as they were; the gate still
        // reads every flag.
    }
}

bool ValidityWatch::Look(std::vector<Seen>& seen) const {
    const std::vector<xml::Node>& gridValues = core_.doc.arrGridValueNodes;
    const std::unordered_set<xml::Node, xml::Node::Hash> isGridValue(gridValues.begin(),
                                                                     gridValues.end());
    // Elements may be named twice, or one inside another: each value counts once.
    std::unordered_set<xml::Node, xml::Node::Hash> looked;
    const auto cell = [&seen, &looked](const xml::Node& cellValue, const std::string& key) {
        if (cellValue.type() != xml::NodeType::Element || !looked.insert(cellValue).second) return;
        seen.push_back(
            {cellValue, key, IsValid(cellValue), std::string(cellValue.firstChild().value())});
    };
    const auto column = [&cell](const xml::Node& cellValues) {
        if (cellValues.type() != xml::NodeType::Element) return;
        const std::string key = ProblemKey(cellValues);
        for (xml::Node c = cellValues.firstChild(); c; c = c.nextSibling())
            cell(c, key);
    };
    for (const xml::Node& element : elements_) {
        if (isGridValue.contains(element)) {
            for (xml::Node c = element.firstChild(); c; c = c.nextSibling())
                column(c);
        } else if (isGridValue.contains(element.parent())) {
            column(element);
        } else if (isGridValue.contains(element.parent().parent())) {
            cell(element, ProblemKey(element.parent()));
        } else {
            return false;
        }
    }
    return true;
}

void ValidityWatch::Settle() {
    CellProblems& problems = core_.problems;
    std::vector<Seen> after;
    if (whole_ || !Look(after)) {
        for (const Seen& seen : before_)
            problems.dropSessionNote(seen.element);
        EnsureValidityIndex(core_.doc);
        CountProblems(core_);
        return;
    }
    std::unordered_map<xml::Node, const Seen*, xml::Node::Hash> earlier;
    std::unordered_set<std::string> keys;
    for (const Seen& seen : before_) {
        earlier.emplace(seen.element, &seen);
        keys.insert(seen.key);
        if (!seen.valid) problems.addToCount(seen.key, -1);
        if (cause_ == Cause::Restore) problems.dropSessionNote(seen.element);
    }
    std::unordered_set<xml::Node, xml::Node::Hash> present;
    for (const Seen& seen : after) {
        present.insert(seen.element);
        keys.insert(seen.key);
        if (seen.valid || cause_ == Cause::Restore) {
            problems.dropSessionNote(seen.element);
            if (!seen.valid) problems.addToCount(seen.key, 1);
            continue;
        }
        problems.addToCount(seen.key, 1);
        const auto was = earlier.find(seen.element);
        const bool untouched = was != earlier.end() && !was->second->valid &&
                               was->second->key == seen.key && was->second->text == seen.text;
        if (!untouched) problems.setSessionNote(seen.element, std::string(kMarkedByHost));
    }
    for (const Seen& seen : before_) {
        if (!present.contains(seen.element)) problems.dropSessionNote(seen.element);
    }
    for (const std::string& key : keys)
        MarkNodes(core_, key);
    problems.changed();
}

std::string CellProblem(const ControlCore& core, int row, int col) {
    const FlexGrid& grid = core.form.msgGridView;
    if (row < grid.fixedRows() || col < grid.fixedCols()) return {};
    if (row >= grid.rows() || col >= grid.cols()) return {};
    return grid.cellNote(row, col);
}

}  // namespace tabulon
