#include "platform/xml/xml_validator.h"

#include <libxml/parser.h>
#include <libxml/xmlreader.h>

#include <climits>
#include <mutex>
#include <string>
#include <utility>

#include "platform/xml/text_lines.h"

namespace tabulon::xml {

namespace {

// What one validation on this thread has found so far.
struct Findings {
    xmlTextReaderPtr reader = nullptr;
    bool failed = false;
    std::string reason;
    int line = 0;

    void Record(std::string text, int atLine) {
        if (failed) return;
        failed = true;
        while (!text.empty() && (text.back() == '\n' || text.back() == '\r')) {
            text.pop_back();
        }
        reason = std::move(text);
        line = atLine;
    }
};

// The validation running on this thread, for the entity loader, which the library
// calls without any context of ours.
thread_local Findings* tCurrent = nullptr;

xmlParserInputPtr RefuseExternalEntity(const char* url, const char* id, xmlParserCtxtPtr) {
    if (tCurrent != nullptr) {
        const char* name = url != nullptr ? url : (id != nullptr ? id : "");
        const int line =
            tCurrent->reader != nullptr ? xmlTextReaderGetParserLineNumber(tCurrent->reader) : 0;
        tCurrent->Record(std::string("External entity \"") + name + "\" is not loaded", line);
    }
    return nullptr;
}

// The line an error concerns. A validity error names its element, whose start tag is
// that line; the parser's own position can be far past it (a content model is checked
// once the element has ended and the reader has read on, at the end of the text even).
int ErrorLine(const xmlError& error) {
    const auto* node = static_cast<const xmlNode*>(error.node);
    if (node != nullptr && node->type == XML_ELEMENT_NODE) {
        const long line = xmlGetLineNo(node);
        if (line > 0 && line <= INT_MAX) return static_cast<int>(line);
    }
    return error.line;
}

void RecordError(void* findings, xmlErrorPtr error) {
    if (error == nullptr || error->level < XML_ERR_ERROR) return;  // warnings do not count
    static_cast<Findings*>(findings)->Record(error->message != nullptr ? error->message : "",
                                             ErrorLine(*error));
}

void InitialiseLibrary() {
    static std::once_flag once;
    std::call_once(once, [] {
        xmlInitParser();
        xmlSetExternalEntityLoader(RefuseExternalEntity);
    });
}

ValidationResult Failure(std::string_view text, std::string reason, int line) {
    ValidationResult result;
    result.ok = false;
    result.reason = std::move(reason);
    result.line = line;
    result.sourceText = std::string(LineText(text, line));
    return result;
}

}  // namespace

ValidationResult ValidateWithDtd(std::string_view text) {
    if (text.empty()) return Failure(text, "Document is empty", 0);
    if (text.size() > static_cast<std::size_t>(INT_MAX)) {
        return Failure(text, "Document is too large", 0);
    }
    InitialiseLibrary();

    Findings findings;
    Findings* const outer = tCurrent;
    tCurrent = &findings;
    findings.reader =
        xmlReaderForMemory(text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                           XML_PARSE_DTDVALID | XML_PARSE_NONET | XML_PARSE_BIG_LINES);
    if (findings.reader == nullptr) {
        tCurrent = outer;
        return Failure(text, "The XML parser could not be started", 0);
    }
    xmlTextReaderSetStructuredErrorHandler(findings.reader, RecordError, &findings);

    // Only the first error is reported, so reading stops there.
    int status = 1;
    while (!findings.failed && (status = xmlTextReaderRead(findings.reader)) == 1) {
    }
    const bool valid = status == 0 && xmlTextReaderIsValid(findings.reader) == 1;
    const int lastLine = xmlTextReaderGetParserLineNumber(findings.reader);
    xmlFreeTextReader(findings.reader);
    tCurrent = outer;

    if (findings.failed) return Failure(text, std::move(findings.reason), findings.line);
    if (!valid) return Failure(text, "Document is not valid", lastLine);
    return {};
}

}  // namespace tabulon::xml
