#include "qt/bindings/tree_problem_badge.h"

#include <QApplication>
#include <QPainter>
#include <cmath>
#include <string>

namespace tabulon {

namespace {

constexpr int kGap = 6;
constexpr int kPadding = 4;
constexpr std::size_t kMostBoxes = 64;

void FillBox(QPainter& painter, const QRect& box, const QColor& colour) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(box, box.height() / 2.0, box.height() / 2.0);
}

// Whether an image of the box laid over what painter paints on gives the pixels of the
// box filled there: a whole number of device pixels per pixel, moved by whole pixels.
bool Aligned(const QPainter& painter) {
    const QTransform& transform = painter.deviceTransform();
    const qreal ratio = painter.device()->devicePixelRatio();
    return transform.type() <= QTransform::TxTranslate && ratio == std::floor(ratio) &&
           transform.dx() == std::floor(transform.dx()) &&
           transform.dy() == std::floor(transform.dy()) &&
           painter.compositionMode() == QPainter::CompositionMode_SourceOver &&
           painter.opacity() == 1.0;
}

}  // namespace

const QImage& ProblemBadgeParts::box(QSize size, const QColor& colour, int ratio) {
    const Box key{size, colour.rgba(), ratio};
    const auto found = boxes_.find(key);
    if (found != boxes_.end()) return found->second;
    if (boxes_.size() >= kMostBoxes) boxes_.clear();
    QImage image(size * ratio, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    FillBox(painter, QRect(QPoint(0, 0), size), colour);
    return boxes_.emplace(key, image).first->second;
}

QString ProblemCountText(int count) {
    if (count <= 0) return {};
    return count == 1 ? QStringLiteral("1 value needs correcting")
                      : QStringLiteral("%1 values need correcting").arg(count);
}

void PaintProblemBadge(QPainter* painter, const QStyleOptionViewItem& item, const QRect& textRect,
                       int textWidth, int count, ProblemBadgeParts& parts) {
    if (count <= 0) return;
    const std::string number = std::to_string(count);
    const int height = QFontMetrics(item.font).height();
    const QRect badge(textRect.left() + textWidth + kGap, textRect.center().y() - height / 2,
                      qRound(parts.numbers.width(item.font, number)) + 2 * kPadding, height);
    painter->save();
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    QPalette::ColorGroup group = QPalette::Disabled;
    if (item.state.testFlag(QStyle::State_Enabled))
        group = item.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
    const QColor fill =
        item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text);
    if (Aligned(*painter)) {
        const int ratio = static_cast<int>(painter->device()->devicePixelRatio());
        painter->drawImage(badge.topLeft(), parts.box(badge.size(), fill, ratio));
    } else {
        FillBox(*painter, badge, fill);
    }
    painter->setPen(item.palette.color(group, selected ? QPalette::Highlight : QPalette::Base));
    painter->setFont(item.font);
    parts.numbers.paint(*painter, badge, Qt::AlignCenter, number);
    painter->restore();
}

void TreeProblemBadge::paint(QPainter* painter, const QStyleOptionViewItem& option,
                             const QModelIndex& index) const {
    QStyleOptionViewItem item = option;
    initStyleOption(&item, index);
    const QRect text = rows_.paint(painter, item);
    const int problems = index.data(kProblemCountRole).toInt();
    if (problems > 0) {
        PaintProblemBadge(painter, item, text, rows_.textWidth(item), problems, parts_);
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
