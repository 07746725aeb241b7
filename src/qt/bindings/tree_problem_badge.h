// The tree's problem mark: a node whose grid holds values that need correcting shows
// their count in a small badge after its text (a rounded box in the colour of the
// node's text with the number in the colour behind it, so that it stands out as the
// text does, in greyscale and in a high-contrast palette), and says it in its tooltip and
// accessible description ("2 values need correcting"). Painting only: the node's
// text, icon and size stay as they are, painted by a TreeRowPainter.
#pragma once

#include <QImage>
#include <QString>
#include <QStyledItemDelegate>
#include <map>
#include <tuple>

#include "qt/bindings/cell_text.h"
#include "qt/bindings/tree_row_painter.h"

namespace tabulon {

// The item data role that holds a node's count (an int, 0 for none).
inline constexpr int kProblemCountRole = Qt::UserRole + 1;

// "1 value needs correcting", "3 values need correcting"; "" for 0.
QString ProblemCountText(int count);

// What badges are painted from, kept: the numbers laid out, and the rounded boxes
// filled (antialiased, a box costs more than the rest of its row; an image of it laid
// over the row gives the same pixels).
class ProblemBadgeParts {
public:
    CellText numbers;
    // The box of that size and colour, at that many device pixels per pixel.
    const QImage& box(QSize size, const QColor& colour, int ratio);

private:
    struct Box {
        QSize size;
        QRgb colour = 0;
        int ratio = 1;
        bool operator<(const Box& other) const {
            return std::tuple(size.width(), size.height(), colour, ratio) <
                   std::tuple(other.size.width(), other.size.height(), other.colour, other.ratio);
        }
    };
    std::map<Box, QImage> boxes_;
};

// The badge of a count above 0 for an item (a fully initialised option) whose text the
// style places in textRect and is textWidth pixels wide.
void PaintProblemBadge(QPainter* painter, const QStyleOptionViewItem& item, const QRect& textRect,
                       int textWidth, int count, ProblemBadgeParts& parts);

class TreeProblemBadge : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

private:
    mutable TreeRowPainter rows_;
    mutable ProblemBadgeParts parts_;
};

}  // namespace tabulon
