// TreeRowPainter: paints one row of the category tree exactly as the style's item view
// item (CE_ItemViewItem) does, but without laying its text out on every paint. Laying
// a text out (shaping it, measuring it for elision, twice) costs far more than drawing
// it, and gestures that repaint the whole pane (a resize, a node change) paint the same
// rows again. So the style draws the background, the picture and the focus frame, and
// the text is drawn from a layout made once per text, font and width, elided and placed
// as the style places it: one line, elided at the width of its rectangle, centred
// vertically. Rows this cannot draw the same way (wrapped or multi-line text, a check
// box, an editor open, a text rectangle that depends on the text) are left whole to
// the style.
#pragma once

#include <QFont>
#include <QGlyphRun>
#include <QHash>
#include <QList>
#include <QRect>
#include <QSize>
#include <QStyleOptionViewItem>
#include <QTextLayout>
#include <cstddef>

#include "qt/bindings/text_stamp.h"

class QPainter;
class QStyle;

namespace tabulon {

class TreeRowPainter {
public:
    // Paints the row of item (a fully initialised option) and returns the rectangle the
    // style gives its text.
    QRect paint(QPainter* painter, const QStyleOptionViewItem& item);
    // The width of the item's text in its font (QFontMetrics::horizontalAdvance).
    int textWidth(const QStyleOptionViewItem& item);

private:
    struct Layout {
        QFont font;
        int width = -1;
        Qt::LayoutDirection direction = Qt::LeftToRight;
        Qt::Alignment alignment;
        Qt::TextElideMode elideMode = Qt::ElideRight;
        // The shown (perhaps elided) text laid out in one line, as glyph runs (drawn
        // straight from the glyph cache, where the layout's own drawing prepares each
        // run again), the height the style centres, the natural width of the whole
        // text and its advance.
        QList<QGlyphRun> runs;
        mutable TextStamp stamp;  // the runs drawn again as pixels
        QSize bounds;
        qreal natural = 0;
        bool elided = false;
        int advance = 0;
    };

    static bool Handles(const QStyleOptionViewItem& item);
    static bool Fits(const Layout& layout, const QStyleOptionViewItem& item, int width);
    const Layout& layoutFor(const QStyleOptionViewItem& item, int width);
    void clearLayouts();
    void drawText(QPainter* painter, const QStyleOptionViewItem& item, const QStyle& style,
                  const QRect& textRect);

    // By text; a few screens of rows at most, cleared when it grows beyond that or
    // keeps more pixels than a few screens of rows.
    QHash<QString, Layout> layouts_;
    std::size_t keptBytes_ = 0;
};

}  // namespace tabulon
