#include "session/script_lexer.h"

namespace tabulon::cli::session {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

// The character an escape inside quotes stands for; nullopt for an unknown escape.
std::optional<char> Unescape(char c) {
    switch (c) {
        case '"':
            return '"';
        case '\\':
            return '\\';
        case 'r':
            return '\r';
        case 'n':
            return '\n';
        case 't':
            return '\t';
        default:
            return std::nullopt;
    }
}

LexResult Fail(std::string reason) {
    LexResult result;
    result.error = std::move(reason);
    return result;
}

}  // namespace

LexResult SplitScriptLine(std::string_view line) {
    LexResult result;
    std::size_t pos = 0;
    while (pos < line.size() && IsBlank(line[pos]))
        ++pos;
    if (pos == line.size() || line[pos] == '#') return result;

    while (pos < line.size()) {
        Word word;
        while (pos < line.size() && !IsBlank(line[pos])) {
            if (line[pos] != '"') {
                word.text.push_back(line[pos++]);
                continue;
            }
            if (!word.quoted()) word.quotedFrom = word.text.size();
            ++pos;
            bool closed = false;
            while (pos < line.size()) {
                const char c = line[pos++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c != '\\') {
                    word.text.push_back(c);
                    continue;
                }
                if (pos == line.size()) break;
                const std::optional<char> escaped = Unescape(line[pos]);
                if (!escaped) {
                    return Fail(std::string("unknown escape \\") + line[pos] + " in a quoted word");
                }
                word.text.push_back(*escaped);
                ++pos;
            }
            if (!closed) return Fail("unterminated quoted word");
        }
        result.words.push_back(std::move(word));
        while (pos < line.size() && IsBlank(line[pos]))
            ++pos;
    }
    return result;
}

}  // namespace tabulon::cli::session
