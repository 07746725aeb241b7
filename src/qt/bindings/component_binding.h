// ComponentBinding: the base of every binding between one model of the control's
// form and the Qt widget that shows it.
//
// A binding observes its model (and any inner models it names) and mirrors the
// model's state into the widget on every notification: geometry (twips -> pixels
// with the host's scale, relative to the parent widget as the model's geometry is
// relative to the control or its frame), visibility and enabled state here, content
// in the subclasses. The other way, it forwards the user's gestures into the model.
// The binding never changes the widget's state on its own; where Qt's handling of a
// gesture changes the widget first (a caret moved, an item chosen), the model's
// answer is mirrored back at once, so the widget always shows what the model says.
//
// Focus and keys, for every Qt widget the binding adopts:
// - A widget that takes Qt's focus from a mouse click gives the model's focus to the
//   component; focus that Qt moves by itself (a widget hidden, a window activated)
//   is not the user's and is put back where the model has it.
// - Every key press goes to the control's keyboard routing (which previews it and
//   hands it to the model's focused component); key releases end there too, so Qt's
//   own handling (the focus chain's Tab, a button's Space, a dialog's Enter) never
//   sees them. Subclasses may let Qt handle a key locally afterwards (caret moves).
// - The wheel over a cell editor scrolls the grid below it (the host's wheelOverGrid).
#pragma once

#include <QWidget>

#include "qt/bindings/binding_host.h"
#include "qt/model_binding.h"

namespace tabulon {

class ComponentBinding : public ModelBinding {
    Q_OBJECT

public:
    // widget: the Qt widget shown for model, owned by its Qt parent.
    ComponentBinding(BindingHost& host, Component& model, QWidget* widget);

    // The widget that takes Qt's focus when the model gives the component the focus.
    virtual QWidget* focusTarget() const { return widget(); }

protected:
    BindingHost& host() const { return host_; }

    // Installs the focus and key handling above on a Qt widget of this component.
    void adopt(QWidget* part);

    // Places the widget, shows or hides it and enables it from the model; when it
    // hides the widget holding Qt's focus, the host puts the focus right.
    void applyGeometry() override;

    // A key press on an adopted widget; true when handled (Qt does not see it). The
    // default sends the stroke to the control and handles every key.
    virtual bool keyPress(QWidget* part, QKeyEvent* event);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void handleFocusIn(Qt::FocusReason reason);

    BindingHost& host_;
};

// Whether a key reaches the control rather than a shortcut of the host: keys the
// control navigates with (Tab, Enter, F5..F8, with any modifiers), its editing keys
// (Ctrl+Z, Ctrl+Y, Ctrl+Shift+Z, Escape), its access keys (view/access_keys.h) and
// keys that type a character.
bool ControlWantsKey(const QKeyEvent& event);

}  // namespace tabulon
