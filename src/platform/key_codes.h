// Key codes and modifier bits as the control's keyboard handling takes them: a key's
// code names the key whatever it types (KeyUp), its character code (keyAscii) what it
// types (KeyPress). The keys below type their own code, so one constant serves as
// either; every front end (the Qt widget, the session tool) and every handler in the
// control uses these.
#pragma once

namespace tabulon {

namespace keys {

inline constexpr int kBackspace = 8;
inline constexpr int kTab = 9;
inline constexpr int kLineFeed = 10;  // the character of Ctrl+Enter
inline constexpr int kEnter = 13;
inline constexpr int kShift = 16;
inline constexpr int kControl = 17;
inline constexpr int kAlt = 18;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kInsert = 45;
inline constexpr int kDelete = 46;
inline constexpr int kF1 = 112;

// Function key n (1 to 12).
constexpr int FunctionKey(int n) {
    return kF1 + n - 1;
}

}  // namespace keys

// The modifiers held, as a bit set (the shift argument of KeyUp).
inline constexpr int kShiftBit = 1;
inline constexpr int kCtrlBit = 2;
inline constexpr int kAltBit = 4;

}  // namespace tabulon
