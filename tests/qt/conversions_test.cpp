// The front end's translation of Qt keys into the control's key strokes.
#include <gtest/gtest.h>

#include "qt/key_translation.h"

namespace tabulon {
namespace {

struct KeyCase {
    int qtKey;
    Qt::KeyboardModifiers modifiers;
    const char* text;
    KeyStroke expected;
};

// The same strokes the session tool sends for these keys. The plain keys are compared
// with the session by the journeys; these are the modifier and punctuation rules.
TEST(TranslateKey, GivesTheControlsKeyStroke) {
    const KeyCase cases[] = {
        {Qt::Key_Backtab, Qt::ShiftModifier, "", {9, 0, 1}},         // Shift+Tab
        {Qt::Key_Enter, Qt::KeypadModifier, "\r", {13, 13, 0}},      // the keypad's Enter
        {Qt::Key_Return, Qt::ControlModifier, "", {13, 10, 2}},      // Ctrl+Enter: line feed
        {Qt::Key_V, Qt::ControlModifier, "\x16", {86, 22, 2}},       // a control character
        {Qt::Key_X, Qt::AltModifier, "x", {88, 0, 4}},               // Alt: no character
        {Qt::Key_ParenLeft, Qt::ShiftModifier, "(", {57, 40, 1}},    // the digit key
        {Qt::Key_Colon, Qt::ShiftModifier, ":", {186, 58, 1}},       // the semicolon key
        {Qt::Key_Eacute, Qt::NoModifier, "\xc3\xa9", {0, 0xE9, 0}},  // no key code
    };
    for (const KeyCase& c : cases) {
        SCOPED_TRACE(c.qtKey);
        const KeyStroke stroke = TranslateKey(c.qtKey, c.modifiers, QString::fromUtf8(c.text));
        EXPECT_EQ(stroke.keyCode, c.expected.keyCode);
        EXPECT_EQ(stroke.keyAscii, c.expected.keyAscii);
        EXPECT_EQ(stroke.shift, c.expected.shift);
    }
}

}  // namespace
}  // namespace tabulon
