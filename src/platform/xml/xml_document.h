// The XML document model: one owning Document and cheap Node/Attribute handles.
//
// Parsing keeps comments, processing instructions, the XML declaration and the
// DOCTYPE as nodes, and drops text that is only whitespace (space, tab, CR, LF) between
// elements (such text never counts as a child); the whole content of an element named
// as a text element (SetTextElements) is kept, whitespace or not. Other text is kept
// exactly, leading and trailing blanks included. Only the predefined and numeric
// character references are expanded, and a numeric one that is incomplete or names a
// character XML does not allow ("&#0;", "&#4294967361;") fails the parse; no DTD is
// read, no entity is ever resolved and nothing is fetched. A
// reference to any other entity ("&name;") and a lone "&" stay in the text as they are
// written and are escaped again on output. Text outside the document element is kept
// as a child of the document node, so that the serialised text still shows it and
// the validating parse rejects it.
//
// Handles are plain values, cheap to copy, and empty when default-constructed or
// when a look-up finds nothing; every member is safe on an empty handle (reads give
// empty/0, writes do nothing). A handle stays valid until its node is removed (setText
// removes the children it replaces) or its Document is destroyed or re-parsed. Moving
// a Document keeps its handles valid.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {
struct FileStamp;  // support/file_stamp.h
}  // namespace tabulon

namespace tabulon::xml {

enum class NodeType {
    None,
    Document,
    Element,
    Text,
    CData,
    Comment,
    ProcessingInstruction,
    Declaration,
    Doctype
};

class Attribute {
public:
    Attribute() = default;
    bool empty() const { return handle_ == nullptr; }
    explicit operator bool() const { return !empty(); }
    std::string_view name() const;   // "" when empty
    std::string_view value() const;  // "" when empty
    // The next attribute of the same node, in document order; empty after the last
    // one and on an empty handle.
    Attribute next() const;

private:
    friend class Node;
    friend struct NodeInternals;
    explicit Attribute(void* handle) : handle_(handle) {}
    void* handle_ = nullptr;
};

class Node {
public:
    Node() = default;
    bool empty() const { return handle_ == nullptr; }
    explicit operator bool() const { return !empty(); }
    bool operator==(const Node& other) const { return handle_ == other.handle_; }
    // For unordered containers keyed by node: handles of one node hash alike.
    struct Hash {
        std::size_t operator()(const Node& node) const noexcept {
            return std::hash<const void*>{}(node.handle_);
        }
    };

    NodeType type() const;  // None when empty
    // Element name; for other kinds the DOM's names: "#text", "#cdata-section",
    // "#comment", "#document", the target of a processing instruction, "xml" for the
    // declaration, the root name for a DOCTYPE.
    std::string_view name() const;
    // Text, CDATA, comment or processing-instruction content; for a DOCTYPE the text
    // between "<!DOCTYPE " and the closing ">"; empty for elements, the declaration
    // and the document.
    std::string_view value() const;

    // --- children (whitespace-only text is not a child)
    Node firstChild() const;
    Node nextSibling() const;
    Node parent() const;
    std::size_t childCount() const;       // O(children)
    Node child(std::size_t index) const;  // O(index); empty when out of range
    // The first child element with exactly that name ("select single node" by name);
    // empty when there is none.
    Node firstChildElement(std::string_view name) const;
    std::vector<Node> children() const;

    // --- attributes, in document order (elements and the declaration have them)
    std::size_t attributeCount() const;
    Attribute firstAttribute() const;                  // empty when there is none
    Attribute attribute(std::size_t index) const;      // empty when out of range
    Attribute attribute(std::string_view name) const;  // first with exactly that name
    // Sets the first attribute of that name, or adds one at the end. Names are not
    // checked beyond being non-empty; an empty name, an empty handle or a node kind
    // without attributes: nothing.
    void setAttribute(std::string_view name, std::string_view value);

    // The concatenated text of every text and CDATA descendant, in order (the DOM's
    // `text`, without trimming); for a text or CDATA node its own content.
    std::string text() const;
    // Element: replaces every child with one text node holding text (no child when
    // text is empty). Text, CDATA, comment, processing instruction: replaces the
    // content. Other kinds and empty handles: nothing.
    void setText(std::string_view text);

    // XPath 1.0 relative to this node; the nodes selected, in document order
    // (attributes a path selects are left out). An expression that is invalid or
    // does not give a node set throws std::invalid_argument with the reason, also
    // on an empty handle, which otherwise selects nothing.
    std::vector<Node> select(std::string_view xpath) const;

