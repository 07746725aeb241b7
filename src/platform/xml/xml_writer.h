// The writer behind Node::serialize and Document::Serialize (xml_serialize.cpp). It
// writes a stretch of an element's text: from the element itself or from any node below
// it, given the elements open above that node, up to a node where the next stretch
// starts. Stretches written apart and put together are the element's text, which lets
// the parallel writer (parallel_writing.h) share one document among several threads.
// Not installed.
#pragma once

#include <pugixml.hpp>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::xml {

class Writer {
public:
    // An element whose start tag is written and whose end tag is not yet.
    struct Open {
        pugi::xml_node element;
        std::string_view name;
        bool inlineContent;  // its content stays on its line
    };
    // Where a stretch starts: at node, with open holding the elements open above it,
    // outermost first (empty at the element the stretch is of).
    struct Resume {
        std::vector<Open> open;
        pugi::xml_node node;
    };

    // Appends to out the text from `from` up to stop (the start of the next stretch;
    // an empty node: the end of the element). inlineAll: the element stands among
    // nodes that stay on one line (text at the top of the document).
    static void WriteStretch(std::string& out, const Resume& from, pugi::xml_node stop,
                             bool inlineAll);

    // Whether the content of an element, depth levels below the element a stretch is
    // of, stays on its line; first is its first child, parentInline the same answer
    // for the element that holds it.
    static bool InlineContent(bool parentInline, std::size_t depth, pugi::xml_node first,
                              pugi::xml_node_type firstType);

    // Whether first or a later sibling is text or CDATA.
    static bool HasTextChild(pugi::xml_node first);

private:
    explicit Writer(std::string& out) : out_(out) {}

    // Iterative, so that documents nested thousands of levels deep cannot exhaust
    // the stack; open_ holds the elements open above the node being written.
    void Walk(pugi::xml_node node, bool inlineAll, pugi::xml_node stop);
    void NewLine();
    void Attributes(pugi::xml_node node);
    // Returns the element's name, for its end tag.
    std::string_view StartTag(pugi::xml_node element);
    void CData(std::string_view text);
    void Leaf(pugi::xml_node node, pugi::xml_node_type type);

    std::string& out_;
    std::vector<Open> open_;
};

}  // namespace tabulon::xml
