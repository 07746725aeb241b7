// The tree's problem mark: a node whose grid holds values that need correcting shows
// their count in a small badge after its text (a rounded box in the colour of the
// node's text with the number in the colour behind it, so that it stands out as the
// text does, in greyscale and in a high-contrast palette), and says it in its tooltip and
// accessible description ("2 values need correcting"). Painting only: the node's
// text, icon and size stay as they are, painted by a TreeRowPainter.
#pragma once

#include <QString>
#include <QStyledItemDelegate>

#include "qt/bindings/cell_text.h"
#include "qt/bindings/tree_row_painter.h"

namespace tabulon {

// The item data role that holds a node's count (an int, 0 for none).
inline constexpr int kProblemCountRole = Qt::UserRole + 1;

// "1 value needs correcting", "3 values need correcting"; "" for 0.
QString ProblemCountText(int count);

// The badge of a count above 0 for an item (a fully initialised option) whose text the
// style places in textRect and is textWidth pixels wide. The number is laid out by
// numbers, which keeps what it laid out.
void PaintProblemBadge(QPainter* painter, const QStyleOptionViewItem& item, const QRect& textRect,
                       int textWidth, int count, const CellText& numbers);

class TreeProblemBadge : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    mutable TreeRowPainter rows_;
    CellText numbers_;
};

}  // namespace tabulon
