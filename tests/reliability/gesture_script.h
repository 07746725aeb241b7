// GestureScript: turns a stream of choices into `tabulon session` commands that fit
// what the control shows at that moment (cells inside the grid, items of the open pick
// list, units of the open unit drop-down, keys of the tree's nodes, entries of the
// filter), so that nearly every command is one a user could really make. The lines go
// to the session one at a time, and a run reads back as a session script.
//
// The gestures: clicks and pointer moves on the grid, typing and pasting, named keys
// with modifiers, picks, unit picks, tree clicks, collapses and expansions, filter
// entries, the four buttons (clicked or pressed with a key), the control's own scroll
// bars and the mouse wheel, focus moves and splitter drags; optionally the scripted
// host's changes while AppGridEventHandler runs, and undo and redo.
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
    // Escape. Off, the choices run as they always did.
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
