// GridView: a change of TopRow or LeftCol moves the pixels that stay in view and
// paints only what the move brings in, as Qt's own item views do.
#include <QRegion>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "qt/bindings/grid_view.h"

namespace tabulon {

GridView::Place GridView::placeNow() const {
    return {grid_.topRow(), grid_.leftCol(), size()};
}

// The view less the strips a sibling lies over near its right or bottom edge (the
// control's own scroll bars are laid over the grid): Qt only moves pixels that no other
// widget covers.
QRect GridView::uncoveredRect() const {
    QRect area = rect();
    if (parentWidget() == nullptr) return area;
    for (QObject* object : parentWidget()->children()) {
        auto* sibling = qobject_cast<QWidget*>(object);
        if (sibling == nullptr || sibling == this || !sibling->isVisible()) continue;
        const QRect over = sibling->geometry().translated(-pos()) & area;
        if (over.isEmpty()) continue;
        if (over.height() >= over.width() && over.left() > area.center().x()) {
            area.setRight(over.left() - 1);
        } else if (over.width() > over.height() && over.top() > area.center().y()) {
            area.setBottom(over.top() - 1);
        }
    }
    return area;
}

void GridView::updateScroll() {
    const Place was = place_;
    const Place now = placeNow();
    place_ = now;
    // A second move before the first is painted (a thumb dragged over many columns
    // moves one at a time) would move the pixels again: painting all is cheaper.
    if (wholeUpdatePending_ || movePending_ || borderDrag_.dragging() || !isVisible() ||
        was.size != now.size || was.top < grid_.fixedRows() || was.left < grid_.fixedCols() ||
        was.top >= grid_.rows() || was.left >= grid_.cols()) {
        updateAll();
        return;
    }
    int dx = 0;
    int dy = 0;
    const bool rowsMoved = was.top != now.top;
    const bool colsMoved = was.left != now.left;
    if (rowsMoved == colsMoved) {
        if (!rowsMoved) return;
        updateAll();
        return;
    }
    (rowsMoved ? dy : dx) = shiftInPixels(colsMoved, rowsMoved ? was.top : was.left);
    const QRect uncovered = uncoveredRect();
    QRect moving = uncovered;
    // The fixed rows stay put when rows scroll, the fixed columns when columns do.
    if (rowsMoved) moving.setTop(rowEdge(grid_.rowPos(now.top)));
    if (colsMoved) moving.setLeft(colEdge(grid_.colPos(now.left)));
    if (moving.isEmpty() || std::abs(dx) >= moving.width() || std::abs(dy) >= moving.height()) {
        updateAll();
        return;
    }
    movePending_ = true;
    scroll(dx, dy, moving);
    // Under the bars nothing moved; Qt drops what a sibling covers from the repaint.
    update(QRegion(rect()) - uncovered);
    // Where a text is cut depends on where its cell ends against the view's edge and
    // the vertical bar: the cells that crossed it are painted again, whole.
    if (colsMoved) {
        const int edge = seenRight(moving) - std::abs(dx) - kTextPadding - 1;
        update(wholeCells(QRect(edge, 0, width() - edge, height()), true));
        return;
    }
    const std::optional<QRect> bar = coveringBar();
    if (!bar) return;
    for (const int edge : {bar->top(), bar->bottom() + 1}) {
        if (edge > moving.top() && edge <= moving.bottom()) {
            update(wholeCells(QRect(0, edge - std::abs(dy) - 1, width(), 2 * std::abs(dy) + 2),
                              false));
        }
    }
}

// The band widened to the whole columns (or rows) in view that it touches.
QRect GridView::wholeCells(QRect band, bool cols) const {
    int first = cols ? band.left() : band.top();
    int last = cols ? band.right() : band.bottom();
    for (const Span& span : spansInView(cols)) {
        if (span.end > (cols ? band.left() : band.top()) &&
            span.first <= (cols ? band.right() : band.bottom())) {
            first = std::min(first, span.first);
            last = std::max(last, span.end - 1);
        }
    }
    if (cols) {
        band.setLeft(first);
        band.setRight(last);
    } else {
        band.setTop(first);
        band.setBottom(last);
    }
    return band;
}

}  // namespace tabulon
