// GridView: a change of TopRow or LeftCol moves the pixels that stay in view and
// paints only what the move brings in, as Qt's own item views do.
#include <QRegion>
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <optional>

#include "qt/bindings/grid_view.h"

namespace tabulon {

// Twips do not always land on whole pixels: a step over columns 1210 twips wide moves
// some edges 80 pixels and others 81 (rows are laid so that they all move alike, see
// rowEdge). The pixels move as most edges do, and a column (row) with an edge that
// moves otherwise is painted afresh, whole, over what was moved.
GridView::PixelShift GridView::shiftInPixels(bool cols, int from) const {
    const TwipsScale& scale = host_.scale();
    const auto pos = [&](int i) -> std::int64_t {
        return cols ? grid_.colPos(i) : grid_.rowPos(i);
    };
    const auto extent = [&](int i) -> std::int64_t {
        return cols ? grid_.colWidth(i) : grid_.rowHeight(i);
    };
    const int first = cols ? grid_.leftCol() : grid_.topRow();
    const int count = cols ? grid_.cols() : grid_.rows();
    const int end = cols ? width() : height();
    const std::int64_t shift = pos(from) - pos(first);
    // Where an edge lies now, and where it lay before the scroll.
    const std::int64_t above = cols ? 0 : scrolledAbove();
    const auto toPixels = [&](std::int64_t twips) {
        return cols ? scale.toPixelsX(twips) : rowEdge(twips, above);
    };
    const auto moved = [&](std::int64_t edge) {
        const std::int64_t was = edge - shift;
        return toPixels(edge) - (cols ? scale.toPixelsX(was) : rowEdge(was, above + shift));
    };
    struct Seen {
        int first, end, topMove, bottomMove;
        bool cameIn;  // lay before the view's first row (column): nothing of it moved
    };
    std::vector<Seen> seen;
    // From the first row in view: a row that comes in shares its edge with one that
    // was in view, and the pixels moved there cover its last line.
    for (int i = first; i < count && toPixels(pos(i)) < end; ++i) {
        const std::int64_t edge = pos(i) + extent(i);
        seen.push_back({toPixels(pos(i)), toPixels(edge), moved(pos(i)), moved(edge), i < from});
    }
    PixelShift result;
    const auto stayed = [](const Seen& s) { return !s.cameIn; };
    const auto any = std::find_if(seen.begin(), seen.end(), stayed);
    if (any == seen.end()) return result;
    // Every edge moves by the shift's pixels rounded down or up: two candidates.
    int lower = any->topMove;
    int edges = 0;
    for (const Seen& s : seen) {
        if (stayed(s)) lower = std::min({lower, s.topMove, s.bottomMove});
    }
    int lowerEdges = 0;
    for (const Seen& s : seen) {
        if (!stayed(s)) continue;
        edges += 2;
        lowerEdges += (s.topMove == lower) + (s.bottomMove == lower);
    }
    result.pixels = 2 * lowerEdges >= edges ? lower : lower + 1;
    for (const Seen& s : seen) {
        if (stayed(s) && s.topMove == result.pixels && s.bottomMove == result.pixels) continue;
        result.redrawn += cols ? QRect(s.first, 0, s.end - s.first, height())
                               : QRect(0, s.first, width(), s.end - s.first);
    }
    return result;
}

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
    const TwipsScale& scale = host_.scale();
    int dx = 0;
    int dy = 0;
    const bool rowsMoved = was.top != now.top;
    const bool colsMoved = was.left != now.left;
    if (rowsMoved == colsMoved) {
        if (!rowsMoved) return;
        updateAll();
        return;
    }
    const PixelShift shift =
        rowsMoved ? shiftInPixels(false, was.top) : shiftInPixels(true, was.left);
    (rowsMoved ? dy : dx) = shift.pixels;
    const QRect uncovered = uncoveredRect();
    QRect moving = uncovered;
    // The fixed rows stay put when rows scroll, the fixed columns when columns do.
    if (rowsMoved) moving.setTop(rowEdge(grid_.rowPos(now.top)));
    if (colsMoved) moving.setLeft(scale.toPixelsX(grid_.colPos(now.left)));
    // Moving the pixels pays even when most rows in view are painted again.
    if (moving.isEmpty() || std::abs(dx) >= moving.width() || std::abs(dy) >= moving.height()) {
        updateAll();
        return;
    }
    movePending_ = true;
    scroll(dx, dy, moving);
    update(shift.redrawn & moving);
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
