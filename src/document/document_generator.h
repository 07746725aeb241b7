// Generated documents: valid, deterministic grid documents of any size, for
// benchmarks, load tests and tools. The same shape always gives the same text.
//
// Layout of a generated document:
// - The tree is made of groups. Each group is one Pnode followed by Cnode children
//   (nodesPerGroup nodes in all; the last group may be smaller). Every group has its
//   own GridValueKey "V<g>"; its Cnodes leave GridValueKey out and inherit the
//   Pnode's. Groups use the layouts "H0", "H1", ... in turn. Pnodes show the filter
//   area (Filter="1", FilterCaption="Type"); Cnodes hide it.
// - Every layout has the same size: a caption column (Width 1500) and valueColumns
//   value columns, and rows RowHeaders cycling through TextBox, ComboBox, UnitNum
//   (FT_TO_M, format 0.00) and UnitDrop (CFM_TO_LPS;GPM_TO_LPS).
// - GridValues holds valueColumns GridValue elements, each with one CellValues per
//   group, in group order, tagged FilterValue "Type A" or "Type B" by column parity.
//   Some cells are disabled or invalid, in a fixed pattern.
#pragma once

#include <string>

namespace tabulon {

struct GeneratedDocumentShape {
    int treeNodes = 100;     // Pnodes and Cnodes in all; at least 1
    int nodesPerGroup = 10;  // a Pnode and its Cnodes; at least 1
    int gridHeaders = 2;     // layouts, all of the same size; at least 1
    int valueColumns = 4;    // value columns of every layout; at least 1
    int rows = 5;            // rows of every layout; at least 1
    bool metric = false;     // MeasurementUnit METRIC instead of ENGLISH
};

// The document text (no XML declaration, no DOCTYPE: ready for LoadXML). Counts below
// their minimum are raised to it.
std::string GenerateDocument(GeneratedDocumentShape shape);

// Number of groups (distinct GridValueKeys) of a shape, after the same raising.
int GeneratedGroupCount(GeneratedDocumentShape shape);

// The 1-based tree index of the Pnode of group g (0-based) once the document is loaded.
int GeneratedGroupNodeIndex(GeneratedDocumentShape shape, int group);

}  // namespace tabulon
