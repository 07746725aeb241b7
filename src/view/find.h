// Find across the tree: the text of every node's grid (column captions, row captions
// and values as the grid shows them, in Metric where the document is), searched
// without showing the nodes.
//
// What a node's grid shows is worked out as the fill would show it: the node's layout
// (none, or one the fill would refuse, shows nothing), the values of its GridValueKey
// with a later CellValues covering an earlier one row by row, UnitNum and UnitDrop
// values formatted and, in a Metric document, converted by the display pass's rules
// (a row whose units fault stays as stored, and so do the rows after it). Hits come
// in tree order, then row by row, left to right; a node whose key and layout equal an
// earlier node's repeats that node's hits.
//
// Decisions: an empty text finds nothing; case folding is ASCII only, as every name
// rule of the control; nothing is shown, no message appears, nothing changes.
#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "view/find_hit.h"

namespace tabulon {

struct ControlCore;

// The hits of text in every tree node's grid.
std::vector<FindHit> FindInTree(ControlCore& core, std::string_view text,
                                const FindOptions& options);

class TreeFind;

// The control's find: the hits of the last search and the one jumped to last.
struct FindState {
    std::vector<FindHit> hits;
    int current = -1;  // index into hits; -1 before the first jump
    // The search still under way (StartFind); null once every node is searched.
    std::shared_ptr<TreeFind> pending;
    // Asked for by the find key (Ctrl+F); a front end shows its find bar. Empty: the
    // key is not the control's.
    std::function<void()> onRequested;
};

// Searches and keeps the hits (current -1); returns how many.
int RunFind(ControlCore& core, std::string_view text, const FindOptions& options);
// The same search made a few nodes at a time, so that a front end can go to the first
// hit at once and count the others between events: StartFind drops the kept hits and
// begins; each ContinueFind searches up to nodes more tree nodes in tree order, adding
// their hits, and says whether every node has been searched. Hits come as RunFind's
// do; each node's are those of the document as it was when the node was searched. A
// load drops it.
void StartFind(ControlCore& core, std::string_view text, const FindOptions& options);
bool ContinueFind(ControlCore& core, int nodes);
// Drops the hits and any search under way.
void DropFind(ControlCore& core);
// Goes to kept hit index (GoToCell; a caption's hit goes to the nearest value cell).
// False for an index out of range or a node that no longer shows the cell.
bool GoToFindHit(ControlCore& core, int index);
// Goes to the kept hit after (before) the current one, wrapping round; false when
// there are none. While a search is under way it does not wrap: false when the hit
// after (before) is not found yet.
bool StepFindHit(ControlCore& core, bool forward);
// Whether StepFindHit has a hit to go to: while a search is under way, only one
// already found.
bool FindStepKnown(const ControlCore& core, bool forward);

}  // namespace tabulon
