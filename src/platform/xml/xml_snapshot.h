// Snapshot: an owned copy of what one element holds (its attributes and every node
// below it), kept apart from any Document, so that an edit journal can put an
// element's content back byte for byte. It costs memory in proportion to the content
// copied, never to the document.
//
// NodePath: where a node sits, as child positions from the document node down (every
// kind of child counts). A path stays right for as long as the nodes above it keep
// their children, which is what an undo journal guarantees when it replays its steps
// in order; handles do not survive an ancestor's rebuild, paths do.
//
// Decisions:
// - RestoreInto keeps handles where it can. When the element already has the same
//   attribute names in the same order and the same tree of child kinds and names,
//   only values are written and StructureVersion stays. Otherwise the attribute list
//   and/or the children are rebuilt: handles to what was below the element (and to
//   its attributes, when those are rebuilt) are no longer valid.
// - Copying, comparing and restoring walk the tree without recursion, so content
//   nested thousands of levels deep costs no stack.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "platform/xml/xml_document.h"

namespace tabulon::xml {

class Snapshot {
public:
    // Empty: holds nothing and restores nothing.
    Snapshot() = default;
    // The content of element (attributes, children, deep). An empty handle or a node
    // that is not an element gives an empty snapshot.
    static Snapshot Of(Node element);

    bool empty() const { return items_.empty(); }
    // Makes element's attributes and children equal to the snapshot's (the element's
    // own name stays). Nothing happens for an empty snapshot, an empty handle or a
    // node that is not an element.
    void RestoreInto(Node element) const;
    // True when element holds exactly this content.
    bool Matches(Node element) const;
    // Memory the snapshot keeps, in bytes (an estimate that counts every string).
    std::size_t Bytes() const;

private:
    struct Item {
        int type = 0;                // the library's node kind
        std::uint32_t children = 0;  // direct children
        std::string name;            // element or processing-instruction name
        std::string value;           // text, comment, instruction, DOCTYPE content
        std::vector<std::pair<std::string, std::string>> attributes;
    };
    std::vector<Item> items_;  // pre-order; items_[0] is the element itself
};

using NodePath = std::vector<std::uint32_t>;

// The path of node from its document node; empty for the document node and for an
// empty handle.
NodePath PathOf(Node node);
// The node at path below root (normally Document::root()); empty when the path leads
// nowhere.
Node NodeAt(Node root, const NodePath& path);

}  // namespace tabulon::xml
