// The writer behind Node::serialize and Document::Serialize. Every choice here serves
// one rule: parsing the output gives the same model. Line breaks and indentation are
// only put where the parser drops them again (between nodes of an element that has
// no text child), and every character the parser would change (CR, whitespace-only
// text, whitespace in attribute values) is written as a character reference.
//
// Content nested deeper than kMaxIndentedDepth levels is written without line breaks:
// indentation grows with depth, so indenting a hostile, deeply nested document
// would make its text quadratic in size.
#include <pugixml.hpp>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/xml/parallel_writing.h"
#include "platform/xml/xml_document.h"
#include "platform/xml/xml_writer.h"

namespace tabulon::xml {

namespace {

constexpr std::size_t kMaxIndentedDepth = 64;

enum class Context { Text, Attribute };

bool IsXmlWhitespace(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsWhitespaceOnly(std::string_view text) {
    for (char c : text) {
        if (!IsXmlWhitespace(c)) return false;
    }
    return !text.empty();
}

void AppendCharacterReference(std::string& out, char c) {
    out += "&#";
    out += std::to_string(static_cast<unsigned char>(c));
    out += ';';
}

// The replacement for c, or nullptr when c is written as it is.
constexpr const char* EntityFor(char c, Context context) {
    switch (c) {
        case '&':
            return "&amp;";
        case '<':
            return "&lt;";
        case '>':
            return "&gt;";
        case '"':
            return context == Context::Attribute ? "&quot;" : nullptr;
        default:
            return nullptr;
    }
}

constexpr bool NeedsCharacterReference(char c, Context context) {
    if (static_cast<unsigned char>(c) >= 0x20) return false;
    return context == Context::Attribute || (c != '\t' && c != '\n');
}

// Per byte: whether it is written otherwise than as it is, in text (bit 0) and in
// attribute values (bit 1). Most text needs nothing: runs of it are copied whole.
constexpr std::array<std::uint8_t, 256> kRewritten = [] {
    std::array<std::uint8_t, 256> table{};
    for (int c = 0; c < 256; ++c) {
        for (const Context context : {Context::Text, Context::Attribute}) {
            const char byte = static_cast<char>(c);
            if (EntityFor(byte, context) != nullptr || NeedsCharacterReference(byte, context))
                table[static_cast<std::size_t>(c)] |= context == Context::Text ? 1 : 2;
        }
    }
    return table;
}();

void AppendEscaped(std::string& out, std::string_view text, Context context) {
    if (context == Context::Text && IsWhitespaceOnly(text)) {
        for (char c : text) {
            AppendCharacterReference(out, c);
        }
        return;
    }
    const std::uint8_t mask = context == Context::Text ? 1 : 2;
    const std::size_t size = text.size();
    std::size_t run = 0;  // start of the pending run of characters written unchanged
    for (std::size_t i = 0; i < size; ++i) {
        if ((kRewritten[static_cast<unsigned char>(text[i])] & mask) == 0) continue;
        out.append(text.data() + run, i - run);
        if (const char* entity = EntityFor(text[i], context)) {
            out += entity;
        } else {
            AppendCharacterReference(out, text[i]);
        }
        run = i + 1;
    }
    out.append(text.data() + run, size - run);
}

bool IsText(pugi::xml_node_type type) {
    return type == pugi::node_pcdata || type == pugi::node_cdata;
}

}  // namespace

// Each call into the library is a real call, and the writer makes tens of millions of
// them on a large document: nodes are walked with first/next, and what one call
// returned is not asked again.
bool Writer::HasTextChild(pugi::xml_node first) {
    for (pugi::xml_node child = first; child; child = child.next_sibling()) {
        if (IsText(child.type())) return true;
    }
    return false;
}

bool Writer::InlineContent(bool parentInline, std::size_t depth, pugi::xml_node first,
                           pugi::xml_node_type firstType) {
    return parentInline || depth >= kMaxIndentedDepth || IsText(firstType) ||
           HasTextChild(first.next_sibling());
}

inline void Writer::NewLine() {
    out_ += '\n';
    out_.append(2 * open_.size(), ' ');
}

inline void Writer::Attributes(pugi::xml_node node) {
    for (pugi::xml_attribute attribute = node.first_attribute(); attribute;
         attribute = attribute.next_attribute()) {
        out_ += ' ';
        out_ += attribute.name();
        out_ += "=\"";
        AppendEscaped(out_, attribute.value(), Context::Attribute);
        out_ += '"';
    }
}

inline std::string_view Writer::StartTag(pugi::xml_node element) {
    const std::string_view name = element.name();
    out_ += '<';
    out_.append(name);
    Attributes(element);
    return name;
}

inline void Writer::CData(std::string_view text) {
    out_ += "<![CDATA[";
    // "]]>" cannot stand inside one section: close after "]]" and reopen.
    for (std::size_t at = text.find("]]>"); at != std::string_view::npos; at = text.find("]]>")) {
        out_.append(text.substr(0, at + 2));
        out_ += "]]><![CDATA[";
        text.remove_prefix(at + 2);
    }
    out_.append(text);
    out_ += "]]>";
}

inline void Writer::Leaf(pugi::xml_node node, pugi::xml_node_type type) {
    // Elements have no value: not asked for (each call crosses into the library).
    const std::string_view value = type == pugi::node_element ? "" : node.value();
    switch (type) {
        case pugi::node_element:
            StartTag(node);
            out_ += "/>";
            break;
        case pugi::node_pcdata:
            AppendEscaped(out_, value, Context::Text);
            break;
        case pugi::node_cdata:
            CData(value);
            break;
        case pugi::node_comment:
            out_ += "<!--";
            out_.append(value);
            out_ += "-->";
            break;
        case pugi::node_pi:
            out_ += "<?";
            out_ += node.name();
            if (!value.empty()) {
                out_ += ' ';
                out_.append(value);
            }
            out_ += "?>";
            break;
        case pugi::node_declaration:
            out_ += "<?xml";
            Attributes(node);
            out_ += "?>";
            break;
        case pugi::node_doctype:
            out_ += "<!DOCTYPE ";
            out_.append(value);
            out_ += '>';
            break;
        case pugi::node_document:
        case pugi::node_null:
            break;
    }
}

void Writer::WriteStretch(std::string& out, const Resume& from, pugi::xml_node stop,
                          bool inlineAll) {
    Writer writer(out);
    writer.open_ = from.open;
    writer.Walk(from.node, inlineAll, stop);
}

void Writer::Walk(pugi::xml_node node, bool inlineAll, pugi::xml_node stop) {
    // The type of node when a look at its siblings already asked for it.
    pugi::xml_node_type known = pugi::node_null;
    for (;;) {
        if (node == stop) return;
        const pugi::xml_node_type type = known != pugi::node_null ? known : node.type();
        known = pugi::node_null;
        const pugi::xml_node first =
            type == pugi::node_element ? node.first_child() : pugi::xml_node();
        if (first) {
            known = first.type();
            const bool inlineContent = InlineContent(
                open_.empty() ? inlineAll : open_.back().inlineContent, open_.size(), first, known);
            open_.push_back({node, StartTag(node), inlineContent});
            out_ += '>';
            node = first;
            if (!inlineContent) NewLine();
            continue;
        }
        Leaf(node, type);
        pugi::xml_node next;
        while (!open_.empty() && !(next = node.next_sibling())) {
            const Open closed = open_.back();
            open_.pop_back();
            node = closed.element;
            if (!closed.inlineContent) NewLine();
            out_ += "</";
            out_.append(closed.name);
            out_ += '>';
        }
        if (open_.empty()) return;
        node = next;
        if (!open_.back().inlineContent) NewLine();
    }
}

std::string Node::serialize(std::size_t expectedBytes) const {
    std::string out;
    // A little over: the text written may be longer than the text read.
    out.reserve(expectedBytes + expectedBytes / 16);
    WriteInParallel(pugi::xml_node(static_cast<pugi::xml_node_struct*>(handle_)),
                    [&out](std::string_view piece) {
                        out.append(piece);
                        return true;
                    });
    return out;
}

bool Node::serialize(const std::function<bool(std::string_view)>& piece) const {
    return WriteInParallel(pugi::xml_node(static_cast<pugi::xml_node_struct*>(handle_)), piece);
}

}  // namespace tabulon::xml
