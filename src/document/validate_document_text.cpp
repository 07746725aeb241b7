#include "document/validate_document_text.h"

#include <string>

#include "document/dtd.h"
#include "platform/xml/xml_validator.h"
#include "support/text.h"

namespace tabulon {

namespace {

std::string_view FromFirstTag(std::string_view line) {
    const std::size_t at = line.find('<');
    return at == std::string_view::npos ? line : line.substr(at);
}

}  // namespace

bool ValidateDocumentText(std::string_view text, MessageSink& sink) {
    if (text.empty()) {
        sink.Critical("Invalid XML");
        return false;
    }
    const xml::ValidationResult result = xml::ValidateWithDtd(JoinWithDtd(text));
    if (result.ok) return true;
    std::string message = Trim(result.reason);
    message += "\r\n";
    message += FromFirstTag(result.sourceText);
    sink.Critical(message);
    return false;
}

}  // namespace tabulon
