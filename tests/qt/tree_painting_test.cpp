// The tree's rows and badges are drawn from cached text layouts; on screen they must
// stay exactly what the style and QPainter painted when they laid each text out
// themselves. A tree view is rendered in the states a person brings about (a node
// clicked, the window left, pictures off, the pane narrowed until names elide and wide
// again) with the style's whole painting and with the tree's, and the two images
// compared pixel for pixel.
#include <gtest/gtest.h>
#include <QApplication>
#include <QPainter>
#include <QStandardItemModel>
#include <QStyle>
#include <QStyledItemDelegate>
#include <QTest>
#include <QTreeView>
#include <functional>
#include <string>
#include <vector>

#include "qt/bindings/tree_problem_badge.h"

namespace tabulon {
namespace {

// The badge drawn whole by QPainter: a rounded box and the number drawn as text.
void DrawnBadge(QPainter* painter, const QStyleOptionViewItem& item, const QRect& textRect,
                int textWidth, int count) {
    if (count <= 0) return;
    const QString number = QString::number(count);
    const QFontMetrics metrics(item.font);
    const int height = metrics.height();
    const QRect badge(textRect.left() + textWidth + 6, textRect.center().y() - height / 2,
                      metrics.horizontalAdvance(number) + 8, height);
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
    painter->drawText(badge, Qt::AlignCenter, number);
    painter->restore();
}

// The painting before the caches: the style's item painted whole, the badge drawn whole,
// placed from the style's own text rectangle and a fresh measure of the text.
class StylePaintedBadge : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        QStyleOptionViewItem item = option;
        initStyleOption(&item, index);
        const QRect text =
            item.widget->style()->subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
        DrawnBadge(painter, item, text, QFontMetrics(item.font).horizontalAdvance(item.text),
                   index.data(kProblemCountRole).toInt());
    }
};

QIcon Picture(Qt::GlobalColor colour) {
    QPixmap pixmap(16, 16);
    pixmap.fill(colour);
    QPainter painter(&pixmap);
    painter.fillRect(4, 4, 8, 8, Qt::white);
    return QIcon(pixmap);
}

QStandardItem* Node(const QString& text, int problems, Qt::GlobalColor colour) {
    auto* item = new QStandardItem(text);
    item->setData(problems, kProblemCountRole);
    item->setData(Picture(colour), Qt::DecorationRole);
    return item;
}

TEST(TreePainting, RowsLookAsTheStylePaintsThemInEveryState) {
    QStandardItemModel model;
    QStandardItem* building = Node(QStringLiteral("Building 1"), 0, Qt::darkBlue);
    model.appendRow(building);
    building->appendRow(
        Node(QStringLiteral("Floor 1 with a name long enough to elide"), 1, Qt::red));
    building->appendRow(Node(QStringLiteral("Zone \u00d6sterfeld (g\u00fcltig)"), 123, Qt::green));
    building->appendRow(Node(QStringLiteral("Zone 7"), 4071, Qt::green));
    model.appendRow(Node(QStringLiteral("Building 2"), 0, Qt::darkBlue));

    QTreeView view;
    view.setModel(&model);
    view.setHeaderHidden(true);
    view.setUniformRowHeights(true);
    view.setIconSize(QSize(16, 16));
    view.expandAll();
    auto* tree = new TreeProblemBadge(&view);
    auto* style = new StylePaintedBadge(&view);
    QWidget elsewhere;
    view.resize(320, 140);
    view.show();
    view.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&view));

    const QModelIndex floor = model.index(0, 0, model.index(0, 0));
    const auto rowCentre = [&view](const QModelIndex& index) {
        return view.visualRect(index).center();
    };
    const std::vector<std::pair<std::string, std::function<void()>>> steps = {
        {"nothing selected", [] {}},
        {"a node with a badge clicked",
         [&] { QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, rowCentre(floor)); }},
        {"the next node by key", [&] { QTest::keyClick(&view, Qt::Key_Down); }},
        {"the window left",
         [&] {
             elsewhere.show();
             elsewhere.activateWindow();
             ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
         }},
        {"the window back, pictures off",
         [&] {
             view.activateWindow();
             ASSERT_TRUE(QTest::qWaitForWindowActive(&view));
             for (QStandardItem* item : {building, building->child(0), building->child(1)})
                 item->setData(QVariant(), Qt::DecorationRole);
         }},
        {"the pane narrowed", [&] { view.resize(130, 140); }},
        {"the pane narrower", [&] { view.resize(80, 140); }},
        {"the pane wide again, pictures on",
         [&] {
             view.resize(320, 140);
             building->child(0)->setData(Picture(Qt::red), Qt::DecorationRole);
         }},
    };
    for (const auto& [state, step] : steps) {
        SCOPED_TRACE(state);
        step();
        QApplication::processEvents();
        view.setItemDelegate(style);
        const QImage expected = view.grab().toImage();
        view.setItemDelegate(tree);
        // Painted again, as a pane is: the second and third time from kept pixels.
        for (const char* time : {"first", "second", "third"}) {
            SCOPED_TRACE(std::string(time) + " painting");
            const QImage painted = view.grab().toImage();
            ASSERT_EQ(painted.size(), expected.size());
            int differing = 0;
            for (int y = 0; y < painted.height(); ++y) {
                for (int x = 0; x < painted.width(); ++x)
                    differing += painted.pixel(x, y) != expected.pixel(x, y) ? 1 : 0;
            }
            EXPECT_EQ(differing, 0);
        }
    }
    // The narrow states did elide: the long name is wider than the pane.
    EXPECT_GT(QFontMetrics(view.font()).horizontalAdvance(floor.data().toString()), 130);
}

}  // namespace
}  // namespace tabulon
