#include "qt/key_translation.h"

namespace tabulon {

namespace {

using keys::kEnter;
using keys::kLineFeed;
using keys::kTab;

struct KeyRow {
    int qtKey;
    int keyCode;
};

// Keys whose code is not their own character.
constexpr KeyRow kKeyCodes[] = {
    {Qt::Key_Tab, kTab},
    {Qt::Key_Backtab, kTab},
    {Qt::Key_Return, kEnter},
    {Qt::Key_Enter, kEnter},
    {Qt::Key_Escape, keys::kEscape},
    {Qt::Key_Space, keys::kSpace},
    {Qt::Key_Backspace, keys::kBackspace},
    {Qt::Key_PageUp, keys::kPageUp},
    {Qt::Key_PageDown, keys::kPageDown},
    {Qt::Key_End, keys::kEnd},
    {Qt::Key_Home, keys::kHome},
    {Qt::Key_Left, keys::kLeft},
    {Qt::Key_Up, keys::kUp},
    {Qt::Key_Right, keys::kRight},
    {Qt::Key_Down, keys::kDown},
    {Qt::Key_Insert, keys::kInsert},
    {Qt::Key_Delete, keys::kDelete},
    {Qt::Key_Shift, keys::kShift},
    {Qt::Key_Control, keys::kControl},
    {Qt::Key_Alt, keys::kAlt},
    // Shifted digits of the US layout.
    {Qt::Key_ParenRight, '0'},
    {Qt::Key_Exclam, '1'},
    {Qt::Key_At, '2'},
    {Qt::Key_NumberSign, '3'},
    {Qt::Key_Dollar, '4'},
    {Qt::Key_Percent, '5'},
    {Qt::Key_AsciiCircum, '6'},
    {Qt::Key_Ampersand, '7'},
    {Qt::Key_Asterisk, '8'},
    {Qt::Key_ParenLeft, '9'},
    // Punctuation keys, plain and shifted.
    {Qt::Key_Semicolon, 186},
    {Qt::Key_Colon, 186},
    {Qt::Key_Equal, 187},
    {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},
    {Qt::Key_Less, 188},
    {Qt::Key_Minus, 189},
    {Qt::Key_Underscore, 189},
    {Qt::Key_Period, 190},
    {Qt::Key_Greater, 190},
    {Qt::Key_Slash, 191},
    {Qt::Key_Question, 191},
    {Qt::Key_QuoteLeft, 192},
    {Qt::Key_AsciiTilde, 192},
    {Qt::Key_BracketLeft, 219},
    {Qt::Key_BraceLeft, 219},
    {Qt::Key_Backslash, 220},
    {Qt::Key_Bar, 220},
    {Qt::Key_BracketRight, 221},
    {Qt::Key_BraceRight, 221},
    {Qt::Key_Apostrophe, 222},
    {Qt::Key_QuoteDbl, 222},
    {Qt::Key_CapsLock, 20},
    {Qt::Key_NumLock, 144},
};

int KeyCode(int qtKey) {
    if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 'A' + (qtKey - Qt::Key_A);
    if (qtKey >= Qt::Key_0 && qtKey <= Qt::Key_9) return '0' + (qtKey - Qt::Key_0);
    if (qtKey >= Qt::Key_F1 && qtKey <= Qt::Key_F12) return 112 + (qtKey - Qt::Key_F1);
    for (const KeyRow& row : kKeyCodes) {
        if (row.qtKey == qtKey) return row.keyCode;
    }
    return 0;
}

int ShiftState(int qtKey, Qt::KeyboardModifiers modifiers) {
    int shift = 0;
    if (modifiers.testFlag(Qt::ShiftModifier) || qtKey == Qt::Key_Backtab) shift |= kShiftBit;
    if (modifiers.testFlag(Qt::ControlModifier)) shift |= kCtrlBit;
    if (modifiers.testFlag(Qt::AltModifier)) shift |= kAltBit;
    return shift;
}

// The first character Qt reports, when it is printable.
int PrintableCharacter(const QString& text) {
    if (text.isEmpty()) return 0;
    const char32_t c = text.toUcs4().value(0);
    if (c < 32 || c == 127) return 0;
    return static_cast<int>(c);
}

int Character(int qtKey, int keyCode, int shift, const QString& text) {
    if ((shift & kAltBit) != 0) return 0;
    if (keyCode == kTab) return (shift & (kShiftBit | kCtrlBit)) != 0 ? 0 : kTab;
    if ((shift & kCtrlBit) != 0) {
        if (keyCode == kEnter) return kLineFeed;
        if (qtKey >= Qt::Key_A && qtKey <= Qt::Key_Z) return 1 + (qtKey - Qt::Key_A);
        return 0;
    }
    switch (keyCode) {
        case kEnter:
        case keys::kEscape:
        case keys::kBackspace:
            return keyCode;
        default:
            return PrintableCharacter(text);
    }
}

}  // namespace

KeyStroke TranslateKey(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text) {
    KeyStroke stroke;
    stroke.keyCode = KeyCode(qtKey);
    stroke.shift = ShiftState(qtKey, modifiers);
    stroke.keyAscii = Character(qtKey, stroke.keyCode, stroke.shift, text);
    return stroke;
}

KeyStroke TranslateKeyEvent(const QKeyEvent& event) {
    return TranslateKey(event.key(), event.modifiers(), event.text());
}

}  // namespace tabulon
