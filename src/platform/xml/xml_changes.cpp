#include "platform/xml/xml_changes.h"

#include <cstring>

#include "platform/xml/node_internals.h"

namespace tabulon::xml {

namespace {

bool SameAttributes(pugi::xml_node a, pugi::xml_node b) {
    pugi::xml_attribute x = a.first_attribute();
    pugi::xml_attribute y = b.first_attribute();
    for (; x && y; x = x.next_attribute(), y = y.next_attribute()) {
        if (std::strcmp(x.name(), y.name()) != 0 || std::strcmp(x.value(), y.value()) != 0)
            return false;
    }
    return !x && !y;
}

// Same kind, name, value and attributes; children are not looked at.
bool SameNode(pugi::xml_node a, pugi::xml_node b) {
    return a.type() == b.type() && std::strcmp(a.name(), b.name()) == 0 &&
           std::strcmp(a.value(), b.value()) == 0 && SameAttributes(a, b);
}

// The element's own attributes, its children's number, kinds and names, and every
// child that is not an element (such children have no children of their own).
bool SameLevel(pugi::xml_node a, pugi::xml_node b) {
    if (!SameAttributes(a, b)) return false;
    pugi::xml_node x = a.first_child();
    pugi::xml_node y = b.first_child();
    for (; x && y; x = x.next_sibling(), y = y.next_sibling()) {
        if (x.type() != y.type()) return false;
        if (x.type() == pugi::node_element) {
            if (std::strcmp(x.name(), y.name()) != 0) return false;
        } else if (!SameNode(x, y)) {
            return false;
        }
    }
    return !x && !y;
}

}  // namespace

bool SameContent(Node a, Node b) {
    const pugi::xml_node top = NodeInternals::Pugi(a);
    const pugi::xml_node other = NodeInternals::Pugi(b);
    if (!top || !other) return !top && !other;
    if (!SameAttributes(top, other) || ChildCount(top) != ChildCount(other)) return false;
    pugi::xml_node x = NextBelow(top, top);
    pugi::xml_node y = NextBelow(other, other);
    for (; x && y; x = NextBelow(x, top), y = NextBelow(y, other)) {
        if (!SameNode(x, y) || ChildCount(x) != ChildCount(y)) return false;
    }
    return !x && !y;
}

std::vector<std::pair<Node, Node>> ChangedElements(Node before, Node after) {
    std::vector<std::pair<Node, Node>> changed;
    struct Pending {
        pugi::xml_node before;
        pugi::xml_node after;
        std::size_t depth;
    };
    if (SameContent(before, after)) return changed;
    std::vector<Pending> pending{{NodeInternals::Pugi(before), NodeInternals::Pugi(after), 0}};
    while (!pending.empty()) {
        const Pending at = pending.back();
        pending.pop_back();
        if (at.depth >= kMaxChangeDepth || !SameLevel(at.before, at.after)) {
            changed.emplace_back(NodeInternals::Wrap(at.before), NodeInternals::Wrap(at.after));
            continue;
        }
        // Children pushed last to first, so they come out in document order.
        std::vector<Pending> children;
        for (pugi::xml_node x = at.before.first_child(), y = at.after.first_child(); x && y;
             x = x.next_sibling(), y = y.next_sibling()) {
            if (x.type() == pugi::node_element &&
                !SameContent(NodeInternals::Wrap(x), NodeInternals::Wrap(y))) {
                children.push_back({x, y, at.depth + 1});
            }
        }
        pending.insert(pending.end(), children.rbegin(), children.rend());
    }
    return changed;
}

}  // namespace tabulon::xml
