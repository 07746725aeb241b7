#include "qt/bindings/plain_line.h"

#include <QFontMetricsF>
#include <QList>
#include <QStaticText>
#include <QTextLayout>
#include <limits>

namespace tabulon {

namespace {

// text laid out on one line as QStaticText lays out a text given no width: the leading
// above it, no wrapping.
QList<QGlyphRun> Shape(const QFont& font, const QString& text) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLeadingIncluded(true);
    line.setLineWidth(std::numeric_limits<int>::max());
    line.setPosition(QPointF(0, QFontMetricsF(font).leading()));
    layout.endLayout();
    return layout.glyphRuns();
}

}  // namespace

int PlainLine::Slot(char16_t c) {
    if (c >= 0x20 && c < 0x7F) return c - 0x20;
    return c == kEllipsis ? static_cast<int>(kSlots) - 1 : -1;
}

void PlainLine::useFont(const QFont& font) {
    if (started_ && font == font_) return;
    started_ = true;
    font_ = font;
    glyphs_.fill(Glyph{});
    pairs_.fill(Pair{});
    raw_ = QRawFont();
    usable_ = font.letterSpacing() == 0 && font.wordSpacing() == 0 &&
              font.capitalization() == QFont::MixedCase && !font.underline() && !font.overline() &&
              !font.strikeOut();
    if (!usable_) return;
    // The face and baseline of the font's own glyphs, and the height of a line.
    const QList<QGlyphRun> runs = Shape(font, QStringLiteral("0"));
    if (runs.size() != 1 || runs.front().positions().size() != 1) {
        usable_ = false;
        return;
    }
    raw_ = runs.front().rawFont();
    baseline_ = runs.front().positions().front().y();
    QStaticText probe(QStringLiteral("0"));
    probe.setTextFormat(Qt::PlainText);
    probe.prepare(QTransform(), font);
    height_ = probe.size().height();
}

const PlainLine::Glyph& PlainLine::glyph(char16_t c) {
    Glyph& entry = glyphs_[static_cast<std::size_t>(Slot(c))];
    if (entry.known) return entry;
    entry.known = true;
    const QList<QGlyphRun> runs = Shape(font_, QString(QChar(c)));
    if (runs.size() != 1 || runs.front().glyphIndexes().size() != 1 ||
        runs.front().rawFont() != raw_ ||
        runs.front().positions().front() != QPointF(0, baseline_)) {
        return entry;
    }
    entry.plain = true;
    entry.index = runs.front().glyphIndexes().front();
    entry.advance = raw_.advancesForGlyphIndexes(runs.front().glyphIndexes()).front().x();
    return entry;
}

const PlainLine::Pair& PlainLine::pair(char16_t first, char16_t second) {
    Pair& entry = pairs_[static_cast<std::size_t>(Slot(first)) * kSlots +
                         static_cast<std::size_t>(Slot(second))];
    if (entry.state != Pair::Unknown) return entry;
    entry.state = Pair::Joined;
    const Glyph& a = glyph(first);
    const Glyph& b = glyph(second);
    if (!a.plain || !b.plain) return entry;
    const QChar both[] = {QChar(first), QChar(second)};
    const QList<QGlyphRun> runs = Shape(font_, QString(both, 2));
    if (runs.size() != 1 || runs.front().rawFont() != raw_ ||
        runs.front().glyphIndexes() != QList<quint32>{a.index, b.index}) {
        return entry;
    }
    const QList<QPointF> positions = runs.front().positions();
    if (positions.front() != QPointF(0, baseline_) || positions.back().y() != baseline_) {
        return entry;
    }
    entry.state = Pair::Apart;
    entry.kerning = static_cast<float>(positions.back().x() - a.advance);
    return entry;
}

bool PlainLine::place(const QFont& font, QStringView text) {
    if (text.isEmpty() || text.front() == u' ' || text.back() == u' ') return false;
    for (const QChar c : text) {
        if (Slot(c.unicode()) < 0) return false;
    }
    useFont(font);
    if (!usable_ || !glyph(text.front().unicode()).plain) return false;
    std::vector<qreal>& edges = edges_;
    edges.clear();
    qreal x = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t c = text[i].unicode();
        edges.push_back(x);
        x += glyphs_[static_cast<std::size_t>(Slot(c))].advance;
        if (i + 1 < text.size()) {
            const Pair& next = pair(c, text[i + 1].unicode());
            if (next.state != Pair::Apart) return false;
            x += next.kerning;
        }
    }
    edges.push_back(x);
    return true;
}

std::optional<QSizeF> PlainLine::layOut(const QFont& font, QStringView text, Glyphs glyphs) {
    if (!place(font, text)) return std::nullopt;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto at = static_cast<std::size_t>(i);
        glyphs.indexes.push_back(glyphs_[static_cast<std::size_t>(Slot(text[i].unicode()))].index);
        glyphs.positions.emplace_back(edges_[at], baseline_);
    }
    return QSizeF(edges_.back(), height_);
}

std::optional<QString> PlainLine::elidedRight(const QFont& font, QStringView text, qreal width) {
    if (!place(font, text)) return std::nullopt;
    const std::vector<qreal>& edges = edges_;
    const Glyph& ellipsis = glyph(kEllipsis);
    if (!ellipsis.plain) return std::nullopt;
    // As QFontMetricsF::elidedText cuts: nothing when it fits or is one character;
    // else the characters before the one that reaches the room the ellipsis leaves.
    if (edges.back() <= width || text.size() <= 1) return text.toString();
    const qreal room = width - ellipsis.advance;
    if (room < 0) return QString();
    qsizetype kept = 0;
    while (kept + 1 < text.size() && edges[static_cast<std::size_t>(kept) + 1] < room)
        ++kept;
    return text.first(kept).toString() + QChar(kEllipsis);
}

}  // namespace tabulon
