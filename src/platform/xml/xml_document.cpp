#include "platform/xml/xml_document.h"

#include <pugixml.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <optional>
#include <utility>

#include "platform/xml/character_references.h"
#include "platform/xml/structure_version.h"
#include "platform/xml/text_encoding.h"
#include "platform/xml/text_lines.h"
#include "support/atomic_file.h"

namespace tabulon::xml {

namespace {

// Comments, processing instructions, declaration and DOCTYPE become nodes; text
// outside the document element is kept (as a fragment) so that validation sees it.
// Whitespace-only text is dropped because parse_ws_pcdata is not set.
// Whitespace-only text that is an element's only child is kept at first
// (parse_ws_pcdata_single) and dropped afterwards unless the element is a text element.
constexpr unsigned kParseOptions =
    pugi::parse_full | pugi::parse_fragment | pugi::parse_ws_pcdata_single;

bool Blank(const char* text) {
    for (; *text != '\0'; ++text) {
        if (*text != ' ' && *text != '\t' && *text != '\r' && *text != '\n') return false;
    }
    return true;
}

// Drops every whitespace-only only child of an element that is not a text element.
// Iterative: documents may nest deeper than the stack allows.
void DropBlankText(pugi::xml_document& document, const std::vector<std::string>& textElements) {
    const auto keeps = [&](std::string_view name) {
        return std::find(textElements.begin(), textElements.end(), name) != textElements.end();
    };
    pugi::xml_node node = document;
    for (;;) {
        pugi::xml_node child = node.first_child();
        if (child && !child.next_sibling() && child.type() == pugi::node_pcdata &&
            Blank(child.value()) && (node.type() != pugi::node_element || !keeps(node.name()))) {
            node.remove_child(child);
            child = pugi::xml_node();
        }
        if (child) {
            node = child;
            continue;
        }
        while (node != document && !node.next_sibling())
            node = node.parent();
        if (node == document) return;
        node = node.next_sibling();
    }
}

bool HasElementChild(const pugi::xml_document& document) {
    for (pugi::xml_node child : document.children()) {
        if (child.type() == pugi::node_element) return true;
    }
    return false;
}

bool FillError(ParseError* error, std::string reason) {
    if (error != nullptr) *error = ParseError{std::move(reason), 0, 0, 0};
    return false;
}

// Reads the whole file into text; returns 0 or the errno of the failure.
int ReadWholeFile(const std::string& path, std::string& text) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return errno;
    struct stat info {};
    if (fstat(fd, &info) == 0 && info.st_size > 0) {
        text.reserve(static_cast<std::size_t>(info.st_size));
    }
    char buffer[1 << 16];
    for (;;) {
        const ssize_t count = read(fd, buffer, sizeof buffer);
        if (count == 0) break;
        if (count < 0) {
            if (errno == EINTR) continue;
            const int cause = errno;
            close(fd);
            return cause;
        }
        text.append(buffer, static_cast<std::size_t>(count));
    }
    close(fd);
    return 0;
}

}  // namespace

struct Document::Impl {
    pugi::xml_document document;
    std::vector<std::string> textElements;
};

Document::Document() : impl_(std::make_unique<Impl>()) {}
Document::~Document() {
    ChangeStructure();
}
Document::Document(Document&&) noexcept = default;
Document& Document::operator=(Document&& other) noexcept {
    ChangeStructure();
    impl_ = std::move(other.impl_);
    return *this;
}

