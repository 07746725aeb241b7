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

bool BandedScrollBar::Look::sameAs(const Look& other) const {
    return size == other.size && ratio == other.ratio && state == other.state &&
           minimum == other.minimum && maximum == other.maximum && position == other.position &&
           value == other.value && pageStep == other.pageStep && singleStep == other.singleStep &&
           upsideDown == other.upsideDown && direction == other.direction &&
           palette == other.palette && style == other.style;
}

BandedScrollBar::Look BandedScrollBar::lookOf(const QStyleOptionSlider& option, qreal ratio) const {
    Look look;
    look.size = option.rect.size();
    look.ratio = ratio;
    look.state = static_cast<int>(option.state);
    look.minimum = option.minimum;
    look.maximum = option.maximum;
    look.position = option.sliderPosition;
    look.value = option.sliderValue;
    look.pageStep = option.pageStep;
    look.singleStep = option.singleStep;
    look.upsideDown = option.upsideDown;
    look.direction = option.direction;
    look.palette = option.palette.cacheKey();
    look.style = style();
    return look;
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
    Look look = lookOf(option, ratio);
    const auto kept = std::find_if(looks_.begin(), looks_.end(),
                                   [&look](const Look& other) { return other.sameAs(look); });
    if (kept != looks_.end()) {
        std::rotate(looks_.begin(), kept, kept + 1);
    } else {
        look.image = paintInBands(option, ratio, ground.color());
        if (looks_.size() == kLooksKept) looks_.pop_back();
        looks_.insert(looks_.begin(), std::move(look));
    }
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), looks_.front().image);
}

}  // namespace tabulon
