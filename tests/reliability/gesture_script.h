// GestureScript: turns a stream of choices into `tabulon session` commands that fit
// what the control shows at that moment (cells inside the grid, items of the open pick
// list, units of the open unit drop-down, keys of the tree's nodes, entries of the
// filter), so that nearly every command is one a user could really make. The lines go
// to the session one at a time, and a run reads back as a session script. Stored fuzz
// inputs replay through it: a change to what a choice means changes what they drive.
#pragma once

#include <string>
#include <string_view>

#include "reliability/choice_source.h"
#include "session/session.h"

namespace tabulon::reliability {

struct GestureOptions {
    // The scripted host may change the GridValue element it is handed in
    // AppGridEventHandler (values, flags, texts).
    bool hostChanges = false;
    // Typed numbers may reach or pass the limits of a double (1e308, 1e999).
    bool extremeNumbers = false;
    // Undo and redo, by key (Ctrl+Z, Ctrl+Y, Ctrl+Shift+Z) and by host call, and
    // Escape.
    bool undoKeys = false;
};

// text as one double-quoted script word, with the lexer's escapes for backslash,
// double quote, CR, LF and tab.
std::string QuoteWord(std::string_view text);

class GestureScript {
public:
    explicit GestureScript(GestureOptions options = {}) : options_(options) {}

    // The next command for the control the session drives now. The session must have a
    // current instance.
    std::string Next(cli::session::Session& session, ChoiceSource& choices) const;

private:
    GestureOptions options_;
};

}  // namespace tabulon::reliability
