// Writing a large node's text on every processor. Saving a 50 MB document is mostly
// the writing of its text, and the person who pressed OK waits for all of it.
//
// The calling thread passes the nodes on the top few levels of the node (not what lies
// below them) and cuts the text into runs there, one every so many nodes: each run is
// the stretch of text from one node to the next run's first, written by
// Writer::WriteStretch from the elements open above it. Helper threads and the caller
// write runs; the caller hands them on in document order as they are done, and writes
// one itself whenever it would otherwise wait. Put together, the runs are byte for byte
// the text one writer alone writes.
//
// Decisions:
// - Runs end every 128 nodes passed on the top four levels: in a document, blocks of
//   cell values (a run of some hundred kilobytes) or nodes of the tree.
// - Helpers are started only for a node of more than a few runs (small nodes are
//   written by the caller alone), at most one per further processor, three at most.
// - At most eight runs are held, written or not, before the caller waits for the
//   oldest: memory stays bounded whatever the document's size, unless a single run is
//   large (a node on the top levels with a large subtree and few siblings).
// - Parts are handed on as they come (a run, or the line end after a top-level node),
//   not gathered to a fixed size.
#pragma once

#include <pugixml.hpp>

#include <functional>
#include <string_view>

namespace tabulon::xml {

// Hands the text of node (as Writer::Write writes it) to piece, part by part in order.
// Returns false once piece refused a part (nothing more is written or handed on). An
// exception thrown while writing (out of memory) reaches the caller after every helper
// has stopped.
bool WriteInParallel(pugi::xml_node node, const std::function<bool(std::string_view)>& piece);

}  // namespace tabulon::xml
