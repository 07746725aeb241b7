#include "qt/bindings/cell_text.h"

#include <QFontMetricsF>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "qt/qt_text.h"
#include "support/numeric.h"

namespace tabulon {

namespace {

bool PlainAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= 0x20 && c < 0x7F; });
}

constexpr QChar kEllipsis(0x2026);

QString Latin1(const std::string& text) {
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

const QStaticText* CellText::laidOut(const QFont& font, const std::string& text) const {
    if (!PlainAscii(text)) return nullptr;
    if (font != cacheFont_) {
        cache_.clear();
        cacheFont_ = font;
    }
    const QString key = Latin1(text);
    auto found = cache_.find(key);
    if (found == cache_.end()) {
        if (cache_.size() >= kCacheSize) cache_.clear();
        QStaticText staticText(key);
        staticText.setTextFormat(Qt::PlainText);
        staticText.prepare(QTransform(), font);
        found = cache_.insert(key, staticText);
    }
    return &*found;
}

qreal CellText::width(const QFont& font, const std::string& text) const {
    if (const QStaticText* plain = laidOut(font, text)) return plain->size().width();
    return QFontMetricsF(font).horizontalAdvance(ToQString(text));
}

bool CellText::fits(const QFont& font, qreal available, const std::string& text) const {
    return width(font, text) <= available;
}

QString CellText::shown(const QFont& font, qreal available, Qt::Alignment alignment,
                        const std::string& text) const {
    if (fits(font, available, text)) return ToQString(text);
    const QFontMetricsF metrics(font);
    available = std::max<qreal>(available, 0);
    const QString whole = ToQString(text);
    const QString elided = metrics.elidedText(whole, Qt::ElideRight, available, Qt::TextSingleLine);
    const std::size_t number = NumericPrefixLength(text);
    if (!(alignment & Qt::AlignRight) || number == 0) return elided;
    // What is kept of the text before the ellipsis (a font without the ellipsis glyph
    // gets three dots). The number is ASCII: its length in UTF-16 units is its length.
    qsizetype kept = 0;
    if (elided.endsWith(kEllipsis)) {
        kept = elided.size() - 1;
    } else if (elided.endsWith(QLatin1String("..."))) {
        kept = elided.size() - 3;
    }
    if (kept >= static_cast<qsizetype>(number)) return elided;
    const qreal fill = metrics.horizontalAdvance(kNumberFill);
    return QString(static_cast<qsizetype>(std::floor(available / fill)), kNumberFill);
}

// Laying a text out is most of the cost of a frame, so a plain text is put exactly
// where drawText puts it (aligned by its laid-out size, clipped to the rectangle only
// when it is taller) from its kept layout. Anything else, where direction, tabs or line
// breaks could matter, goes through drawText itself.
void CellText::paint(QPainter& painter, const QRect& rect, Qt::Alignment alignment,
                     const std::string& text) const {
    const QFont& font = painter.font();
    std::string fitting;
    const std::string* painted = &text;
    if (!fits(font, rect.width(), text)) {
        const QString cut = shown(font, rect.width(), alignment, text);
        if (cut.isEmpty()) return;
        fitting = ToStdString(cut);
        painted = &fitting;
    }
    const QStaticText* plain = laidOut(font, *painted);
    if (plain == nullptr) {
        painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine,
                         ToQString(*painted));
        return;
    }
    const QSizeF size = plain->size();
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
    painter.drawStaticText(QPointF(rect.x() + x, rect.y() + y), *plain);
    if (clip) painter.restore();
}

}  // namespace tabulon
