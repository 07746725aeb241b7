#include "document/validate_document_text.h"

#include <optional>
#include <string>

#include "document/attribute_bound.h"
#include "document/dtd.h"
#include "document/dtd_fast_check.h"
#include "platform/xml/text_lines.h"
#include "platform/xml/xml_validator.h"
#include "support/text.h"
#include "support/utf8.h"

namespace tabulon {

namespace {

std::string_view FromFirstTag(std::string_view line) {
    const std::size_t at = line.find('<');
    return at == std::string_view::npos ? line : line.substr(at);
}

// The source line as a message can show it: at most kMaxSourceCharacters characters,
// then "..." when cut, every invalid UTF-8 sequence as U+FFFD.
std::string ShowableSource(std::string_view line) {
    std::string shown;
    std::size_t characters = 0;
    for (std::size_t pos = 0; pos < line.size(); ++characters) {
        if (characters == kMaxSourceCharacters) return shown + "...";
        const std::size_t start = pos;
        if (DecodeUtf8(line, pos) == kInvalidUtf8) {
            AppendUtf8(shown, 0xFFFD);
        } else {
            shown.append(line.substr(start, pos - start));
        }
    }
    return shown;
}

// Line number line of the DTD-joined text, taken from its parts.
std::string SourceLine(std::string_view hostText, int line) {
    const int dtdLines = static_cast<int>(kDtdLines.size());
    if (line <= dtdLines) return std::string(xml::LineText(BuiltInDtd(), line));
    return std::string(xml::LineText(hostText, line - dtdLines));
}

}  // namespace

bool ValidateDocumentText(std::string_view text, MessageSink& sink) {
    if (text.empty()) {
        sink.Critical("Invalid XML");
        return false;
    }
    // A start tag with too many attributes is cut down first (attribute_bound.h); the
    // message still shows the host's own line.
    const std::optional<std::string> bounded = WithAttributesBounded(text);
    xml::ValidationResult result = xml::ValidateWithDtd(JoinWithDtd(bounded ? *bounded : text));
    if (result.ok) return true;
    if (bounded) result.sourceText = SourceLine(text, result.line);
    std::string message = Trim(result.reason);
    message += "\r\n";
    message += ShowableSource(FromFirstTag(result.sourceText));
    sink.Critical(message);
    return false;
}

bool ValidateParsedDocument(const xml::Document& document, MessageSink& sink) {
    if (CertainlyValid(document)) return true;
    return ValidateDocumentText(document.Serialize(), sink);
}

}  // namespace tabulon