bool Document::Parse(std::string_view text, ParseError* error) {
    if (!impl_) impl_ = std::make_unique<Impl>();
    ChangeStructure();
    pugi::xml_document& document = impl_->document;
    document.reset();
    if (const std::optional<BadReference> bad = FirstBadCharacterReference(text)) {
        const TextPosition position = PositionOf(text, bad->offset);
        if (error != nullptr) {
            error->reason = "Invalid character reference \"" + bad->text + "\" at line " +
                            std::to_string(position.line) + ", column " +
                            std::to_string(position.column);
            error->offset = bad->offset;
            error->line = position.line;
            error->column = position.column;
        }
        return false;
    }
    pugi::xml_parse_result result = document.load_buffer(
        text.empty() ? "" : text.data(), text.size(), kParseOptions, pugi::encoding_utf8);
    if (result && !HasElementChild(document)) {
        result.status = pugi::status_no_document_element;
        result.offset = static_cast<std::ptrdiff_t>(text.size());
    }
    if (result) {
        DropBlankText(document, impl_->textElements);
        return true;
    }
    document.reset();
    if (error != nullptr) {
        const auto offset = static_cast<std::size_t>(result.offset);
        const TextPosition position = PositionOf(text, offset);
        error->reason = std::string(result.description()) + " at line " +
                        std::to_string(position.line) + ", column " +
                        std::to_string(position.column);
        error->offset = offset;
        error->line = position.line;
        error->column = position.column;
    }
    return false;
}

namespace {

// Reads a UTF-8 file of known size into a buffer of the parser's allocator, to be
// parsed in place, with a terminating zero as the parser's own copy has (without it the
// last character would be lost); null when the file is empty, UTF-16 or not as big as
// it said (the caller then reads it the ordinary way). size excludes the zero.
char* ReadForParsingInPlace(const std::string& path, std::size_t& size) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return nullptr;
    struct stat info {};
    char* buffer = nullptr;
    size = 0;
    if (fstat(fd, &info) == 0 && info.st_size > 0) {
        size = static_cast<std::size_t>(info.st_size);
        buffer = static_cast<char*>(pugi::get_memory_allocation_function()(size + 1));
    }
    std::size_t got = 0;
    char extra = 0;
    while (buffer != nullptr) {
        const ssize_t count = got < size ? read(fd, buffer + got, size - got) : read(fd, &extra, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count > 0 && got < size) {
            got += static_cast<std::size_t>(count);
            continue;
        }
        const std::string_view text(buffer, got);
        if (count != 0 || got != size || text.starts_with("\xFF\xFE") ||
            text.starts_with("\xFE\xFF")) {
            pugi::get_memory_deallocation_function()(buffer);
            buffer = nullptr;
        } else {
            buffer[size] = '\0';
        }
        break;
    }
    close(fd);
    return buffer;
}

}  // namespace

void Document::SetTextElements(std::vector<std::string> names) {
    if (!impl_) impl_ = std::make_unique<Impl>();
    impl_->textElements = std::move(names);
}

bool Document::LoadFile(const std::string& path, ParseError* error) {
    if (!impl_) impl_ = std::make_unique<Impl>();
    ChangeStructure();
    impl_->document.reset();
    // Parsed in place, a large file is held once while its tree is built, not twice.
    // A failure (a bad reference too) is parsed again from a copy, which keeps the text
    // to report from.
    std::size_t size = 0;
    char* buffer = ReadForParsingInPlace(path, size);
    if (buffer != nullptr && FirstBadCharacterReference(std::string_view(buffer, size))) {
        pugi::get_memory_deallocation_function()(buffer);
        buffer = nullptr;
    }
    if (buffer != nullptr) {
        pugi::xml_document& document = impl_->document;
        pugi::xml_parse_result result =
            document.load_buffer_inplace_own(buffer, size + 1, kParseOptions, pugi::encoding_utf8);
        if (result && HasElementChild(document)) {
            DropBlankText(document, impl_->textElements);
            return true;
        }
        ChangeStructure();
        document.reset();
    }
    std::string text;
    if (const int cause = ReadWholeFile(path, text); cause != 0) {
        return FillError(error, "Cannot read the file " + path + ": " + std::strerror(cause));
    }
    if (!DecodeFileText(text)) return FillError(error, "The file " + path + " is not valid UTF-16");
    return Parse(text, error);
}

Node Document::root() const {
    return impl_ ? Node(impl_->document.internal_object()) : Node();
}

Node Document::documentElement() const {
    if (!impl_) return Node();
    return Node(impl_->document.document_element().internal_object());
}

std::string Document::Serialize() const {
    return root().serialize();
}

bool Document::SaveAtomic(const std::string& path, std::string* reason) const {
    return WriteFileAtomically(path, Serialize(), reason);
}

}  // namespace tabulon::xml
