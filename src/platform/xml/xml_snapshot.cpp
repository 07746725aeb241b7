#include "platform/xml/xml_snapshot.h"

#include "platform/xml/node_internals.h"
#include "platform/xml/structure_version.h"

namespace tabulon::xml {

namespace {

bool SameAttributeNames(pugi::xml_node node,
                        const std::vector<std::pair<std::string, std::string>>& attributes) {
    std::size_t i = 0;
    for (pugi::xml_attribute a = node.first_attribute(); a; a = a.next_attribute(), ++i) {
        if (i >= attributes.size() || attributes[i].first != a.name()) return false;
    }
    return i == attributes.size();
}

bool SameAttributes(pugi::xml_node node,
                    const std::vector<std::pair<std::string, std::string>>& attributes) {
    if (!SameAttributeNames(node, attributes)) return false;
    std::size_t i = 0;
    for (pugi::xml_attribute a = node.first_attribute(); a; a = a.next_attribute(), ++i) {
        if (attributes[i].second != a.value()) return false;
    }
    return true;
}

// A value put back is a value set, as setAttribute's: what was read of the document's
// attributes before (the saving gate's "all valid") no longer holds.
void WriteAttributeValues(pugi::xml_node node,
                          const std::vector<std::pair<std::string, std::string>>& attributes) {
    std::size_t i = 0;
    for (pugi::xml_attribute a = node.first_attribute(); a; a = a.next_attribute(), ++i) {
        if (attributes[i].second == a.value()) continue;
        a.set_value(attributes[i].second.c_str());
        ChangeAttributeValues();
    }
}

void AppendAttributes(pugi::xml_node node,
                      const std::vector<std::pair<std::string, std::string>>& attributes) {
    for (const auto& [name, value] : attributes)
        node.append_attribute(name.c_str()).set_value(value.c_str());
    if (!attributes.empty()) ChangeAttributeValues();
}

bool HasName(int type) {
    return type == pugi::node_element || type == pugi::node_pi || type == pugi::node_declaration;
}

}  // namespace

Snapshot Snapshot::Of(Node element) {
    Snapshot snapshot;
    const pugi::xml_node top = NodeInternals::Pugi(element);
    if (top.type() != pugi::node_element) return snapshot;
    for (pugi::xml_node node = top; node; node = NextBelow(node, top)) {
        Item item;
        item.type = node.type();
        item.children = ChildCount(node);
        if (HasName(item.type) && node != top) item.name = node.name();
        if (!HasName(item.type) || item.type == pugi::node_pi) item.value = node.value();
        for (pugi::xml_attribute a = node.first_attribute(); a; a = a.next_attribute())
            item.attributes.emplace_back(a.name(), a.value());
        snapshot.items_.push_back(std::move(item));
    }
    return snapshot;
}

bool Snapshot::Matches(Node element) const {
    const pugi::xml_node top = NodeInternals::Pugi(element);
    if (items_.empty() || top.type() != pugi::node_element) return false;
    std::size_t i = 0;
    for (pugi::xml_node node = top; node; node = NextBelow(node, top), ++i) {
        if (i >= items_.size()) return false;
        const Item& item = items_[i];
        if (item.type != node.type() || item.children != ChildCount(node) ||
            !SameAttributes(node, item.attributes)) {
            return false;
        }
        if (node != top && HasName(item.type) && item.name != node.name()) return false;
        if ((!HasName(item.type) || item.type == pugi::node_pi) && item.value != node.value())
            return false;
    }
    return i == items_.size();
}

void Snapshot::RestoreInto(Node element) const {
    pugi::xml_node top = NodeInternals::Pugi(element);
    if (items_.empty() || top.type() != pugi::node_element) return;

    // The element's own attributes: values in place when the names line up.
    if (SameAttributeNames(top, items_[0].attributes)) {
        WriteAttributeValues(top, items_[0].attributes);
    } else {
        while (top.first_attribute())
            top.remove_attribute(top.first_attribute());
        AppendAttributes(top, items_[0].attributes);
        ChangeStructure();
    }

    // The children: values in place when every node below has the same kind, name,
    // attribute names and child count; otherwise rebuilt.
    bool sameShape = items_[0].children == ChildCount(top);
    std::size_t i = 1;
    for (pugi::xml_node node = NextBelow(top, top); sameShape && node;
         node = NextBelow(node, top), ++i) {
        sameShape = i < items_.size() && items_[i].type == node.type() &&
                    items_[i].children == ChildCount(node) &&
                    (!HasName(node.type()) || items_[i].name == node.name()) &&
                    SameAttributeNames(node, items_[i].attributes);
    }
    sameShape = sameShape && i == items_.size();

    if (sameShape) {
        i = 1;
        for (pugi::xml_node node = NextBelow(top, top); node; node = NextBelow(node, top), ++i) {
            const Item& item = items_[i];
            WriteAttributeValues(node, item.attributes);
            if ((!HasName(item.type) || item.type == pugi::node_pi) && item.value != node.value())
                node.set_value(item.value.c_str());
        }
        return;
    }

    top.remove_children();
    ChangeStructure();
    // Parents still waiting for children, with how many they still take.
    std::vector<std::pair<pugi::xml_node, std::uint32_t>> open{{top, items_[0].children}};
    for (i = 1; i < items_.size(); ++i) {
        while (open.back().second == 0)
            open.pop_back();
        --open.back().second;
        const Item& item = items_[i];
        pugi::xml_node node =
            open.back().first.append_child(static_cast<pugi::xml_node_type>(item.type));
        if (HasName(item.type)) node.set_name(item.name.c_str());
        if (!HasName(item.type) || item.type == pugi::node_pi) node.set_value(item.value.c_str());
        AppendAttributes(node, item.attributes);
        if (item.children > 0) open.emplace_back(node, item.children);
    }
}

std::size_t Snapshot::Bytes() const {
    std::size_t bytes = sizeof(Snapshot) + items_.capacity() * sizeof(Item);
    for (const Item& item : items_) {
        bytes += item.name.capacity() + item.value.capacity();
        bytes += item.attributes.capacity() * sizeof(item.attributes[0]);
        for (const auto& [name, value] : item.attributes)
            bytes += name.capacity() + value.capacity();
    }
    return bytes;
}

NodePath PathOf(Node node) {
    NodePath path;
    for (pugi::xml_node at = NodeInternals::Pugi(node); at && at.parent(); at = at.parent()) {
        std::uint32_t position = 0;
        for (pugi::xml_node before = at.previous_sibling(); before;
             before = before.previous_sibling()) {
            ++position;
        }
        path.push_back(position);
    }
    return NodePath(path.rbegin(), path.rend());
}

Node NodeAt(Node root, const NodePath& path) {
    Node node = root;
    for (const std::uint32_t position : path) {
        node = node.child(position);
        if (!node) break;
    }
    return node;
}

}  // namespace tabulon::xml
