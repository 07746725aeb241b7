#include "qt/bindings/cell_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/qt_text.h"
#include "support/numeric.h"

namespace tabulon {

namespace {

constexpr QChar kEllipsis(PlainLine::kEllipsis);

// Printable ASCII, and the ellipsis a cut text ends with: nothing whose direction,
// tabs or line breaks could change how it is laid out.
bool Simple(const QString& text) {
    return std::all_of(text.begin(), text.end(), [](QChar c) {
        return (c.unicode() >= 0x20 && c.unicode() < 0x7F) || c == kEllipsis;
    });
}

bool PlainAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

}  // namespace

void CellText::useFont(const QFont& font) const {
    if (font == cacheFont_) return;
    clearLaid();
    cuts_.clear();
    cacheFont_ = font;
    glyphFontSet_ = false;
}

void CellText::clearLaid() const {
    cache_.clear();
    glyphIndexes_.clear();
    glyphPositions_.clear();
}

const CellText::Laid* CellText::laidOut(const QFont& font, const QString& text) const {
    // A static text draws its underline and strike-out lines its own way.
    if (font.underline() || font.overline() || font.strikeOut()) return nullptr;
    useFont(font);
    auto found = cache_.find(text);
    if (found == cache_.end()) {
        if (cache_.size() >= kCacheSize) clearLaid();
        Laid laid;
        laid.first = glyphIndexes_.size();
        if (const std::optional<QSizeF> size =
                plain_.layOut(font, text, {glyphIndexes_, glyphPositions_})) {
            laid.count = static_cast<int>(glyphIndexes_.size() - laid.first);
            laid.size = *size;
            if (!glyphFontSet_) glyphRun_.setRawFont(plain_.rawFont());
            glyphFontSet_ = true;
        } else {
            QStaticText& whole = laid.whole.emplace(text);
            whole.setTextFormat(Qt::PlainText);
            whole.prepare(QTransform(), font);
            // Aligned by its advance, as drawText aligns it: the static text's own width
            // also counts the ink of a last glyph that reaches past its advance ("V").
            laid.size = QSizeF(QFontMetricsF(font).horizontalAdvance(text), whole.size().height());
        }
        found = cache_.insert(text, laid);
    }
    return &*found;
}

const CellText::Laid* CellText::laidOut(const QFont& font, const std::string& text) const {
    if (!PlainAscii(text)) return nullptr;
    return laidOut(font, QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size())));
}

qreal CellText::width(const QFont& font, const std::string& text) const {
    if (const Laid* plain = laidOut(font, text)) return plain->size.width();
    return QFontMetricsF(font).horizontalAdvance(ToQString(text));
}

bool CellText::fits(const QFont& font, qreal available, const std::string& text) const {
    return width(font, text) <= available;
}

QString CellText::shown(const QFont& font, qreal available, Qt::Alignment alignment,
                        const std::string& text) const {
    if (fits(font, available, text)) return ToQString(text);
    return cut(font, static_cast<int>(std::floor(std::max<qreal>(available, 0))),
               alignment & Qt::AlignRight, text);
}

const QString& CellText::cut(const QFont& font, int available, bool right,
                             const std::string& text) const {
    useFont(font);
    const QString whole = ToQString(text);
    const std::pair<QString, int> key(whole, available * 2 + (right ? 1 : 0));
    if (const auto found = cuts_.constFind(key); found != cuts_.constEnd()) return *found;
    if (cuts_.size() >= kCacheSize) cuts_.clear();

    const QFontMetricsF metrics(font);
    const std::optional<QString> elided = plain_.elidedRight(font, whole, available);
    QString shownText =
        elided ? *elided : metrics.elidedText(whole, Qt::ElideRight, available, Qt::TextSingleLine);
    // Qt leaves a single character whole, however narrow the room: it is cut as any
    // other text, to the ellipsis alone, or to nothing when not even that fits.
    if (shownText == whole) {
        shownText =
            metrics.horizontalAdvance(kEllipsis) <= available ? QString(kEllipsis) : QString();
    }
    const std::size_t number = NumericPrefixLength(text);
    if (right && number > 0) {
        // What is kept of the text before the ellipsis (a font without the ellipsis
        // glyph gets three dots). The number is ASCII: its length in UTF-16 units is its
        // length in bytes.
        qsizetype kept = 0;
        if (shownText.endsWith(kEllipsis)) {
            kept = shownText.size() - 1;
        } else if (shownText.endsWith(QLatin1String("..."))) {
            kept = shownText.size() - 3;
        }
        if (kept < static_cast<qsizetype>(number)) {
            const qreal fill = metrics.horizontalAdvance(kNumberFill);
            shownText = QString(static_cast<qsizetype>(std::floor(available / fill)), kNumberFill);
        }
    }
    return *cuts_.insert(key, shownText);
}

// Laying a text out is most of the cost of a frame, so a simple text (and a cut form)
// is laid out once and put exactly where drawText puts it (aligned by its laid-out
// size, clipped to the rectangle only when it is taller). Anything else goes through
// drawText itself.
void CellText::paint(QPainter& painter, const QRect& rect, Qt::Alignment alignment,
                     const std::string& text) const {
    const QFont& font = painter.font();
    const Laid* layout = laidOut(font, text);
    const qreal width = layout != nullptr ? layout->size.width() : this->width(font, text);
    QString other;
    if (width > rect.width()) {
        const QString& cutText = cut(font, rect.width(), alignment & Qt::AlignRight, text);
        if (cutText.isEmpty()) return;
        layout = Simple(cutText) ? laidOut(font, cutText) : nullptr;
        if (layout == nullptr) other = cutText;
    } else if (layout == nullptr) {
        other = ToQString(text);
    }
    if (layout == nullptr) {
        painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, other);
        return;
    }
    const QSizeF size = layout->size;
    qreal x = 0;
    qreal y = 0;
    if (alignment & Qt::AlignRight) {
        x = rect.width() - size.width();
    } else if (alignment & Qt::AlignHCenter) {
        x = (rect.width() - size.width()) / 2;
    }
    if (alignment & Qt::AlignBottom) {
        y = rect.height() - size.height();
    } else if (alignment & Qt::AlignVCenter) {
        y = (rect.height() - size.height()) / 2;
    }
    const bool clip = size.height() > rect.height();
    if (clip) {
        painter.save();
        painter.setClipRect(rect, Qt::IntersectClip);
    }
    const QPointF at(rect.x() + x, rect.y() + y);
    if (layout->whole) {
        painter.drawStaticText(at, *layout->whole);
    } else {
        glyphRun_.setRawData(glyphIndexes_.data() + layout->first,
                             glyphPositions_.data() + layout->first, layout->count);
        painter.drawGlyphRun(at, glyphRun_);
    }
    if (clip) painter.restore();
}

}  // namespace tabulon
