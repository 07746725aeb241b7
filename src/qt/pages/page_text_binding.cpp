#include "qt/pages/page_text_binding.h"

#include <QKeyEvent>

#include "qt/key_translation.h"

namespace tabulon {

namespace {

// Keys the dialog handles: moving through its controls, OK and Cancel.
bool DialogKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Tab:
        case Qt::Key_Backtab:
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Escape:
            return true;
        default:
            return false;
    }
}

}  // namespace

PageTextBinding::PageTextBinding(PageBindingHost& bindingHost, Component& control, TextBox& box,
                                 QWidget* parent)
    : PageBinding(bindingHost, control, new QLineEdit(parent)),
      control_(control),
      box_(box),
      lineEdit_(static_cast<QLineEdit*>(widget())),
      mirror_(*lineEdit_, box,
              [this](const std::function<void()>& gesture) { host().runGesture(gesture); }) {
    if (&control != &box) observe(box);
    lineEdit_->installEventFilter(this);
}

bool PageTextBinding::shownEnabled() const {
    return control_.enabled() && box_.enabled();
}

void PageTextBinding::applyState(const ChangeInfo& change) {
    mirror_.mirror(change.kind != Change::Selection);
}

bool PageTextBinding::keyPress(const QKeyEvent& event) {
    if (DialogKey(event) || LineEditMirror::LocalKey(event)) return false;
    if (mirror_.editKey(event)) return true;
    const int keyAscii = TranslateKeyEvent(event).keyAscii;
    if (keyAscii != 0) host().runGesture([this, keyAscii] { box_.userKeyPress(keyAscii); });
    return true;
}

bool PageTextBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched != lineEdit_ || event->type() != QEvent::KeyPress) return false;
    return keyPress(*static_cast<QKeyEvent*>(event));
}

}  // namespace tabulon
