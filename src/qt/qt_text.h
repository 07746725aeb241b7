// Text between the core (UTF-8 std::string, positions in characters = code points)
// and Qt (QString, positions in UTF-16 units).
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tabulon {

QString ToQString(std::string_view text);
std::string ToStdString(const QString& text);

// The UTF-16 index in QString(text) of the character at code-point position chars
// (clamped to the text); an invalid UTF-8 sequence counts as one character, as in
// the core's text box.
int Utf16Index(std::string_view text, int chars);
// The code-point position of UTF-16 index units of text (a position inside a
// surrogate pair counts as after the pair; clamped to the text).
int CharacterIndex(const QString& text, int units);

// The control's message texts end lines with CR LF; a Qt label wants LF only.
QString DisplayLines(const QString& text);

}  // namespace tabulon
