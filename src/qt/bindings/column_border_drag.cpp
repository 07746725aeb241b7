#include "qt/bindings/column_border_drag.h"

#include <QFontMetricsF>
#include <QMouseEvent>
#include <QPainter>
#include <QSet>
#include <cmath>
#include <cstdlib>

#include "platform/flex_grid.h"
#include "qt/bindings/grid_view.h"
#include "qt/qt_text.h"

namespace tabulon {

namespace {

// Room a fitted column keeps beyond its widest text: the padding either side, the grid
// line, and two pixels for the rounding of the column's edges to pixels.
constexpr int kFitSlackPixels = 2 * GridView::kTextPadding + 1 + 2;

}  // namespace

ColumnBorderDrag::ColumnBorderDrag(BindingHost& host, FlexGrid& grid, GridView& view)
    : host_(host), grid_(grid), view_(view) {}

int ColumnBorderDrag::borderAt(const QPoint& position) const {
    const int row = view_.rowAt(position.y());
    if (row < 0 || row >= grid_.fixedRows()) return -1;
    int nearest = -1;
    int distance = kGrabPixels + 1;
    for (const int col : view_.colsInView()) {
        const QRect rect = view_.cellRect(row, col);
        if (rect.right() >= view_.width()) continue;  // the border is out of reach
        const int d = std::abs(position.x() - rect.right());
        if (d <= distance) {
            distance = d;
            nearest = col;
        }
    }
    return distance <= kGrabPixels ? nearest : -1;
}

std::int32_t ColumnBorderDrag::fittingWidth(int col) const {
    // Measured once per distinct text: a long column repeats its values a lot.
    const QFontMetricsF metrics(view_.font());
    QSet<QString> seen;
    qreal widest = 0;
    for (int row = 0; row < grid_.rows(); ++row) {
        const QString text = ToQString(grid_.textMatrix(row, col));
        if (text.isEmpty() || seen.contains(text)) continue;
        seen.insert(text);
        widest = std::max(widest, metrics.horizontalAdvance(text));
    }
    return host_.scale().toTwipsX(static_cast<int>(std::ceil(widest)) + kFitSlackPixels);
}

bool ColumnBorderDrag::press(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return false;
    const int col = borderAt(event->position().toPoint());
    if (col < 0) return false;
    col_ = col;
    pressX_ = pointerX_ = event->position().toPoint().x();
    widthAtPress_ = grid_.colWidth(col);
    view_.update();
    return true;
}

bool ColumnBorderDrag::move(QMouseEvent* event) {
    const QPoint position = event->position().toPoint();
    if (!dragging()) {
        if (borderAt(position) >= 0 && event->buttons() == Qt::NoButton) {
            view_.setCursor(Qt::SplitHCursor);
        } else {
            view_.unsetCursor();
        }
        return false;
    }
    const int before = guideX();
    pointerX_ = position.x();
    view_.update(
        QRect(std::min(before, guideX()) - 1, 0, std::abs(before - guideX()) + 3, view_.height()));
    return true;
}

bool ColumnBorderDrag::release(QMouseEvent* event) {
    if (!dragging() || event->button() != Qt::LeftButton) return false;
    const int col = col_;
    const std::int32_t width = widthAtPress_ + host_.scale().toTwipsX(pointerX_ - pressX_);
    col_ = -1;
    view_.update();
    if (col < grid_.cols())
        host_.runGesture([this, col, width] { grid_.userResizeCol(col, width); });
    return true;
}

bool ColumnBorderDrag::doubleClick(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton) return false;
    const int col = borderAt(event->position().toPoint());
    if (col < 0) return false;
    // The press before the double click started a drag; the fit replaces it.
    col_ = -1;
    view_.update();
    const std::int32_t width = fittingWidth(col);
    host_.runGesture([this, col, width] { grid_.userResizeCol(col, width); });
    return true;
}

// Where the border will be: never left of the column's own left edge.
int ColumnBorderDrag::guideX() const {
    const QRect rect = view_.cellRect(0, col_);
    const int right = rect.isEmpty() ? pressX_ : rect.right();
    return std::max(right + pointerX_ - pressX_, rect.isEmpty() ? 0 : rect.left());
}

void ColumnBorderDrag::paint(QPainter& painter) const {
    if (!dragging()) return;
    QPen pen(view_.palette().color(QPalette::WindowText));
    pen.setStyle(Qt::DashLine);
    painter.setPen(pen);
    const int x = guideX();
    painter.drawLine(x, 0, x, view_.height() - 1);
}

}  // namespace tabulon
