// Selecting a tree node: filter-area visibility and caption, the grid layout and
// values of the node, the scroll bars and the filter combo (1012).
#pragma once

#include "view/control_core.h"

namespace tabulon {

// Node-selection handling for the tree node with 1-based index.
void SelectTreeNode(ControlCore& core, int index);
// The tree's collapse notification: re-runs the selection for the node that is
// selected now (not for the collapsed one).
void TreeCollapsed(ControlCore& core);

}  // namespace tabulon
