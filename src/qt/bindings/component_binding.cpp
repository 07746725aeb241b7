#include "qt/bindings/component_binding.h"

#include <QApplication>
#include <QFocusEvent>

#include "control/control_access.h"
#include "qt/key_translation.h"
#include "view/access_keys.h"
#include "view/edit_keys.h"

namespace tabulon {

void SendKeyStroke(BindingHost& host, const QKeyEvent& event) {
    const KeyStroke stroke = TranslateKeyEvent(event);
    host.runGesture([&host, stroke] {
        host.control().UserKeyStroke(stroke.keyCode, stroke.keyAscii, stroke.shift);
    });
}

bool ControlWantsKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_F5:
        case Qt::Key_F6:
        case Qt::Key_F7:
        case Qt::Key_F8:
            return true;
        default:
            break;
    }
    const KeyStroke stroke = TranslateKeyEvent(event);
    if (IsEditKey(stroke.keyCode, stroke.shift)) return true;
    if (FindAccessKey(stroke.keyCode, stroke.shift) != nullptr) return true;
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return (event.modifiers() & commands) == 0 && !event.text().isEmpty();
}

ComponentBinding::ComponentBinding(BindingHost& host, Component& model, QWidget* widget)
    : ModelBinding(model, widget), host_(host) {
    adopt(widget);
}

void ComponentBinding::adopt(QWidget* part) {
    part->installEventFilter(this);
}

void ComponentBinding::applyGeometry() {
    QWidget* w = widget();
    if (w == nullptr) return;
    const Mirroring mirroring(*this);
    const Component& m = model();
    // A cell editor lies on the pixels of the grid's rows and columns, as its cell does.
    const QRect pixels = FormOf(host_.control()).isCellEditor(m)
                             ? host_.onGridPixels(m.left(), m.top(), m.width(), m.height())
                             : host_.scale().toPixels(m.left(), m.top(), m.width(), m.height());
    placeWidget(pixels, m.enabled());
    const bool hadFocus = w->hasFocus() || w->isAncestorOf(QApplication::focusWidget());
    w->setVisible(model().visible());
    if (hadFocus && !model().visible()) host_.syncFocusToModel();
}

bool ComponentBinding::keyPress(QWidget* /*part*/, QKeyEvent* event) {
    SendKeyStroke(host_, *event);
    return true;
}

void ComponentBinding::handleFocusIn(Qt::FocusReason reason) {
    if (reason == Qt::MouseFocusReason) {
        host_.runGesture([this] { model().setFocus(); });
    }
    // Put right once this focus change is over: moving the focus again while Qt is
    // still delivering it would leave the widget believing it has it.
    QMetaObject::invokeMethod(
        this, [this] { host_.syncFocusToModel(); }, Qt::QueuedConnection);
}

bool ComponentBinding::eventFilter(QObject* watched, QEvent* event) {
    QWidget* part = qobject_cast<QWidget*>(watched);
    if (part == nullptr) return false;
    switch (event->type()) {
        case QEvent::FocusIn:
            handleFocusIn(static_cast<QFocusEvent*>(event)->reason());
            return false;
        case QEvent::KeyPress:
            return keyPress(part, static_cast<QKeyEvent*>(event));
        case QEvent::KeyRelease:
            return true;
        case QEvent::Wheel:
            if (!FormOf(host_.control()).isCellEditor(model())) return false;
            host_.wheelOverGrid(*static_cast<QWheelEvent*>(event));
            return true;
        case QEvent::ShortcutOverride:
            if (ControlWantsKey(*static_cast<QKeyEvent*>(event))) {
                event->accept();
                return true;
            }
            return false;
        default:
            return false;
    }
}

}  // namespace tabulon
