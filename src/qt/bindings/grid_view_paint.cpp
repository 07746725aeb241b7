// GridView: painting the cells in view that a repaint's region touches.
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <optional>
#include <utility>

#include "qt/bindings/grid_view.h"
#include "qt/bindings/problem_mark.h"

namespace tabulon {

namespace {

QColor ToColor(Rgb rgb) {
    return QColor::fromRgb(static_cast<QRgb>(rgb));
}

// Calls fill(first, end, look) for each run of spans that adjoin (one ends where the
// next begins) and share look(span).
template <typename Span, typename Look, typename Fill>
void ForEachRun(const std::vector<Span>& spans, Look look, Fill fill) {
    using Key = decltype(look(spans.front()));
    std::optional<Key> run;
    int first = 0;
    int end = 0;
    for (const Span& span : spans) {
        const Key key = look(span);
        if (run && span.first == end && key == *run) {
            end = span.end;
            continue;
        }
        if (run) fill(first, end, *run);
        run = key;
        first = span.first;
        end = span.end;
    }
    if (run) fill(first, end, *run);
}

}  // namespace

void GridView::paintEvent(QPaintEvent* event) {
    wholeUpdatePending_ = false;
    movePending_ = false;
    place_ = placeNow();
    QPainter painter(this);
    if (grid_.rows() == 0 || grid_.cols() == 0) {
        painter.fillRect(event->rect(), ToColor(kBackgroundColor));
        return;
    }
    const std::vector<Span> rows = spansInView(false);
    const std::vector<Span> cols = spansInView(true);
    paintBackground(painter, event->rect(), rows, cols);
    // Only the rows and columns the repaint touches are gone through (an edit
    // repaints a cell or a column).
    const QRect touched = event->rect();
    const auto touching = [](const std::vector<Span>& spans, int first, int last) {
        std::vector<Span> kept;
        for (const Span& span : spans) {
            if (span.end > first && span.first <= last) kept.push_back(span);
        }
        return kept;
    };
    const std::vector<Span> touchedRows = touching(rows, touched.top(), touched.bottom());
    const std::vector<Span> touchedCols = touching(cols, touched.left(), touched.right());
    paintCellGrounds(painter, touchedRows, touchedCols);
    for (const Span& row : touchedRows) {
        for (const Span& col : touchedCols) {
            const QRect rect(QPoint(col.first, row.first), QPoint(col.end - 1, row.end - 1));
            if (event->region().intersects(rect)) paintCell(painter, row.index, col.index, rect);
        }
    }
    paintFocusRect(painter);
    borderDrag_.paint(painter);
}

// Every fill has a cost of its own well above that of a grid line's pixels (more so
// against a repaint's region of many rectangles), so the cells' colours and grid lines
// are filled in runs of adjacent cells that look alike, not cell by cell. What a cell
// paints stays inside it, so the pixels are those of painting each cell whole in turn.
void GridView::paintCellGrounds(QPainter& painter, const std::vector<Span>& rows,
                                const std::vector<Span>& cols) const {
    const QColor tint = SelectionTint(palette());
    const auto fixed = [this](int row, int col) {
        return row < grid_.fixedRows() || col < grid_.fixedCols();
    };
    for (const Span& row : rows) {
        ForEachRun(
            cols,
            [&](const Span& col) {
                // Over the cell's own colour, so that a red (invalid) cell stays red
                // when selected.
                const bool tinted = !fixed(row.index, col.index) && selected(row.index, col.index);
                return std::pair{grid_.cellBackColor(row.index, col.index), tinted};
            },
            [&](int first, int end, std::pair<Rgb, bool> look) {
                const QRect band(first, row.first, end - first, row.end - row.first);
                painter.fillRect(band, ToColor(look.first));
                if (look.second) painter.fillRect(band, tint);
            });
    }
    // Each cell's grid lines run along its right and bottom edge, inside it.
    const auto line = [](bool dark) {
        return ToColor(dark ? kFixedGridLineColor : kGridLineColor);
    };
    for (const Span& row : rows) {
        ForEachRun(
            cols, [&](const Span& col) { return fixed(row.index, col.index); },
            [&](int first, int end, bool dark) {
                painter.fillRect(QRect(first, row.end - 1, end - first, 1), line(dark));
            });
    }
    for (const Span& col : cols) {
        ForEachRun(
            rows, [&](const Span& row) { return fixed(row.index, col.index); },
            [&](int first, int end, bool dark) {
                painter.fillRect(QRect(col.end - 1, first, 1, end - first), line(dark));
            });
    }
}

void GridView::paintCell(QPainter& painter, int row, int col, const QRect& rect) const {
    const bool fixed = row < grid_.fixedRows() || col < grid_.fixedCols();
    const GridCell& cell = grid_.cell(row, col);
    if (!fixed && !cell.note.empty()) {
        PaintProblemMark(painter, rect.adjusted(0, 0, -1, -1),
                         ToColor(grid_.cellBackColor(row, col)), ProblemMarkSize(rect.height()));
    }
    if (cell.text.empty()) return;
    const QColor fore =
        isEnabled() ? ToColor(cell.foreColor) : palette().color(QPalette::Disabled, QPalette::Text);
    if (painter.pen().color() != fore) painter.setPen(fore);
    text_.paint(painter, textArea(cell, rect), TextAlignment(cell.alignment, cell.text), cell.text);
}

QColor GridView::SelectionTint(const QPalette& palette) {
    QColor tint = palette.color(QPalette::Highlight);
    tint.setAlpha(kSelectionAlpha);
    return tint;
}

void GridView::paintFocusRect(QPainter& painter) const {
    if (grid_.row() < grid_.fixedRows() || grid_.col() < grid_.fixedCols()) return;
    const QRect rect = cellRect(grid_.row(), grid_.col());
    if (rect.width() < 4 || rect.height() < 4) return;
    QPen pen(palette().color(QPalette::WindowText));
    pen.setStyle(Qt::DotLine);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(1, 1, -3, -3));
}

