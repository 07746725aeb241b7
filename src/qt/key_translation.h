// What a Qt key event sends to the control: the platform's key code (for key down
// and key up), the character code of the key press (0 when the key has none) and
// the shift state (1 Shift, 2 Ctrl, 4 Alt).
//
// Decisions (the same keyboard the session tool assumes, a US layout):
// - Key codes: Tab 9, Enter 13 (both Enter keys), Escape 27, Space 32, Backspace 8,
//   Page Up 33, Page Down 34, End 35, Home 36, Left 37, Up 38, Right 39, Down 40,
//   Insert 45, Delete 46, F1..F12 112..123, Shift/Ctrl/Alt 16/17/18, Caps Lock 20,
//   Num Lock 144, letters the upper-case letter's code, digits their own code,
//   punctuation the US key it is on (";" 186, "=" 187, "," 188, "-" 189, "." 190,
//   "/" 191, "`" 192, "[" 219, "\" 220, "]" 221, "'" 222; the shifted characters of
//   those keys and of the digits give the same code). Other keys have code 0.
// - Character codes: with Alt held no key has one. With Ctrl held only letters
//   (1..26) and Enter (10) have one. Tab with Shift or Ctrl has none (Shift+Tab
//   arrives from Qt as Backtab and counts as Tab with Shift). Otherwise Tab 9,
//   Enter 13, Escape 27, Backspace 8, and for any other key the one character Qt
//   reports for it (its code point; none when Qt reports none or a control character).
#pragma once

#include <QKeyEvent>
#include <QString>

#include "control/key_stroke.h"

namespace tabulon {

// The stroke for a Qt key (Qt::Key), its modifiers and the text Qt reports.
KeyStroke TranslateKey(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text);
KeyStroke TranslateKeyEvent(const QKeyEvent& event);

}  // namespace tabulon
