// The validating parse every document goes through before it is used: the built-in
// DTD is put in front of the text and the whole is checked against it.
#pragma once

#include <cstddef>
#include <string_view>

#include "platform/xml/xml_document.h"
#include "support/message_sink.h"

namespace tabulon {

// Validates JoinWithDtd(text). Empty text: the critical message "Invalid XML" and
// false. A text that is not well-formed or not valid: one critical message, the
// trimmed reason, "\r\n", then the line of the first error from its first "<" to its
// end (the whole line when it has no "<"), and false. Valid: true, no message.
//
// Decision: a message box must stay readable whatever the document holds, so the line
// is cut after kMaxSourceCharacters characters (and "..." added), and bytes that are
// not UTF-8 show as U+FFFD. A 10 MB attribute or a document in another encoding
// still gives a short, clean message.
inline constexpr std::size_t kMaxSourceCharacters = 1000;
bool ValidateDocumentText(std::string_view text, MessageSink& sink);

// What loading validates: ValidateDocumentText(document.Serialize()), with the same
// result and message. A document CertainlyValid (document/dtd_fast_check.h) accepts is
// neither serialised nor parsed again: it is known to pass.
bool ValidateParsedDocument(const xml::Document& document, MessageSink& sink);

}  // namespace tabulon
