#include "qt/bindings/tree_row_painter.h"

#include <QApplication>
#include <QFontMetrics>
#include <QPainter>
#include <QStyle>
#include <QTextOption>

namespace tabulon {

namespace {

constexpr qsizetype kMostLayouts = 512;
constexpr std::size_t kMostKeptBytes = std::size_t{8} << 20;

const QStyle& StyleOf(const QStyleOptionViewItem& item) {
    return item.widget != nullptr ? *item.widget->style() : *QApplication::style();
}

QPalette::ColorGroup ColorGroup(QStyle::State state) {
    if (!state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
    return state.testFlag(QStyle::State_Active) ? QPalette::Normal : QPalette::Inactive;
}

// Lines set width wide one under the other, as the style lays a text out.
void LayOut(QTextLayout& layout, int width) {
    qreal height = 0;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        line.setPosition(QPointF(0, height));
        height += line.height();
    }
    layout.endLayout();
}

}  // namespace

bool TreeRowPainter::Handles(const QStyleOptionViewItem& item) {
    // With the decoration shown selected, the style gives the text all the room right
    // of the picture, whatever the text: its rectangle needs no layout of it.
    return item.showDecorationSelected &&
           !item.features.testAnyFlags(QStyleOptionViewItem::WrapText |
                                       QStyleOptionViewItem::HasCheckIndicator) &&
           !item.state.testFlag(QStyle::State_Editing) &&
           item.decorationPosition == QStyleOptionViewItem::Left &&
           !item.text.contains(QChar::LineSeparator) && !item.text.contains(QLatin1Char('\n'));
}

bool TreeRowPainter::Fits(const Layout& layout, const QStyleOptionViewItem& item, int width) {
    if (layout.font != item.font || layout.direction != item.direction ||
        layout.alignment != item.displayAlignment || layout.elideMode != item.textElideMode) {
        return false;
    }
    if (layout.width == width) return true;
    // A whole text set flush left is drawn the same in any width it fits: a pane
    // resized keeps its layouts.
    return !layout.elided && layout.natural <= width &&
           QStyle::visualAlignment(item.direction, item.displayAlignment).testFlag(Qt::AlignLeft);
}

const TreeRowPainter::Layout& TreeRowPainter::layoutFor(const QStyleOptionViewItem& item,
                                                        int width) {
    const auto found = layouts_.constFind(item.text);
    if (found != layouts_.constEnd() && Fits(*found, item, width)) return *found;
    if (layouts_.size() >= kMostLayouts) clearLayouts();

    Layout entry;
    entry.font = item.font;
    entry.width = width;
    entry.direction = item.direction;
    entry.alignment = item.displayAlignment;
    entry.elideMode = item.textElideMode;
    QTextOption option;
    option.setWrapMode(QTextOption::ManualWrap);
    option.setTextDirection(item.direction);
    option.setAlignment(QStyle::visualAlignment(item.direction, item.displayAlignment));

    QTextLayout whole(item.text, item.font);
    whole.setTextOption(option);
    LayOut(whole, width);
    entry.bounds = whole.boundingRect().size().toSize();
    const QFontMetrics metrics(item.font);
    entry.advance = metrics.horizontalAdvance(item.text);
    entry.natural = whole.lineCount() > 0 ? whole.lineAt(0).naturalTextWidth() : 0;
    entry.elided = entry.natural > width;
    QTextLayout line(
        entry.elided ? metrics.elidedText(item.text, item.textElideMode, width) : item.text,
        item.font);
    line.setTextOption(option);
    LayOut(line, width);
    entry.runs = line.glyphRuns();
    return *layouts_.insert(item.text, entry);
}

void TreeRowPainter::clearLayouts() {
    layouts_.clear();
    keptBytes_ = 0;
}

int TreeRowPainter::textWidth(const QStyleOptionViewItem& item) {
    const auto found = layouts_.constFind(item.text);
    if (found != layouts_.constEnd() && found->font == item.font) return found->advance;
    return QFontMetrics(item.font).horizontalAdvance(item.text);
}

void TreeRowPainter::drawText(QPainter* painter, const QStyleOptionViewItem& item,
                              const QStyle& style, const QRect& textRect) {
    const QPalette::ColorGroup group = ColorGroup(item.state);
    const bool selected = item.state.testFlag(QStyle::State_Selected);
    painter->setPen(
        item.palette.color(group, selected ? QPalette::HighlightedText : QPalette::Text));
    const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, item.widget) + 1;
    const QRect rect = textRect.adjusted(margin, 0, -margin, 0);
    const Layout& layout = layoutFor(item, rect.width());
    const QRect placed =
        QStyle::alignedRect(Qt::LayoutDirectionAuto, item.displayAlignment, layout.bounds, rect);
    keptBytes_ += layout.stamp.draw(*painter, QPointF(rect.x(), placed.top()), layout.runs);
    if (keptBytes_ > kMostKeptBytes) clearLayouts();
}

QRect TreeRowPainter::paint(QPainter* painter, const QStyleOptionViewItem& item) {
    const QStyle& style = StyleOf(item);
    if (!Handles(item)) {
        style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
        return style.subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
    }
    QStyleOptionViewItem bare = item;
    bare.text.clear();
    bare.state &= ~QStyle::State_HasFocus;
    style.drawControl(QStyle::CE_ItemViewItem, &bare, painter, item.widget);
    const QRect textRect = style.subElementRect(QStyle::SE_ItemViewItemText, &bare, item.widget);

    // Drawn in the style's order, text then focus frame, clipped to the row as it does.
    painter->save();
    painter->setClipRect(item.rect);
    if (!item.text.isEmpty()) drawText(painter, item, style, textRect);
    if (item.state.testFlag(QStyle::State_HasFocus)) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(item);
        focus.rect = style.subElementRect(QStyle::SE_ItemViewItemFocusRect, &item, item.widget);
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        const QPalette::ColorGroup group =
            item.state.testFlag(QStyle::State_Enabled) ? QPalette::Normal : QPalette::Disabled;
        focus.backgroundColor = item.palette.color(
            group,
            item.state.testFlag(QStyle::State_Selected) ? QPalette::Highlight : QPalette::Window);
        style.drawPrimitive(QStyle::PE_FrameFocusRect, &focus, painter, item.widget);
    }
    painter->restore();
    return textRect;
}

}  // namespace tabulon