// The pixels that the spans cover, merged.
std::vector<std::pair<int, int>> GridView::CoveredSpans(const std::vector<Span>& spans) {
    std::vector<std::pair<int, int>> sorted;
    for (const Span& span : spans) {
        if (span.end > span.first) sorted.emplace_back(span.first, span.end);
    }
    std::sort(sorted.begin(), sorted.end());
    std::vector<std::pair<int, int>> merged;
    for (const auto& span : sorted) {
        if (!merged.empty() && span.first <= merged.back().second) {
            merged.back().second = std::max(merged.back().second, span.second);
        } else {
            merged.push_back(span);
        }
    }
    return merged;
}

// Every cell paints its whole rectangle with an opaque colour, so the dark background
// is only painted where no cell is: the strips between and past the columns and rows.
void GridView::paintBackground(QPainter& painter, const QRect& area, const std::vector<Span>& rows,
                               const std::vector<Span>& cols) const {
    const QColor background = ToColor(kBackgroundColor);
    const auto fillGaps = [&](const std::vector<std::pair<int, int>>& spans, bool columns,
                              const QRect& band) {
        int from = columns ? band.left() : band.top();
        const int end = (columns ? band.right() : band.bottom()) + 1;
        auto fill = [&](int first, int last) {
            if (first >= last) return;
            painter.fillRect(columns ? QRect(first, band.top(), last - first, band.height())
                                     : QRect(band.left(), first, band.width(), last - first),
                             background);
        };
        for (const auto& [first, last] : spans) {
            fill(from, std::min(first, end));
            from = std::max(from, last);
        }
        fill(from, end);
    };
    const std::vector<std::pair<int, int>> colSpans = CoveredSpans(cols);
    fillGaps(colSpans, true, area);
    // Beside the columns every row gap is already painted: the rows' gaps only between
    // the first column's left and the last one's right (a short grid leaves most of
    // the view dark, and that area was painted twice).
    if (colSpans.empty()) return;
    QRect band = area;
    band.setLeft(std::max(area.left(), colSpans.front().first));
    band.setRight(std::min(area.right(), colSpans.back().second - 1));
    if (band.isEmpty()) return;
    fillGaps(CoveredSpans(rows), false, band);
}

}  // namespace tabulon
