// Splitting one line of a session script into words.
//
// Words are separated by spaces (and tabs). A double quote starts a quoted part that
// runs to the next unescaped double quote; inside it spaces are kept and the escapes
// \" \\ \r \n \t stand for their characters. A quoted part may stand inside a word
// (FIELD="a b" is one word), as in a shell. Outside quotes a backslash is an
// ordinary character, so paths need no escaping.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon::cli::session {

struct Word {
    std::string text;  // escapes resolved, quotes removed
    // Offset in text where the first quoted part starts; npos when nothing was quoted.
    std::size_t quotedFrom = std::string::npos;

    bool quoted() const { return quotedFrom != std::string::npos; }
};

struct LexResult {
    std::vector<Word> words;  // empty for a blank line or a comment
    std::string error;        // why the line is malformed; "" when it is not
};

// Splits line (without its line end). Blank lines and lines whose first non-blank
// character is "#" give no words. An unterminated quote or an unknown escape gives
// an error and no words.
LexResult SplitScriptLine(std::string_view line);

}  // namespace tabulon::cli::session
