// What one key of the keyboard sends to the control: a key code (for key down and key
// up), a character code for the key press (0 when the key has none) and the shift
// state (1 Shift, 2 Ctrl, 4 Alt).
//
// Decisions (a US keyboard layout, as the platform reports keys):
// - Key codes: Tab 9, Enter 13, Escape 27, Space 32, Backspace 8, End 35, Home 36,
//   Left 37, Up 38, Right 39, Down 40, Delete 46, F1..F12 112..123; letters the
//   upper-case letter's code, digits their own code, punctuation the US layout's key
//   (";" 186, "=" 187, "," 188, "-" 189, "." 190, "/" 191, "`" 192, "[" 219, "\" 220,
//   "]" 221, "'" 222), a character that needs Shift on that layout ("A", "(", ":" ...)
//   the key it is on, with the Shift bit added. Characters beyond ASCII have key code
//   0 and their code point as character code.
// - Character codes: arrows, Home, End, Delete and F-keys have none. With Alt held no
//   key has one. With Ctrl held only letters (1..26, the control characters) and
//   Enter (10, a line feed) have one. Tab with Shift or Ctrl has none, so those
//   combinations reach only the key-up handling. Otherwise the key's own character
//   (Tab 9, Enter 13, Escape 27, Space 32, Backspace 8, the printable character).
// - Typed text: a tab character is the Tab key, a CR or an LF the Enter key.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "control/key_stroke.h"
#include "session/script_lexer.h"

namespace tabulon::cli::session {

// A named key (Tab, Enter, Space, Escape, Backspace, Home, End, Delete, Left, Right,
// Up, Down, F1..F12, any letter case) or one character, with the modifiers held;
// nullopt for anything else.
std::optional<KeyStroke> NamedKey(std::string_view name, int modifiers);

// Modifier words such as "ctrl", "shift", "alt" and "ctrl+shift" (any letter case),
// combined; nullopt when a word names something else.
std::optional<int> ParseModifiers(std::span<const Word> words);

// The keys that type text, one per character; nullopt when the text holds a
// character no key types (a control character other than tab, CR and LF, or bytes
// that are not UTF-8).
std::optional<std::vector<KeyStroke>> KeysForText(std::string_view text);

}  // namespace tabulon::cli::session
