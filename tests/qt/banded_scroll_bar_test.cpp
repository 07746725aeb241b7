// The control's scroll bars paint in bands and keep the looks they painted; on screen
// they must stay exactly what the style paints in one go. A banded bar is rendered beside a stock
// one in the same state, through the states the control brings about, and the two images compared
// pixel for pixel.
#include <gtest/gtest.h>
#include <QApplication>
#include <QImage>
#include <QScrollBar>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "qt/bindings/banded_scroll_bar.h"

namespace tabulon {
namespace {

// The whole bar, or the part a repaint covers.
QImage Rendered(QWidget& widget, const QRect& part = QRect(QPoint(0, 0), QSize(-1, -1))) {
    return widget.grab(part).toImage().convertToFormat(QImage::Format_ARGB32);
}

TEST(BandedScrollBarPainting, LooksAsTheStylePaintsItInEveryState) {
    QScrollBar stock(Qt::Vertical);
    BandedScrollBar banded(Qt::Vertical, nullptr);
    const std::vector<std::pair<std::string, std::function<void(QScrollBar&)>>> states = {
        {"tall, empty range", [](QScrollBar& bar) { bar.resize(17, 643); }},
        {"a thumb part way", [](QScrollBar& bar) { bar.setRange(0, 50), bar.setValue(20); }},
        {"inverted", [](QScrollBar& bar) { bar.setInvertedAppearance(true); }},
        {"taller, at the end", [](QScrollBar& bar) { bar.resize(17, 1001), bar.setValue(50); }},
        {"disabled", [](QScrollBar& bar) { bar.setEnabled(false); }},
        {"back to the look of a moment ago",
         [](QScrollBar& bar) { bar.resize(17, 643), bar.setEnabled(true), bar.setValue(20); }},
        {"another palette",
         [](QScrollBar& bar) {
             QPalette palette = bar.palette();
             palette.setColor(QPalette::Window, QColor(200, 120, 40));
             palette.setColor(QPalette::Button, QColor(40, 120, 200));
             bar.setPalette(palette);
         }},
        {"a long thumb across bands",
         [](QScrollBar& bar) { bar.setRange(0, 50), bar.setPageStep(40), bar.setValue(10); }},
        {"the thumb moved along the same groove", [](QScrollBar& bar) { bar.setValue(31); }},
        {"the thumb a step from the top", [](QScrollBar& bar) { bar.setValue(1); }},
        {"a band high and one more row",
         [](QScrollBar& bar) {
             bar.resize(17, BandedScrollBar::kBandPixels + 1);
             bar.setEnabled(true);
         }},
    };
    for (QScrollBar* bar : {&stock, static_cast<QScrollBar*>(&banded)}) {
        bar->setAutoFillBackground(true);
        bar->setPageStep(1);
    }
    for (const auto& [name, apply] : states) {
        SCOPED_TRACE(name);
        apply(stock);
        apply(banded);
        EXPECT_EQ(Rendered(banded), Rendered(stock));
        const QRect part(0, 37, 17, std::min(stock.height() - 37, 250));
        EXPECT_EQ(Rendered(banded, part), Rendered(stock, part));
    }
}

// The tree's vertical bar fills its background, where a stock scroll area's leaves it
// to what lies beneath: the style's groove covers the whole bar, so it shows neither.
TEST(BandedScrollBarPainting, AFilledBarShowsNothingOfItsGround) {
    QWidget stockGround, bandedGround;
    auto* stock = new QScrollBar(Qt::Vertical, &stockGround);
    auto* banded = new BandedScrollBar(Qt::Vertical, &bandedGround);
    banded->setAutoFillBackground(true);
    for (QWidget* ground : {&stockGround, &bandedGround}) {
        QPalette palette = ground->palette();
        palette.setColor(QPalette::Window, QColor(200, 120, 40));
        ground->setPalette(palette);
        ground->setAutoFillBackground(true);
        ground->resize(400, 400);
    }
    for (QScrollBar* bar : {stock, static_cast<QScrollBar*>(banded)}) {
        bar->setPalette(QApplication::palette());
        bar->setGeometry(10, 10, 14, 380);
        bar->setRange(0, 9);
    }
    EXPECT_EQ(Rendered(bandedGround), Rendered(stockGround));
}

}  // namespace
}  // namespace tabulon
