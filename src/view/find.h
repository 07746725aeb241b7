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
#include <string_view>
#include <vector>

#include "view/find_hit.h"

namespace tabulon {

struct ControlCore;

// The hits of text in every tree node's grid.
std::vector<FindHit> FindInTree(ControlCore& core, std::string_view text,
                                const FindOptions& options);

// The control's find: the hits of the last search and the one jumped to last.
struct FindState {
    std::vector<FindHit> hits;
    int current = -1;  // index into hits; -1 before the first jump
    // Asked for by the find key (Ctrl+F); a front end shows its find bar. Empty: the
    // key is not the control's.
    std::function<void()> onRequested;
};

// Searches and keeps the hits (current -1); returns how many.
int RunFind(ControlCore& core, std::string_view text, const FindOptions& options);
// Goes to kept hit index (GoToCell; a caption's hit goes to the nearest value cell).
// False for an index out of range or a node that no longer shows the cell.
bool GoToFindHit(ControlCore& core, int index);
// Goes to the kept hit after (before) the current one, wrapping round; false when
// there are none.
bool StepFindHit(ControlCore& core, bool forward);

}  // namespace tabulon
