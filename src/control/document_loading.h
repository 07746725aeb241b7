// Loading a document into the control: parse, validate against the built-in DTD,
// build the model and the tree, and show the first node.
//
// Every load first clears the current keys, disables the grid and the filter combo and
// empties the tree. Decision: replacing the document invalidates every node handle
// into the old one, so the moment the new document is created the model also drops
// all its handles (root, structures, grid nodes, cell and column nodes, the CellValues
// index) and the grid counts as not loaded; the old texts stay on the disabled grid
// until a load succeeds. A missing file leaves the old document in place.
#pragma once

#include <string>

#include "view/control_core.h"

namespace tabulon {

// From a file path. True when the file was found, parsed and valid, even if the
// model could not be built afterwards (the grid then stays disabled and the previous
// path is kept), by design. Messages: "XML file not found", the parser's reason, or
// the validation message; all critical. A file larger than core.maxDocumentBytes is
// refused before it is read, and running out of memory while reading, parsing or
// validating fails the load with a reason that says so; nothing is thrown.
bool LoadDocumentFile(ControlCore& core, const std::string& XMLSource);
// From text. True only when the model was built too; the path becomes "". A text
// that does not parse (also ""), is longer than core.maxDocumentBytes or does not fit
// in memory shows "Invalid XML".
bool LoadDocumentText(ControlCore& core, const std::string& bstrXML);
// Reads objXMLDoc into the model and shows the first node. A run-time failure shows
// the code of the stage reached: 1032 root, unit and custom units; 1033 TreeStructure;
// 1034 GridStructure, tree and grid index. Custom units are read only when the root
// has exactly three children and the first is UnitDropCustomUnits.
bool ProcessDocument(ControlCore& core);

}  // namespace tabulon
