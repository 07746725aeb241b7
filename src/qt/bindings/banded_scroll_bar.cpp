#include "qt/bindings/banded_scroll_bar.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>

namespace tabulon {

BandedScrollBar::BandedScrollBar(Qt::Orientation orientation, QWidget* parent)
    : QScrollBar(orientation, parent) {}

BandedScrollBar::Key BandedScrollBar::keyOf(const QStyleOptionSlider& option, qreal ratio) const {
    return {option.rect.size(),
            ratio,
            static_cast<int>(option.state),
            option.minimum,
            option.maximum,
            option.sliderPosition,
            option.sliderValue,
            option.pageStep,
            option.singleStep,
            option.upsideDown,
            option.direction,
            option.palette.cacheKey(),
            style()};
}

QImage BandedScrollBar::paintInBands(const QStyleOptionSlider& option, qreal ratio,
                                     const QColor& ground) {
    const int rows = kBandPixels / static_cast<int>(ratio);
    QImage whole(option.rect.size() * ratio, QImage::Format_ARGB32_Premultiplied);
    whole.setDevicePixelRatio(ratio);
    QImage band(QSize(option.rect.width(), rows) * ratio, QImage::Format_ARGB32_Premultiplied);
    band.setDevicePixelRatio(ratio);
    QPainter wholePainter(&whole);
    wholePainter.setCompositionMode(QPainter::CompositionMode_Source);
    for (int top = 0; top < option.rect.height(); top += rows) {
        band.fill(ground);
        {
            QPainter bandPainter(&band);
            bandPainter.translate(0, -top);
            style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &bandPainter, this);
        }
        wholePainter.drawImage(QPoint(0, top), band);
    }
    return whole;
}

void BandedScrollBar::paintEvent(QPaintEvent* event) {
    const qreal ratio = devicePixelRatioF();
    const QBrush ground = palette().brush(backgroundRole());
    const bool banded = orientation() == Qt::Vertical && !underMouse() && !isSliderDown() &&
                        QGuiApplication::mouseButtons() == Qt::NoButton && autoFillBackground() &&
                        ground.style() == Qt::SolidPattern && ground.isOpaque() &&
                        ratio == std::floor(ratio) && kBandPixels / static_cast<int>(ratio) > 0 &&
                        // A bar that fades paints a moment of an animation, not a look.
                        style()->styleHint(QStyle::SH_ScrollBar_Transient, nullptr, this) == 0;
    if (!banded) {
        QScrollBar::paintEvent(event);
        return;
    }
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.subControls = QStyle::SC_All;
    option.activeSubControls = QStyle::SC_None;
    const Key key = keyOf(option, ratio);
    const auto kept = std::find_if(looks_.begin(), looks_.end(),
                                   [&key](const Look& look) { return look.key == key; });
    if (kept != looks_.end()) {
        std::rotate(looks_.begin(), kept, kept + 1);
    } else {
        if (looks_.size() == kLooksKept) looks_.pop_back();
        looks_.insert(looks_.begin(), Look{key, paintInBands(option, ratio, ground.color())});
    }
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), looks_.front().image);
}

}  // namespace tabulon
