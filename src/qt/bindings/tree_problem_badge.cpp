#include "qt/bindings/tree_problem_badge.h"

#include <QApplication>
#include <QPainter>

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

QRect TreeProblemBadge::BadgeRect(const QStyleOptionViewItem& option, const QString& count) {
    const QFontMetrics metrics(option.font);
    const QStyle* style = option.widget != nullptr ? option.widget->style() : QApplication::style();
    const QRect text = style->subElementRect(QStyle::SE_ItemViewItemText, &option, option.widget);
    const int textWidth = metrics.horizontalAdvance(option.text);
    const int width = metrics.horizontalAdvance(count) + 2 * kPadding;
    const int height = metrics.height();
    return {text.left() + textWidth + kGap, text.center().y() - height / 2, width, height};
}

void TreeProblemBadge::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QStyledItemDelegate::paint(painter, option, index);
    const int problems = index.data(kProblemCountRole).toInt();
    if (problems <= 0) return;
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QString count = QString::number(problems);
    const QRect badge = BadgeRect(item, count);
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
    painter->drawText(badge, Qt::AlignCenter, count);
    painter->restore();
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
