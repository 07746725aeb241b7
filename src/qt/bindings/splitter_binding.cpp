#include "qt/bindings/splitter_binding.h"

#include <QMouseEvent>
#include <cmath>

#include "qt/key_translation.h"

namespace tabulon {

SplitterBinding::SplitterBinding(BindingHost& bindingHost, Component& splitter,
                                 const TreeView& tree, QWidget* parent)
    : ComponentBinding(bindingHost, splitter, new QWidget(parent)), tree_(tree) {
    widget()->setCursor(Qt::SizeHorCursor);
    widget()->setFocusPolicy(Qt::NoFocus);
}

void SplitterBinding::drag(const QPointF& globalPosition, Qt::KeyboardModifiers modifiers) {
    const int pixels = static_cast<int>(std::lround(globalPosition.x() - pressX_));
    const std::int32_t wanted = startWidth_ + host().scale().toTwipsX(pixels);
    const std::int32_t dx = wanted - tree_.width();
    if (dx == 0) return;
    const int shift = (modifiers.testFlag(Qt::ShiftModifier) ? kShiftBit : 0) |
                      (modifiers.testFlag(Qt::ControlModifier) ? kCtrlBit : 0) |
                      (modifiers.testFlag(Qt::AltModifier) ? kAltBit : 0);
    host().runGesture([this, shift, dx] { host().control().SplitterDrag(1, shift, dx, 0); });
}

bool SplitterBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == widget()) {
        switch (event->type()) {
            case QEvent::MouseButtonPress: {
                auto* mouse = static_cast<QMouseEvent*>(event);
                if (mouse->button() != Qt::LeftButton) return false;
                dragging_ = true;
                pressX_ = mouse->globalPosition().x();
                startWidth_ = tree_.width();
                return true;
            }
            case QEvent::MouseMove: {
                auto* mouse = static_cast<QMouseEvent*>(event);
                if (!dragging_ || !mouse->buttons().testFlag(Qt::LeftButton)) return false;
                drag(mouse->globalPosition(), mouse->modifiers());
                return true;
            }
            case QEvent::MouseButtonRelease:
                dragging_ = false;
                return false;
            default:
                break;
        }
    }
    return ComponentBinding::eventFilter(watched, event);
}

}  // namespace tabulon
