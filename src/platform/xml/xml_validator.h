// Validation of a whole document text against the DTD it carries, streaming: no
// tree is built, the network is never used, no entity is substituted and external
// entities are never loaded, and the parser's default size and depth limits apply
// (elements nested deeper than 256 levels, entity expansion loops and oversized text
// nodes fail at once, with little memory).
//
// Nothing is ever read from disk either: a document that needs an external DTD
// subset or an external entity fails with "External entity "<uri>" is not loaded".
// The refusal is installed process-wide for the parser library the first time this
// is called, since this module is its only user.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::xml {

struct ValidationResult {
    bool ok = true;
    std::string reason;      // the first error's message as the parser gives it,
                             // without its trailing line break ("" when ok)
    int line = 0;            // 1-based line of the error in text (0 when unknown)
    std::string sourceText;  // that line of text without its line end ("" when unknown)
};

// Parses text (UTF-8) with DTD validation and reports the first error, whether of
// well-formedness or of validity; warnings are ignored. Empty text fails
// ("Document is empty"). Thread-safe for distinct calls.
ValidationResult ValidateWithDtd(std::string_view text);

}  // namespace tabulon::xml
