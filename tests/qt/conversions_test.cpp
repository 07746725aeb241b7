// The front end's conversions: Qt keys into the control's key strokes, twips into
// pixels, and text positions between the core and Qt.
#include <gtest/gtest.h>

#include "qt/key_translation.h"
#include "qt/qt_message_sink.h"
#include "qt/qt_text.h"
#include "qt/twips_scale.h"

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

TEST(TwipsScale, EdgesRoundSoThatTouchingPartsTouch) {
    const TwipsScale scale(96, 96);
    // 2775 + 45 twips: the splitter ends where the frame begins at 2840 - 20.
    const QRect splitter = scale.toPixels(2775, 0, 45, 100);
    const QRect next = scale.toPixels(2820, 0, 20, 100);
    EXPECT_EQ(splitter.right() + 1, next.left());
    // Widths vary by a pixel rather than drifting: 7 twips wide parts in a row.
    int edge = 0;
    for (int i = 0; i < 20; ++i) {
        const QRect part = scale.toPixels(i * 7, 0, 7, 1);
        EXPECT_EQ(part.left(), edge);
        edge = part.left() + part.width();
    }
    EXPECT_EQ(edge, scale.toPixelsX(140));
    EXPECT_EQ(TwipsScale(144, 72).toPixelsX(-5), -1);  // -0.5 rounds away from zero
    EXPECT_EQ(TwipsScale(0, -3), TwipsScale());        // an unusable DPI counts as 96
}

TEST(TextPositions, CharactersBeyondTheBasicPlaneTakeTwoUtf16Units) {
    const std::string text =
        "a\xF0\x9F\x98\x80"
        "b\xC3\xA9";  // a, U+1F600, b, e-acute
    EXPECT_EQ(Utf16Index(text, 0), 0);
    EXPECT_EQ(Utf16Index(text, 1), 1);
    EXPECT_EQ(Utf16Index(text, 2), 3);
    EXPECT_EQ(Utf16Index(text, 4), 5);
    EXPECT_EQ(Utf16Index(text, 99), 5);
    const QString q = ToQString(text);
    EXPECT_EQ(CharacterIndex(q, 3), 2);
    EXPECT_EQ(CharacterIndex(q, 2), 2);  // inside the pair counts as after it
    EXPECT_EQ(CharacterIndex(q, 5), 4);
    EXPECT_EQ(ToStdString(q), text);
}

TEST(QtMessageSink, HandlerGetsTheTextAsWrittenAndEmptyTextReachesNothing) {
    QtMessageSink sink;
    std::vector<std::pair<MessageIcon, QString>> shown;
    sink.setHandler(
        [&shown](MessageIcon icon, const QString& text) { shown.emplace_back(icon, text); });
    sink.Critical("Unexpected Error - 1004");
    sink.Information("");
    sink.Plain("a\r\nb");
    ASSERT_EQ(shown.size(), 2u);
    EXPECT_EQ(shown[0].first, MessageIcon::Critical);
    EXPECT_EQ(shown[0].second, QStringLiteral("Unexpected Error - 1004"));
    EXPECT_EQ(shown[1].first, MessageIcon::Plain);
    EXPECT_EQ(shown[1].second, QStringLiteral("a\r\nb"));
}

}  // namespace
}  // namespace tabulon
