// The XML document model: one owning Document and cheap Node/Attribute handles.
//
// Parsing keeps comments, processing instructions, the XML declaration and the
// DOCTYPE as nodes, and drops text that is only whitespace between elements (such
// text never counts as a child). Only the predefined and numeric character
// references are expanded; no DTD is read, no entity is ever resolved and nothing is
// fetched.
//
// Handles are plain values, cheap to copy, and empty when default-constructed or
// when a look-up finds nothing; every member is safe on an empty handle (reads give
// empty/0, writes do nothing). A handle stays valid until its node is removed or its
// Document is destroyed or re-parsed.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::xml {

enum class NodeType { None, Document, Element, Text, CData, Comment, ProcessingInstruction,
                      Declaration, Doctype };

class Attribute {
public:
    Attribute() = default;
    bool empty() const { return handle_ == nullptr; }
    explicit operator bool() const { return !empty(); }
    std::string_view name() const;
    std::string_view value() const;

private:
    friend class Node;
    explicit Attribute(void* handle) : handle_(handle) {}
    void* handle_ = nullptr;
};

class Node {
public:
    Node() = default;
    bool empty() const { return handle_ == nullptr; }
    explicit operator bool() const { return !empty(); }
    bool operator==(const Node& other) const { return handle_ == other.handle_; }

    NodeType type() const;
    // Element name; for other kinds the DOM's names: "#text", "#cdata-section",
    // "#comment", "#document", the target of a processing instruction, "xml" for the
    // declaration, the root name for a DOCTYPE.
    std::string_view name() const;
    // Text, CDATA, comment or processing-instruction content; empty for elements.
    std::string_view value() const;

    // --- children (whitespace-only text is not a child)
    Node firstChild() const;
    Node nextSibling() const;
    Node parent() const;
    std::size_t childCount() const;          // O(children)
    Node child(std::size_t index) const;     // O(index); empty when out of range
    Node firstChildElement(std::string_view name) const;  // "select single node" by name
    std::vector<Node> children() const;

    // --- attributes, in document order
    std::size_t attributeCount() const;
    Attribute attribute(std::size_t index) const;
    Attribute attribute(std::string_view name) const;  // first with exactly that name
    // Sets (or adds at the end) the attribute. Empty handle: nothing.
    void setAttribute(std::string_view name, std::string_view value);

    // The concatenated text of every text and CDATA descendant, in order (the DOM's
    // `text`, without trimming).
    std::string text() const;
    // Replaces every child with one text node holding text (none when text is empty).
    void setText(std::string_view text);

    // XPath 1.0 relative to this node. An invalid expression throws
    // std::invalid_argument with the reason.
    std::vector<Node> select(std::string_view xpath) const;

    // The node as XML text, exactly as Document::Serialize writes it.
    std::string serialize() const;

private:
    friend class Document;
    friend class Attribute;
    explicit Node(void* handle) : handle_(handle) {}
    void* handle_ = nullptr;
};

struct ParseError {
    std::string reason;  // e.g. "Start-end tags mismatch at line 3, column 7"
    std::size_t offset = 0;
    int line = 0;
    int column = 0;
};

class Document {
public:
    Document();
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Parses text, replacing what the document held. On failure the document is
    // empty and the error is returned through error (when given).
    bool Parse(std::string_view text, ParseError* error = nullptr);
    // Reads and parses a file (UTF-8 with or without BOM, UTF-16 with BOM). A file that
    // cannot be read fails with a reason naming the path.
    bool LoadFile(const std::string& path, ParseError* error = nullptr);

    Node root() const;             // the document node
    Node documentElement() const;  // the first element child of the root

    // The whole document as text: every node in order, two-space indentation and "\n"
    // line ends; text-only elements stay on one line.
    std::string Serialize() const;

    // Writes Serialize() to path atomically: a temporary file in the same folder,
    // flushed, then renamed over the target (whose permissions the new file takes
    // when it existed). Returns false and a reason on failure; the target is then
    // untouched.
    bool SaveAtomic(const std::string& path, std::string* reason = nullptr) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace tabulon::xml
