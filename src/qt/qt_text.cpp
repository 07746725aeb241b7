#include "qt/qt_text.h"

#include <algorithm>

#include "support/utf8.h"

namespace tabulon {

QString ToQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

std::string ToStdString(const QString& text) {
    return text.toStdString();
}

int Utf16Index(std::string_view text, int chars) {
    int units = 0;
    std::size_t pos = 0;
    for (int i = 0; i < chars && pos < text.size(); ++i) {
        const char32_t c = DecodeUtf8(text, pos);
        units += (c != kInvalidUtf8 && c > 0xFFFF) ? 2 : 1;
    }
    return units;
}

int CharacterIndex(const QString& text, int units) {
    const qsizetype end = std::clamp<qsizetype>(units, 0, text.size());
    int chars = 0;
    for (qsizetype i = 0; i < end; ++i) {
        if (text.at(i).isHighSurrogate() && i + 1 < text.size() &&
            text.at(i + 1).isLowSurrogate()) {
            ++i;
        }
        ++chars;
    }
    return chars;
}

QString DisplayLines(const QString& text) {
    QString lines = text;
    lines.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    return lines;
}

}  // namespace tabulon
