// The library node behind a handle, for the parts of the XML layer that work on the
// library's tree directly (snapshots, comparisons). Not installed.
#pragma once

#include <pugixml.hpp>

#include <cstdint>

#include "platform/xml/xml_document.h"

namespace tabulon::xml {

struct NodeInternals {
    static pugi::xml_node Pugi(const Node& node) {
        return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node.handle_));
    }
    static Node Wrap(pugi::xml_node node) { return Node(node.internal_object()); }
};

// The node after node in pre-order, staying below top; null after the last.
inline pugi::xml_node NextBelow(pugi::xml_node node, pugi::xml_node top) {
    if (node.first_child()) return node.first_child();
    while (node != top && !node.next_sibling())
        node = node.parent();
    return node == top ? pugi::xml_node() : node.next_sibling();
}

inline std::uint32_t ChildCount(pugi::xml_node node) {
    std::uint32_t count = 0;
    for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling())
        ++count;
    return count;
}

}  // namespace tabulon::xml
