// CellProblems: which values of the document need correcting and why, kept as the
// control works so that every view reads one answer.
//
// - The reason of an invalid cell on screen is the grid's note of that cell
//   (FlexGrid::cellNote): the grid fill writes it beside the red colour and a commit
//   rewrites it. Tooltips, the session's dumps, `tabulon validate` and the
//   accessibility interface all read that note (or ProblemNote, which the fill uses).
// - Reasons this session produced (a range check of a commit, the host's mark during
//   AppGridEventHandler) are kept per CellValue element, so that they come back when
//   the node is shown again; any other invalid value is explained by its row's rules
//   (problem_reasons.h).
// - Counts: the number of invalid values (Valid not "1") per trimmed GridValueKey and
//   in all, as the saving gate sees them. A load counts them once; after that a
//   commit costs O(1) and a host change O(the GridValue it was handed), never a scan
//   of the document. Every tree node whose GridValueKey has invalid values carries
//   their count as its problem mark (TreeView::setProblemCount), and observers of the
//   store are told whenever a count changes.
//
// Decision: only the GridValue handed to AppGridEventHandler is looked at after the
// event; a host that changes Valid flags elsewhere in the document is not seen until
// the next load (the gate still sees every flag).
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/observable.h"
#include "platform/xml/xml_document.h"

namespace tabulon {

struct ControlCore;
struct RowInfo;
class TreeRecords;

class CellProblems : public Observable {
public:
    // Invalid values in the whole document.
    int total() const { return total_; }
    // Invalid values stored under a trimmed GridValueKey.
    int countFor(const std::string& key) const;
    // Reasons this session left on CellValue elements; null when there is none.
    const std::string* sessionNote(const xml::Node& cellValue) const;

    // --- for the control's collaborators (the functions below)
    void clear();
    // Forgets the counts and the nodes, keeping the reasons.
    void clearCounts();
    void setSessionNote(const xml::Node& cellValue, std::string note);
    void dropSessionNote(const xml::Node& cellValue);
    void addToCount(const std::string& key, int delta);
    // The tree nodes (1-based, in tree order) whose GridValueKey in records is key.
    std::vector<int> nodesFor(std::string_view key, const TreeRecords& records) const;
    // Nodes are added in tree order, then sorted once for the look-ups.
    void addNode(std::string_view key, int index);
    void sortNodes();
    // Tells the observers that counts may have changed.
    void changed() const { Notify(Change::Content); }

private:
    std::unordered_map<xml::Node, std::string, xml::Node::Hash> notes_;
    std::unordered_map<std::string, int> counts_;
    // A node by the hash of its key: the keys themselves are the tree's records, read
    // again to tell keys of one hash apart. A map of key strings to lists of nodes took
    // five times the memory: 9 MB more for a tree of 117,000 nodes.
    struct KeyedNode {
        std::size_t hash = 0;
        int node = 0;
        bool operator<(const KeyedNode& other) const {
            return hash != other.hash ? hash < other.hash : node < other.node;
        }
    };
    std::vector<KeyedNode> nodes_;
    int total_ = 0;
};

// The key a CellValues element's problems are counted under: its GridValueKey,
// trimmed.
std::string ProblemKey(const xml::Node& cellValues);

// Forgets everything (a new document is coming); tells the observers.
void ClearProblems(ControlCore& core);
// Counts the invalid values of the loaded document (the validity index must be
// gathered) and marks the tree; the reasons noted so far stay. Run once per load,
// after the tree is built, and when a change reached beyond the values.
void CountProblems(ControlCore& core);

// The reason for an invalid CellValue shown in a row: this session's note, else what
// its row's rules say.
std::string ProblemNote(ControlCore& core, xml::Node cellValue, const RowInfo& row);

// A commit's range check of the cell at (row, col), whose element was valid before
// when wasValid: problem is its sentence ("" when it passed). Updates the grid's note,
// the session's note, the counts and the tree's marks.
void NoteRangeCheck(ControlCore& core, int row, int col, xml::Node cellValue, bool wasValid,
                    const std::string& problem);

// Watches elements of the value part of the document while something else may change
// them: made right before, it settles when it goes out of scope (also when the change
// throws), so that counts and tree marks follow every CellValue under the elements
// (a GridValue, a CellValues or a CellValue; for anything above them the whole
// document is counted again).
// - Host: the elements are what AppGridEventHandler was handed. A value that the host
//   made invalid, or changed and left invalid, gets kMarkedByHost; one it left as it
//   was keeps its reason.
// - Restore: the elements get back content they had before (undo, redo); the reasons
//   this session noted on them are forgotten, so each is judged again by its row's
//   rules when it is shown.
class ValidityWatch {
public:
    enum class Cause { Host, Restore };
    ValidityWatch(ControlCore& core, std::vector<xml::Node> elements, Cause cause);
    ~ValidityWatch();
    ValidityWatch(const ValidityWatch&) = delete;
    ValidityWatch& operator=(const ValidityWatch&) = delete;

private:
    void Settle();
    struct Seen {
        xml::Node element;
        std::string key;
        bool valid;
        std::string text;
    };
    // Every CellValue under the elements; false when one lies above a GridValue.
    bool Look(std::vector<Seen>& seen) const;

    ControlCore& core_;
    std::vector<xml::Node> elements_;
    Cause cause_;
    std::vector<Seen> before_;
    bool whole_ = false;  // count the whole document again
};

// The problem of a grid cell as its note says; "" for a valid cell, a fixed cell or a
// position outside the grid.
std::string CellProblem(const ControlCore& core, int row, int col);

}  // namespace tabulon
