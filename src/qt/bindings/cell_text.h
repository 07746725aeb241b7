// CellText: how the grid lays out and paints one cell's text, and what it shows when
// the text does not fit.
//
// A text that does not fit its cell is never shown silently cut:
// - right-aligned text that starts with a number (the values of unit rows, "general"
//   cells that are wholly a number) keeps that whole number: it is cut after the
//   number with an ellipsis ("3534670(Bt…", "3534670…"), or, when not even the number
//   and the ellipsis fit, replaced by as many "#" as fit; a digit is never dropped;
// - any other text is cut at its end with an ellipsis ("…").
// The cell's text itself (TextMatrix, the report) is never changed; the view offers
// the whole text as a tooltip wherever it was cut.
//
// Plain ASCII texts, and cut forms of plain texts, are laid out once and kept, up to
// kCacheSize of them, and painted pixel for pixel as QPainter::drawText paints them
// (most from their characters' glyphs, see PlainLine), aligned by their advance as
// drawText aligns them; other texts, and any text in an underlined, overlined or
// struck-out font, are laid out on every paint. The cut form of a text for a width is
// kept too. Both stores are emptied when full or when the font changes.
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QRect>
#include <QStaticText>
#include <QString>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "qt/bindings/plain_line.h"

class QPainter;

namespace tabulon {

class CellText {
public:
    static constexpr qsizetype kCacheSize = 4096;
    static constexpr QChar kNumberFill = QLatin1Char('#');

    // The width text takes on one line in font.
    qreal width(const QFont& font, const std::string& text) const;
    // Whether text fits a rectangle of that width on one line.
    bool fits(const QFont& font, qreal available, const std::string& text) const;
    // What a rectangle of that width shows of text with that alignment: the text
    // itself when it fits, else its cut form (see above). Empty when even one "#" or
    // the ellipsis does not fit.
    QString shown(const QFont& font, qreal available, Qt::Alignment alignment,
                  const std::string& text) const;
    // Paints shown(...) of text into rect with the painter's font and pen, on one
    // line, clipped to rect's height when taller.
    void paint(QPainter& painter, const QRect& rect, Qt::Alignment alignment,
               const std::string& text) const;

private:
    // A text laid out: from its characters' glyphs (count of them from first in the
    // glyph arrays), or else whole (a static text allocates even when empty, so the
    // others have none).
    struct Laid {
        std::size_t first = 0;
        int count = 0;
        std::optional<QStaticText> whole;
        QSizeF size;
    };

    // Empties the stores when the font is not the one they were made with.
    void useFont(const QFont& font) const;
    // Empties the store of laid-out texts and their glyphs.
    void clearLaid() const;
    // The laid-out form of a plain ASCII text in font; null for other texts.
    const Laid* laidOut(const QFont& font, const std::string& text) const;
    // The laid-out form of a text known to be simple.
    const Laid* laidOut(const QFont& font, const QString& text) const;
    // The cut form of a text that does not fit available pixels (right: right-aligned).
    const QString& cut(const QFont& font, int available, bool right, const std::string& text) const;

    mutable QHash<QString, Laid> cache_;
    // The glyphs of every text in cache_ laid out from its characters, one after the
    // other (a glyph run each would be several allocations a text), and the run that
    // draws them in the cache's font.
    mutable std::vector<quint32> glyphIndexes_;
    mutable std::vector<QPointF> glyphPositions_;
    mutable QGlyphRun glyphRun_;
    mutable bool glyphFontSet_ = false;
    mutable PlainLine plain_;
    mutable QHash<std::pair<QString, int>, QString> cuts_;
    mutable QFont cacheFont_;
};

}  // namespace tabulon
