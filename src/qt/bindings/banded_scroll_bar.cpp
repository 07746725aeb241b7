#include "qt/bindings/banded_scroll_bar.h"

#include <QGuiApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <algorithm>
#include <cmath>
#include <cstring>

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

void BandedScrollBar::paintInBands(QImage& image, const QStyleOptionSlider& option, int top,
                                   int bottom, const QColor* ground) const {
    const int ratio = static_cast<int>(image.devicePixelRatio());
    const int rows = kBandPixels / ratio;
    top = std::max(top, 0);
    bottom = std::min(bottom, option.rect.height());
    QImage band(QSize(option.rect.width(), rows) * ratio, QImage::Format_ARGB32_Premultiplied);
    band.setDevicePixelRatio(ratio);
    const auto bytes = static_cast<std::size_t>(image.bytesPerLine());
    for (int at = top; at < bottom; at += rows) {
        // Device rows of the image this band covers (the last band may reach past it).
        const int first = at * ratio;
        const int count = std::min(rows, bottom - at) * ratio;
        if (ground != nullptr) {
            band.fill(*ground);
        } else {
            for (int row = 0; row < count; ++row)
                std::memcpy(band.scanLine(row), image.constScanLine(first + row), bytes);
        }
        {
            QPainter bandPainter(&band);
            bandPainter.translate(0, -at);
            style()->drawComplexControl(QStyle::CC_ScrollBar, &option, &bandPainter, this);
        }
        for (int row = 0; row < count; ++row)
            std::memcpy(image.scanLine(first + row), band.constScanLine(row), bytes);
    }
}

const QImage& BandedScrollBar::look(std::vector<Look>& looks, const Key& key,
                                    const std::function<QImage()>& paint) {
    const auto kept = std::find_if(looks.begin(), looks.end(),
                                   [&key](const Look& look) { return look.key == key; });
    if (kept != looks.end()) {
        std::rotate(looks.begin(), kept, kept + 1);
    } else {
        if (looks.size() == kLooksKept) looks.pop_back();
        looks.insert(looks.begin(), Look{key, paint()});
    }
    return looks.front().image;
}

QImage BandedScrollBar::paintLook(const QStyleOptionSlider& option, qreal ratio,
                                  const QColor& ground) {
    const auto blank = [&option, ratio] {
        QImage image(option.rect.size() * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        return image;
    };
    const auto part = [&](QStyle::SubControl control) {
        return style()->subControlRect(QStyle::CC_ScrollBar, &option, control, this);
    };
    // The style's thumb may reach a little past its rectangle (an outline, a shadow).
    constexpr int kReach = 4;
    const QRect thumb = part(QStyle::SC_ScrollBarSlider);
    const QRect reach = thumb.adjusted(0, -kReach, 0, kReach);
    // Painted in one go, the thumb lies over the groove and under the arrows: away
    // from the arrows it may be painted over a groove painted without it.
    if (thumb.isEmpty() || reach.intersects(part(QStyle::SC_ScrollBarAddLine)) ||
        reach.intersects(part(QStyle::SC_ScrollBarSubLine))) {
        QImage image = blank();
        paintInBands(image, option, 0, option.rect.height(), &ground);
        return image;
    }
    QStyleOptionSlider groove = option;
    groove.subControls &= ~QStyle::SC_ScrollBarSlider;
    Key grooveKey = keyOf(groove, ratio);
    // Neither where the thumb is nor the range changes the groove; whether the range is
    // empty and whether the thumb is at an end may change the arrows.
    const auto end = [&option](int at) {
        return at == option.minimum ? 0 : at == option.maximum ? 2 : 1;
    };
    grooveKey.minimum = 0;
    grooveKey.maximum = option.maximum > option.minimum ? 1 : 0;
    grooveKey.pageStep = grooveKey.singleStep = 0;
    grooveKey.position = end(option.sliderPosition);
    grooveKey.value = end(option.sliderValue);
    QImage image = look(grooves_, grooveKey, [&] {
        QImage whole = blank();
        paintInBands(whole, groove, 0, option.rect.height(), &ground);
        return whole;
    });
    QStyleOptionSlider slider = option;
    slider.subControls = QStyle::SC_ScrollBarSlider;
    paintInBands(image, slider, reach.top(), reach.bottom() + 1, nullptr);
    return image;
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
    const QImage& image = look(looks_, keyOf(option, ratio),
                               [&] { return paintLook(option, ratio, ground.color()); });
    QPainter painter(this);
    painter.drawImage(QPoint(0, 0), image);
}

}  // namespace tabulon
