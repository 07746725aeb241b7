// Generated documents: valid, deterministic grid documents of any size that look like
// files an engineer writes by hand, for benchmarks, load tests and `tabulon generate`.
// The same shape always gives the same text, byte for byte, on every machine.
//
// What a generated document holds:
// - `keys` value keys. Each key is introduced by one tree node carrying it as its
//   GridValueKey (the node's KeyValue is a dotted path such as "B2.F1.Z3"). Tree nodes
//   come in groups: a Pnode (Filter="1", FilterCaption and FilterProperty "Service")
//   followed by its Cnodes, nested up to `depth` levels (1: Pnodes only); the first
//   branch of every group goes down to the full depth when the group is large enough.
//   After about one Cnode in six an extra "Overview" Cnode follows without a
//   GridValueKey, so that it shows the values of the node before it (inherited key);
//   so the tree has more nodes than keys (GeneratedTreeNodeCount).
// - `gridHeaders` layouts; key k and every node showing it use layout k % gridHeaders.
//   Every layout has a caption column and `valueColumns` value columns (in every second
//   layout the value columns carry a Width, so they start hidden until the filter shows
//   them) and `rows` rows. Rows mix the four control types (the first four rows of a
//   layout are one of each, in a rotating order; fewer rows hold fewer types), with
//   built-in units, ranges, formats, pick lists and MaxLength; some rows set a Height.
// - `customUnits` custom units (realistic names first, then numbered variants). Every
//   second UnitDrop row offers two custom units, used in turn, so every custom unit
//   appears in some row when the layouts have enough UnitDrop rows.
// - GridValues: `valueColumns` GridValue elements, each opened by a comment and holding
//   one CellValues per key, in key order, tagged FilterProperty "Service" and a
//   FilterValue that depends on the column only. Values fit their row and lie in its
//   range, in English units ("12.5(ft)" for UnitDrop rows); about one cell in 23 is
//   disabled; `invalidEvery` N > 0 marks about one cell in N invalid (Valid="0");
//   `hostCheckedEvery` N > 0 gives about one cell in N ApplicationValidation="1" (the
//   host checks its column), otherwise it is always "0".
// - Two-space indentation, long start tags wrapped with their attributes aligned, a
//   comment at the top of GridStructure and one per GridValue, nothing under the root
//   but the three element children (so custom units are read).
// Loading any generated document shows no message, and neither does selecting any of
// its tree nodes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tabulon {

inline constexpr int kMaxGeneratedDepth = 200;  // the validating parser stops at 256 levels

struct GeneratedDocumentShape {
    int keys = 10;             // distinct GridValueKeys; at least 1
    int valueColumns = 4;      // GridValue elements and value columns of every layout; at least 1
    int rows = 8;              // rows of every layout; at least 1
    int gridHeaders = 2;       // layouts; at least 1
    bool metric = false;       // MeasurementUnit METRIC instead of ENGLISH
    int customUnits = 0;       // at least 0
    int depth = 3;             // tree levels, 1 (Pnodes only) to kMaxGeneratedDepth
    std::uint64_t seed = 1;    // any value; different seeds give different texts
    int invalidEvery = 0;      // 0: every cell valid; N: about one cell in N invalid
    int hostCheckedEvery = 0;  // 0: no cell host-checked; N: about one cell in N
};

// The shape with every count raised to its minimum and the depth limited to
// kMaxGeneratedDepth; every function below normalises its shape this way first.
GeneratedDocumentShape NormalisedShape(GeneratedDocumentShape shape);

// The document text: no XML declaration and no DOCTYPE, ready for LoadXML.
std::string GenerateDocument(const GeneratedDocumentShape& shape);

// Tree nodes (Pnodes and Cnodes) of the document; at least keys.
int GeneratedTreeNodeCount(const GeneratedDocumentShape& shape);

// For each key in order, the 1-based tree index of the node that introduces it (the
// node selected to show that key's values).
std::vector<int> GeneratedKeyNodeIndices(const GeneratedDocumentShape& shape);

}  // namespace tabulon
