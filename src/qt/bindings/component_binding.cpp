#include "qt/bindings/component_binding.h"

#include <QApplication>
#include <QFocusEvent>

#include "qt/key_translation.h"

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
    const Qt::KeyboardModifiers commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    return (event.modifiers() & commands) == 0 && !event.text().isEmpty();
}

ComponentBinding::ComponentBinding(BindingHost& host, Component& model, QWidget* widget)
    : host_(host), model_(model), widget_(widget) {
    observe(model);
    adopt(widget);
}

ComponentBinding::~ComponentBinding() {
    for (const auto& [observable, token] : subscriptions_)
        observable->Unsubscribe(token);
}

void ComponentBinding::observe(Observable& model, Observable::Observer handler) {
    if (!handler) handler = [this](const ChangeInfo& change) { onChange(change); };
    const int token = model.Subscribe(std::move(handler));
    subscriptions_.emplace_back(&model, token);
}

void ComponentBinding::adopt(QWidget* part) {
    part->installEventFilter(this);
}

void ComponentBinding::refresh() {
    onChange(ChangeInfo{Change::Everything});
}

void ComponentBinding::onChange(const ChangeInfo& change) {
    switch (change.kind) {
        case Change::Everything:
            applyGeometry();
            applyState(change);
            break;
        case Change::Geometry:
        case Change::Enabled:
            applyGeometry();
            break;
        case Change::Focus:
            break;  // the host keeps Qt's focus with the model's
        default:
            applyState(change);
            break;
    }
}

void ComponentBinding::applyGeometry() {
    if (widget_ == nullptr) return;
    const Mirroring mirroring(*this);
    const Component& m = model_;
    widget_->setGeometry(host_.scale().toPixels(m.left(), m.top(), m.width(), m.height()));
    widget_->setEnabled(m.enabled());
    const bool hadFocus = widget_->hasFocus() || widget_->isAncestorOf(QApplication::focusWidget());
    widget_->setVisible(m.visible());
    if (hadFocus && !m.visible()) host_.syncFocusToModel();
}

void ComponentBinding::applyState(const ChangeInfo& change) {
    (void)change;
}

bool ComponentBinding::keyPress(QWidget* part, QKeyEvent* event) {
    (void)part;
    SendKeyStroke(host_, *event);
    return true;
}

void ComponentBinding::handleFocusIn(Qt::FocusReason reason) {
    if (reason == Qt::MouseFocusReason) {
        host_.runGesture([this] { model_.setFocus(); });
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
