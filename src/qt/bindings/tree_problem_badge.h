// The tree's problem mark: a node whose grid holds values that need correcting shows
// their count in a small badge after its text (a rounded box in the colour of the
// node's text with the number in the colour behind it, so that it stands out as the
// text does, in greyscale and in a high-contrast palette), and says it in its tooltip and
// accessible description ("2 values need correcting"). Painting only: the node's
// text, icon and size stay as they are.
#pragma once

#include <QString>
#include <QStyledItemDelegate>

namespace tabulon {

// The item data role that holds a node's count (an int, 0 for none).
inline constexpr int kProblemCountRole = Qt::UserRole + 1;

// "1 value needs correcting", "3 values need correcting"; "" for 0.
QString ProblemCountText(int count);

class TreeProblemBadge : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

    // The badge's rectangle for an item drawn in rect with that text width.
    static QRect BadgeRect(const QStyleOptionViewItem& option, const QString& count);
};

}  // namespace tabulon
