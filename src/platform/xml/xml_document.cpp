#include "platform/xml/xml_document.h"

#include <pugixml.hpp>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <new>
#include <optional>
#include <utility>

#include "platform/xml/character_references.h"
#include "platform/xml/structure_version.h"
#include "platform/xml/text_encoding.h"
#include "platform/xml/text_lines.h"
#include "support/atomic_file.h"
#include "support/file_stamp.h"

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

// Whether the text node was written as whitespace in source (not as references such
// as "&#32;", which are content wherever they stand).
bool WrittenBlank(pugi::xml_node text, std::string_view source) {
    const std::ptrdiff_t at = text.offset_debug();
    if (at < 0 || static_cast<std::size_t>(at) >= source.size()) return true;
    const std::string_view written = source.substr(static_cast<std::size_t>(at));
    return written.substr(0, written.find('<')).find('&') == std::string_view::npos;
}

// Drops every whitespace-only only child, written as whitespace, of an element that is
// not a text element. Iterative: documents may nest deeper than the stack allows.
void DropBlankText(pugi::xml_document& document, std::string_view source,
                   const std::vector<std::string>& textElements) {
    const auto keeps = [&](std::string_view name) {
        return std::find(textElements.begin(), textElements.end(), name) != textElements.end();
    };
    pugi::xml_node node = document;
    for (;;) {
        pugi::xml_node child = node.first_child();
        if (child && !child.next_sibling() && child.type() == pugi::node_pcdata &&
            Blank(child.value()) && (node.type() != pugi::node_element || !keeps(node.name())) &&
            WrittenBlank(child, source)) {
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

// Reads the whole file into text; returns 0, EFBIG when it is larger than maxBytes,
// ENOMEM when it does not fit in memory, or the errno of the failure.
int ReadWholeFile(const std::string& path, std::string& text, std::uint64_t maxBytes,
                  struct stat& info) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return errno;
    const auto closeWith = [fd](int cause) {
        close(fd);
        return cause;
    };
    try {
        if (fstat(fd, &info) != 0) return closeWith(errno);
        if (info.st_size > 0) {
            if (static_cast<std::uint64_t>(info.st_size) > maxBytes) return closeWith(EFBIG);
            text.reserve(static_cast<std::size_t>(info.st_size));
        }
        char buffer[1 << 16];
        for (;;) {
            const ssize_t count = read(fd, buffer, sizeof buffer);
            if (count == 0) break;
            if (count < 0) {
                if (errno == EINTR) continue;
                return closeWith(errno);
            }
            text.append(buffer, static_cast<std::size_t>(count));
            if (text.size() > maxBytes) return closeWith(EFBIG);  // it grew while read
        }
        // What was read, as the file is now: its time and size after the last read.
        if (fstat(fd, &info) != 0) return closeWith(errno);
    } catch (const std::bad_alloc&) {
        std::string().swap(text);
        return closeWith(ENOMEM);
    }
    return closeWith(0);
}

}  // namespace

struct Document::Impl {
    pugi::xml_document document;
    std::vector<std::string> textElements;
    FileStamp stamp;
    std::size_t sourceBytes = 0;  // of the text last parsed
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
    impl_->stamp = FileStamp{};
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
        DropBlankText(document, text, impl_->textElements);
        impl_->sourceBytes = text.size();
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

// A UTF-8 file read whole into a buffer of the parser's allocator, to be parsed in place,
// with a terminating zero as the parser's own copy has (without it the last character
// would be lost).
struct InPlaceText {
    char* buffer = nullptr;  // null: the file is to be read the ordinary way
    std::size_t size = 0;    // without the zero
    struct stat info {};     // the file after the last read
    bool inPlace = false;    // false: parsed from a copy of the buffer (see below)
};

void Release(InPlaceText& read) {
    pugi::get_memory_deallocation_function()(read.buffer);
    read.buffer = nullptr;
}

// Returns 0, EFBIG when the file is larger than maxBytes (before anything is read),
// ENOMEM when it does not fit in memory, or the errno of a failure to open it. The
// buffer stays null when the file is empty or not as big as it said. A UTF-16 file, or
// one holding a numeric character reference, is read but not for parsing in place:
// their checks need the text as written, which parsing in place overwrites.
int ReadForParsingInPlace(const std::string& path, std::uint64_t maxBytes, InPlaceText& read) {
    const int fd = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return errno;
    const auto closeWith = [fd](int cause) {
        close(fd);
        return cause;
    };
    if (fstat(fd, &read.info) != 0 || read.info.st_size <= 0) return closeWith(0);
    if (static_cast<std::uint64_t>(read.info.st_size) > maxBytes) return closeWith(EFBIG);
    const auto size = static_cast<std::size_t>(read.info.st_size);
    read.buffer = static_cast<char*>(pugi::get_memory_allocation_function()(size + 1));
    if (read.buffer == nullptr) return closeWith(ENOMEM);
    std::size_t got = 0;
    char extra = 0;
    for (;;) {
        const ssize_t count =
            got < size ? ::read(fd, read.buffer + got, size - got) : ::read(fd, &extra, 1);
        if (count < 0 && errno == EINTR) continue;
        if (count > 0 && got < size) {
            got += static_cast<std::size_t>(count);
            continue;
        }
        if (count != 0 || got != size || fstat(fd, &read.info) != 0) {
            Release(read);
            return closeWith(0);
        }
        read.buffer[size] = '\0';
        read.size = size;
        const std::string_view text(read.buffer, size);
        read.inPlace = !text.starts_with("\xFF\xFE") && !text.starts_with("\xFE\xFF") &&
                       text.find("&#") == std::string_view::npos;
        return closeWith(0);
    }
}

bool NamedThroughLink(const std::string& path) {
    struct stat link {};
    return lstat(path.c_str(), &link) == 0 && S_ISLNK(link.st_mode);
}

}  // namespace

void Document::SetTextElements(std::vector<std::string> names) {
    if (!impl_) impl_ = std::make_unique<Impl>();
    impl_->textElements = std::move(names);
}

bool Document::LoadFile(const std::string& path, ParseError* error, std::uint64_t maxBytes) {
    if (!impl_) impl_ = std::make_unique<Impl>();
    ChangeStructure();
    impl_->document.reset();
    impl_->stamp = FileStamp{};
    // Parsed in place, a large file is held once while its tree is built, not twice. A
    // failure is parsed again from a copy, which keeps the text to report from.
    InPlaceText whole;
    int cause = ReadForParsingInPlace(path, maxBytes, whole);
    if (whole.buffer != nullptr && whole.inPlace) {
        const FileStamp stamp =
            StampOf(whole.info, std::string_view(whole.buffer, whole.size), NamedThroughLink(path));
        pugi::xml_document& document = impl_->document;
        const pugi::xml_parse_result result = document.load_buffer_inplace_own(
            whole.buffer, whole.size + 1, kParseOptions, pugi::encoding_utf8);
        if (result && HasElementChild(document)) {
            // Without references, every blank text was written blank.
            DropBlankText(document, {}, impl_->textElements);
            impl_->stamp = stamp;
            impl_->sourceBytes = whole.size;
            return true;
        }
        ChangeStructure();
        document.reset();
        if (result.status == pugi::status_out_of_memory) cause = ENOMEM;
    }
    std::string text;
    struct stat info {};
    if (whole.buffer != nullptr && !whole.inPlace) {
        // Already read whole: copied, not read a second time.
        try {
            text.assign(whole.buffer, whole.size);
            info = whole.info;
        } catch (const std::bad_alloc&) {
            cause = ENOMEM;
        }
        Release(whole);
    } else if (cause == 0) {
        cause = ReadWholeFile(path, text, maxBytes, info);
    }
    if (cause == EFBIG) {
        return FillError(error, "The file " + path +
                                    " is larger than the largest document accepted (" +
                                    std::to_string(maxBytes) + " bytes)");
    }
    if (cause == ENOMEM) {
        return FillError(error, "The file " + path + " is too large to load: not enough memory");
    }
    if (cause != 0) {
        return FillError(error, "Cannot read the file " + path + ": " + std::strerror(cause));
    }
    FileStamp stamp = StampOf(info, text, NamedThroughLink(path));
    if (!DecodeFileText(text)) return FillError(error, "The file " + path + " is not valid UTF-16");
    if (!Parse(text, error)) return false;
    impl_->stamp = stamp;
    return true;
}

const FileStamp& Document::fileStamp() const {
    static const FileStamp kUnknown;
    return impl_ ? impl_->stamp : kUnknown;
}

Node Document::root() const {
    return impl_ ? Node(impl_->document.internal_object()) : Node();
}

Node Document::documentElement() const {
    if (!impl_) return Node();
    return Node(impl_->document.document_element().internal_object());
}

std::string Document::Serialize() const {
    return root().serialize(impl_ ? impl_->sourceBytes : 0);
}

bool Document::SaveAtomic(const std::string& path, std::string* reason, const FileStamp* expected,
                          FileStamp* written) const {
    const Node node = root();
    return WriteFileAtomically(
        path, [&node](const PieceSink& piece) { return node.serialize(piece); }, reason, expected,
        written);
}

}  // namespace tabulon::xml
