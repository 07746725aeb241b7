#include <pugixml.hpp>

#include <atomic>
#include <memory>
#include <stdexcept>
#include <string>

#include "platform/xml/structure_version.h"
#include "platform/xml/xml_document.h"

namespace tabulon::xml {

namespace {

pugi::xml_node AsPugi(void* handle) {
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(handle));
}

pugi::xml_attribute AsPugiAttribute(void* handle) {
    return pugi::xml_attribute(static_cast<pugi::xml_attribute_struct*>(handle));
}

bool IsTextLike(pugi::xml_node node) {
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

// The root name of a DOCTYPE: its value up to the first blank or "[".
std::string_view DoctypeName(std::string_view value) {
    return value.substr(0, value.find_first_of(" \t\r\n["));
}

// Whether setting text on the element keeps its shape: its only child is a text and
// stays one.
bool OnlyTextStaysText(pugi::xml_node element, std::string_view text) {
    const pugi::xml_node only = element.first_child();
    return !text.empty() && only && !only.next_sibling() && IsTextLike(only);
}

std::atomic<std::uint64_t> gStructureVersion{0};
std::atomic<std::uint64_t> gAttributeValuesVersion{0};

}  // namespace

std::uint64_t StructureVersion() {
    return gStructureVersion.load(std::memory_order_acquire);
}

std::uint64_t AttributeValuesVersion() {
    return gAttributeValuesVersion.load(std::memory_order_acquire);
}

void ChangeStructure() {
    gStructureVersion.fetch_add(1, std::memory_order_acq_rel);
}

void ChangeAttributeValues() {
    gAttributeValuesVersion.fetch_add(1, std::memory_order_acq_rel);
}

// --- Attribute

std::string_view Attribute::name() const {
    return AsPugiAttribute(handle_).name();
}
std::string_view Attribute::value() const {
    return AsPugiAttribute(handle_).value();
}
Attribute Attribute::next() const {
    return Attribute(AsPugiAttribute(handle_).next_attribute().internal_object());
}

// --- Node: identity

NodeType Node::type() const {
    switch (AsPugi(handle_).type()) {
        case pugi::node_document:
            return NodeType::Document;
        case pugi::node_element:
            return NodeType::Element;
        case pugi::node_pcdata:
            return NodeType::Text;
        case pugi::node_cdata:
            return NodeType::CData;
        case pugi::node_comment:
            return NodeType::Comment;
        case pugi::node_pi:
            return NodeType::ProcessingInstruction;
        case pugi::node_declaration:
            return NodeType::Declaration;
        case pugi::node_doctype:
            return NodeType::Doctype;
        case pugi::node_null:
            break;
    }
    return NodeType::None;
}

std::string_view Node::name() const {
    const pugi::xml_node node = AsPugi(handle_);
    switch (node.type()) {
        case pugi::node_document:
            return "#document";
        case pugi::node_pcdata:
            return "#text";
        case pugi::node_cdata:
            return "#cdata-section";
        case pugi::node_comment:
            return "#comment";
        case pugi::node_doctype:
            return DoctypeName(node.value());
        case pugi::node_element:
        case pugi::node_pi:
        case pugi::node_declaration:
            return node.name();
        case pugi::node_null:
            break;
    }
    return {};
}

std::string_view Node::value() const {
    const pugi::xml_node node = AsPugi(handle_);
    if (node.type() == pugi::node_element || node.type() == pugi::node_declaration) return {};
    return node.value();
}

// --- Node: children

Node Node::firstChild() const {
    return Node(AsPugi(handle_).first_child().internal_object());
}

Node Node::nextSibling() const {
    return Node(AsPugi(handle_).next_sibling().internal_object());
}

Node Node::parent() const {
    return Node(AsPugi(handle_).parent().internal_object());
}

std::size_t Node::childCount() const {
    std::size_t count = 0;
    for (pugi::xml_node child = AsPugi(handle_).first_child(); child;
         child = child.next_sibling()) {
        ++count;
    }
    return count;
}

Node Node::child(std::size_t index) const {
    pugi::xml_node child = AsPugi(handle_).first_child();
    for (; child && index > 0; --index) {
        child = child.next_sibling();
    }
    return Node(child.internal_object());
}

Node Node::firstChildElement(std::string_view name) const {
    for (pugi::xml_node child : AsPugi(handle_).children()) {
        if (child.type() == pugi::node_element && name == child.name()) {
            return Node(child.internal_object());
        }
    }
    return Node();
}

std::vector<Node> Node::children() const {
    std::vector<Node> nodes;
    for (pugi::xml_node child : AsPugi(handle_).children()) {
        nodes.push_back(Node(child.internal_object()));
    }
    return nodes;
}

// --- Node: attributes

std::size_t Node::attributeCount() const {
    std::size_t count = 0;
    for (pugi::xml_attribute attribute = AsPugi(handle_).first_attribute(); attribute;
         attribute = attribute.next_attribute()) {
        ++count;
    }
    return count;
}

Attribute Node::firstAttribute() const {
    return Attribute(AsPugi(handle_).first_attribute().internal_object());
}

Attribute Node::attribute(std::size_t index) const {
    pugi::xml_attribute attribute = AsPugi(handle_).first_attribute();
    for (; attribute && index > 0; --index) {
        attribute = attribute.next_attribute();
    }
    return Attribute(attribute.internal_object());
}

Attribute Node::attribute(std::string_view name) const {
    // The saving gate looks up one attribute of every cell of a document: short names
    // go to the library's own search in one call, through a terminated copy.
    char terminated[64];
    if (name.size() < sizeof terminated) {
        std::size_t length = 0;
        while (length < name.size() && name[length] != '\0') {
            terminated[length] = name[length];
            ++length;
        }
        if (length == name.size()) {
            terminated[length] = '\0';
            return Attribute(AsPugi(handle_).attribute(terminated).internal_object());
        }
    }
    for (pugi::xml_attribute attribute : AsPugi(handle_).attributes()) {
        if (name == attribute.name()) return Attribute(attribute.internal_object());
    }
    return Attribute();
}

void Node::setAttribute(std::string_view name, std::string_view value) {
    if (name.empty()) return;
    pugi::xml_node node = AsPugi(handle_);
    pugi::xml_attribute attribute = AsPugiAttribute(this->attribute(name).handle_);
    if (!attribute) {
        attribute = node.append_attribute(std::string(name).c_str());
        if (attribute) ChangeStructure();
    }
    if (!attribute) return;
    attribute.set_value(value.data(), value.size());
    ChangeAttributeValues();
}

// --- Node: text

std::string Node::text() const {
    const pugi::xml_node top = AsPugi(handle_);
    if (IsTextLike(top)) return top.value();
    std::string text;
    // Iterative walk: documents nested thousands of levels deep must not exhaust the stack.
    pugi::xml_node node = top.first_child();
    while (node) {
        if (IsTextLike(node)) text += node.value();
        if (node.first_child()) {
            node = node.first_child();
            continue;
        }
        while (node && node != top && !node.next_sibling()) {
            node = node.parent();
        }
        node = node == top ? pugi::xml_node() : node.next_sibling();
    }
    return text;
}

void Node::setText(std::string_view text) {
    pugi::xml_node node = AsPugi(handle_);
    switch (node.type()) {
        case pugi::node_element:
            if (!OnlyTextStaysText(node, text)) ChangeStructure();
            node.remove_children();
            if (!text.empty()) {
                node.append_child(pugi::node_pcdata).set_value(text.data(), text.size());
            }
            return;
        case pugi::node_pcdata:
        case pugi::node_cdata:
        case pugi::node_comment:
        case pugi::node_pi:
            node.set_value(text.data(), text.size());
            return;
        default:
            return;
    }
}

// --- Node: XPath

std::vector<Node> Node::select(std::string_view xpath) const {
    const std::string expression(xpath);
    std::unique_ptr<pugi::xpath_query> query;
    try {
        query = std::make_unique<pugi::xpath_query>(expression.c_str());
    } catch (const pugi::xpath_exception& error) {
        throw std::invalid_argument(std::string(error.what()) + " in XPath \"" + expression + "\"");
    }
    if (!*query) {
        throw std::invalid_argument(std::string(query->result().description()) + " in XPath \"" +
                                    expression + "\"");
    }
    if (query->return_type() != pugi::xpath_type_node_set) {
        throw std::invalid_argument("XPath \"" + expression + "\" does not select nodes");
    }
    std::vector<Node> nodes;
    const pugi::xml_node node = AsPugi(handle_);
    if (!node) return nodes;
    pugi::xpath_node_set selected = query->evaluate_node_set(node);
    selected.sort();
    for (const pugi::xpath_node& item : selected) {
        if (item.node() && !item.attribute()) nodes.push_back(Node(item.node().internal_object()));
    }
    return nodes;
}

}  // namespace tabulon::xml
