// Validation of a whole document text against the DTD it carries, streaming: no
// tree is built, the network is never used, no entity is substituted and external
// entities are never loaded, and libxml2's default size and depth limits apply.
#pragma once

#include <string>
#include <string_view>

namespace tabulon::xml {

struct ValidationResult {
    bool ok = true;
    std::string reason;      // the first error's message as the parser gives it
    int line = 0;            // 1-based line of the error in text (0 when unknown)
    std::string sourceText;  // the text of that line
};

// Parses text with DTD validation and reports the first error (well-formedness or
// validity). Thread-safe for distinct calls.
ValidationResult ValidateWithDtd(std::string_view text);

}  // namespace tabulon::xml
