// GridView: where a cell's text goes, what is shown of it, and the tooltip that shows
// what was cut and why a red cell is red.
#include <QHelpEvent>
#include <QToolTip>
#include <algorithm>
#include <cstdint>
#include <optional>

#include "control/control_access.h"
#include "qt/bindings/grid_view.h"
#include "qt/bindings/problem_mark.h"
#include "qt/qt_text.h"

namespace tabulon {

std::optional<QRect> GridView::coveringBar() const {
    const Component& bar = FormOf(host_.control()).vscGrid;
    if (!bar.visible()) return std::nullopt;
    const TwipsScale& scale = host_.scale();
    // Edges, each rounded as the components are placed.
    const auto x = [&](std::int64_t twips) {
        return scale.toPixelsX(twips) - scale.toPixelsX(grid_.left());
    };
    const auto y = [&](std::int64_t twips) {
        return scale.toPixelsY(twips) - scale.toPixelsY(grid_.top());
    };
    return QRect(QPoint(x(bar.left()), y(bar.top())),
                 QPoint(x(std::int64_t{bar.left()} + bar.width()) - 1,
                        y(std::int64_t{bar.top()} + bar.height()) - 1));
}

int GridView::seenRight(const QRect& rect) const {
    const std::optional<QRect> bar = coveringBar();
    if (!bar || rect.bottom() < bar->top() || rect.top() > bar->bottom()) return width();
    return std::min(width(), bar->left());
}

QRect GridView::textArea(const GridCell& cell, const QRect& cellRect) const {
    const QRect padded = cellRect.adjusted(kTextPadding, 0, -kTextPadding - 1, -1);
    const int seen = seenRight(cellRect);
    if (padded.right() < seen) return padded;
    // Where the text lies in its rectangle, against what is seen of it.
    const qreal width = text_.width(font(), cell.text);
    const Qt::Alignment alignment = TextAlignment(cell.alignment, cell.text);
    qreal left = padded.left();
    if (alignment & Qt::AlignRight) {
        left = padded.right() + 1 - width;
    } else if (alignment & Qt::AlignHCenter) {
        left = padded.left() + (padded.width() - width) / 2;
    }
    if (width <= padded.width() && left + width <= seen) return padded;
    QRect area = padded;
    area.setRight(std::min(padded.right(), seen - 1 - kTextPadding));
    return area;
}

QString GridView::shownText(int row, int col) const {
    const QRect rect = cellRect(row, col);
    if (rect.isEmpty()) return {};
    const GridCell& cell = grid_.cell(row, col);
    return text_.shown(font(), textArea(cell, rect).width(),
                       TextAlignment(cell.alignment, cell.text), cell.text);
}

bool GridView::textCut(int row, int col) const {
    const QRect rect = cellRect(row, col);
    if (rect.isEmpty()) return false;
    const GridCell& cell = grid_.cell(row, col);
    return !cell.text.empty() && !text_.fits(font(), textArea(cell, rect).width(), cell.text);
}

bool GridView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto* help = static_cast<QHelpEvent*>(event);
    const int row = rowAt(help->pos().y());
    const int col = colAt(help->pos().x());
    // The reason a cell is red, then its whole text when it is cut.
    const QString tip =
        row >= 0 && col >= 0 ? CellToolTip(grid_, row, col, textCut(row, col)) : QString();
    if (!tip.isEmpty()) {
        QToolTip::showText(help->globalPos(), tip, this, cellRect(row, col));
    } else {
        QToolTip::hideText();
        event->ignore();
    }
    return true;
}

}  // namespace tabulon
