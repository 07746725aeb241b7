// Building the category tree from TreeStructure: tree records (with the deliberate
// inheritance of optional attributes through udtCurrentNode), pictures, and the
// tree component's nodes.
#pragma once

#include "platform/xml/xml_document.h"
#include "view/control_core.h"

namespace tabulon {

// Reads every Pnode/Cnode into udtTreeNodes, loads pictures and fills the tree.
// Shows nothing of its own; false when a step failed (the tree may be partly filled).
bool BuildTree(ControlCore& core, xml::Node treeStructure);
// Stores element's attributes into udtCurrentNode and appends a record (1024).
bool ReadTreeNode(ControlCore& core, xml::Node element);
// Reads the element children of parent, depth first (1023).
bool ReadChildNodes(ControlCore& core, xml::Node parent);
// Loads each distinct picture once; lists missing files in one message (1026).
bool LoadTreeImages(ControlCore& core);
// Adds the records to the tree component; expands the first node when there are
// two or more (1025).
bool FillTreeView(ControlCore& core);

}  // namespace tabulon