    // The node as XML text, exactly as Document::Serialize writes it, indented from
    // column 0 and without a final line end ("" when empty). For the document node
    // it is Document::Serialize().
    // expectedBytes, when known (the size of the text parsed), is made room for at
    // once instead of growing the text as it is written.
    std::string serialize(std::size_t expectedBytes = 0) const;
    // The same text handed to piece in parts, in order, as it is written (on every
    // processor: platform/xml/parallel_writing.h), so that a large document is never
    // held whole a second time. Stops at the first part piece refuses (returns false),
    // and then returns false.
    bool serialize(const std::function<bool(std::string_view)>& piece) const;

private:
    friend class Document;
    friend class Attribute;
    friend struct NodeInternals;
    explicit Node(void* handle) : handle_(handle) {}
    void* handle_ = nullptr;
};

// A number that changes whenever any document anywhere gains or loses a node or an
// attribute, and whenever a document is parsed, loaded, assigned or destroyed. Setting
// the value of an existing attribute, the content of a text, comment or processing
// instruction, or a non-empty text on an element whose only child is a text leaves it
// as it is. So while it stays the same, every handle taken from a document stays valid
// and the document keeps its shape; only texts and attribute values may differ.
std::uint64_t StructureVersion();

// A number that changes whenever the value of an attribute of any document is set
// (setAttribute, whether or not the value differs) or put back (Snapshot::RestoreInto,
// when it differs). Paired with StructureVersion, an unchanged pair means every
// attribute value read before is still the same.
std::uint64_t AttributeValuesVersion();

struct ParseError {
    std::string reason;      // e.g. "Start-end tags mismatch at line 3, column 7"
    std::size_t offset = 0;  // byte offset of the error in the parsed text
    int line = 0;            // 1-based; lines end at LF
    int column = 0;          // 1-based, in characters (not bytes) of the line
};

class Document {
public:
    Document();
    ~Document();
    Document(Document&&) noexcept;
    Document& operator=(Document&&) noexcept;
    Document(const Document&) = delete;
    Document& operator=(const Document&) = delete;

    // Elements whose content is text (the (#PCDATA) elements of a DTD): a text made
    // only of whitespace that is such an element's only child stays, as in
    // "<CellValue>  </CellValue>". Applies to later Parse and LoadFile calls; none by
    // default.
    void SetTextElements(std::vector<std::string> names);

    // Parses UTF-8 text (a leading byte order mark is skipped), replacing what the
    // document held. Text without any element fails ("No document element found").
    // On failure the document is empty and the error is returned through error
    // (when given).
    [[nodiscard]] bool Parse(std::string_view text, ParseError* error = nullptr);
    // Reads and parses a file: UTF-8 with or without BOM, UTF-16 (either byte order)
    // with BOM. Without a BOM the file is read as UTF-8. A file that cannot be read,
    // is larger than maxBytes (checked on the open file before anything is read),
    // does not fit in memory or is not valid UTF-16 fails with a reason naming the
    // path; a parse error reports line and column in the decoded text.
    [[nodiscard]] bool LoadFile(const std::string& path, ParseError* error = nullptr,
                                std::uint64_t maxBytes = UINT64_MAX);

    Node root() const;             // the document node (empty only after a move)
    Node documentElement() const;  // the first element child of the root

    // The whole document as UTF-8 text: every top-level node in order, each followed
    // by "\n"; an element's children one per line, indented two spaces per level.
    // An element holding any text or CDATA child is written on one line with its
    // whole content unchanged (`<CellValue Enabled="1">12</CellValue>`); an element
    // without children as `<Name a="1"/>`. In attribute values &, <, >, ", tab, LF,
    // CR and other control characters are escaped; in text &, <, >, CR and control
    // characters other than tab and LF, and a text made only of whitespace is written
    // as character references. Content nested deeper than 64 levels is written without
    // line breaks, so the text stays linear in size. Parse(Serialize()) gives the same
    // model, unless it holds characters XML does not allow (control characters other
    // than tab, LF and CR): their references are refused when read back.
    std::string Serialize() const;

    // What the last LoadFile read: the file's identity, size, time and content hash
    // (unknown after Parse or a failed LoadFile).
    const FileStamp& fileStamp() const;

    // Writes Serialize() to path, part by part as it is written, with
    // WriteFileAtomically (support/atomic_file.h): a new file renamed over the target,
    // or the target rewritten in place behind a backup copy; owner, group,
    // permissions and extended attributes kept; links, folders, FIFOs, devices,
    // read-only files refused. With expected, the target must still be that file,
    // unchanged. written receives the stamp of the saved file. Returns false and a
    // reason on failure; the target is then as it was.
    [[nodiscard]] bool SaveAtomic(const std::string& path, std::string* reason = nullptr,
                                  const FileStamp* expected = nullptr,
                                  FileStamp* written = nullptr) const;

private:
    struct Impl;
    std::unique_ptr<Impl> impl_;
};

}  // namespace tabulon::xml
