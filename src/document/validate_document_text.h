// The validating parse every document goes through before it is used: the built-in
// DTD is put in front of the text and the whole is checked against it.
#pragma once

#include <string_view>

#include "support/message_sink.h"

namespace tabulon {

// Validates JoinWithDtd(text). Empty text: the critical message "Invalid XML" and
// false. A text that is not well-formed or not valid: one critical message, the
// trimmed reason, "\r\n", then the line of the first error from its first "<" to its
// end (the whole line when it has no "<"), and false. Valid: true, no message.
bool ValidateDocumentText(std::string_view text, MessageSink& sink);

}  // namespace tabulon
