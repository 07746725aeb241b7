#include "qt/bindings/tree_problem_badge.h"

#include <QApplication>
#include <QPainter>
#include <string>

namespace tabulon {

namespace {

constexpr int kGap = 6;
constexpr int kPadding = 4;

}  // namespace

QString ProblemCountText(int count) {
    if (count <= 0) return {};
    return count == 1 ? QStringLiteral("1 value needs correcting")
                      : QStringLiteral("%1 values need correcting").arg(count);
}

void PaintProblemBadge(QPainter* painter, const QStyleOptionViewItem& item, const QRect& textRect,
                       int textWidth, int count, const CellText& numbers) {
    if (count <= 0) return;
    const std::string number = std::to_string(count);
    const int height = QFontMetrics(item.font).height();
    const QRect badge(textRect.left() + textWidth + kGap, textRect.center().y() - height / 2,
                      qRound(numbers.width(item.font, number)) + 2 * kPadding, height);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    QPalette::ColorGroup group = QPalette::Disabled;
    if (item.state.testFlag(QStyle::State_Enabled))
        group = item.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    painter->setBrush(
        item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    painter->drawRoundedRect(badge, badge.height() / 2.0, badge.height() / 2.0);
    painter->setPen(item.palette.color(group, selected ? QPalette::Highlight : QPalette::Base));
    painter->setFont(item.font);
    numbers.paint(*painter, badge, Qt::AlignCenter, number);
    painter->restore();
}

void TreeProblemBadge::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QRect text = rows_.paint(painter, item);
    const int problems = index.data(kProblemCountRole).toInt();
    if (problems > 0) {
        PaintProblemBadge(painter, item, text, rows_.textWidth(item), problems, numbers_);
    }
}

QSize TreeProblemBadge::sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const {
    QSize size = QStyledItemDelegate::sizeHint(option, index);
    const int problems = index.data(kProblemCountRole).toInt();
    if (problems > 0) {
        const QFontMetrics metrics(option.font);
        size.rwidth() += kGap + metrics.horizontalAdvance(QString::number(problems)) + 2 * kPadding;
    }
    return size;
}

}  // namespace tabulon
