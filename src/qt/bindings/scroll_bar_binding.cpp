#include "qt/bindings/scroll_bar_binding.h"

#include <algorithm>

#include "qt/bindings/banded_scroll_bar.h"

namespace tabulon {

ScrollBarBinding::ScrollBarBinding(BindingHost& bindingHost, Component& owner, ScrollBar& bar,
                                   Qt::Orientation orientation, QWidget* parent)
    : ComponentBinding(bindingHost, owner, new QWidget(parent)),
      bar_(bar),
      scrollBar_(new BandedScrollBar(orientation, widget())) {
    widget()->setFocusPolicy(Qt::NoFocus);
    scrollBar_->setFocusPolicy(Qt::ClickFocus);
    scrollBar_->setSingleStep(1);
    scrollBar_->setPageStep(1);
    scrollBar_->setContextMenuPolicy(Qt::NoContextMenu);
    // Opaque, so that a repaint of the grid beneath leaves the bar as it is (Qt paints
    // again every widget over a repainted area that it cannot count as covered).
    scrollBar_->setAutoFillBackground(true);
    observe(bar_);
    adopt(scrollBar_);
    connect(scrollBar_, &QAbstractSlider::actionTriggered, this, [this](int action) {
        if (!mirroring()) userAction(action);
    });
}

void ScrollBarBinding::applyGeometry() {
    mirrorSoon();
}

void ScrollBarBinding::applyState(const ChangeInfo& /*change*/) {
    mirrorSoon();
}

// The control refreshes its bars by emptying their range (and disabling them) and
// filling it again, and a layout places them in steps, several times in one gesture:
// shown only where it ends.
void ScrollBarBinding::mirrorSoon() {
    host().mirrorLater(this, [this] {
        ComponentBinding::applyGeometry();
        const Mirroring mirroring(*this);
        scrollBar_->setGeometry(
            host().scale().toPixels(bar_.left(), bar_.top(), bar_.width(), bar_.height()));
        scrollBar_->setVisible(bar_.visible());
        mirrorValue();
    });
}

void ScrollBarBinding::mirrorValue() {
    const Mirroring mirroring(*this);
    scrollBar_->setEnabled(bar_.enabled());
    scrollBar_->setRange(std::min(bar_.min(), bar_.max()), std::max(bar_.min(), bar_.max()));
    // Qt repaints the bar on every call, changed or not; a grid refill mirrors each bar.
    if (const bool inverted = bar_.min() > bar_.max(); scrollBar_->invertedAppearance() != inverted)
        scrollBar_->setInvertedAppearance(inverted);
    scrollBar_->setValue(bar_.value());
}

void ScrollBarBinding::userAction(int action) {
    const int proposed = scrollBar_->sliderPosition();
    host().runGesture([this, action, proposed] {
        switch (action) {
            case QAbstractSlider::SliderSingleStepAdd:
                bar_.userStep(1);
                break;
            case QAbstractSlider::SliderSingleStepSub:
                bar_.userStep(-1);
                break;
            case QAbstractSlider::SliderPageStepAdd:
            case QAbstractSlider::SliderPageStepSub:
            case QAbstractSlider::SliderToMinimum:
            case QAbstractSlider::SliderToMaximum:
                bar_.userSetValue(proposed);
                break;
            case QAbstractSlider::SliderMove:
                bar_.userDragTo(proposed);
                break;
            default:
                break;
        }
    });
    // Qt applies its slider position once this returns: make it the model's value.
    mirrorValue();
}

}  // namespace tabulon
