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
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <utility>
#include <vector>

#include "platform/component.h"
#include "qt/bindings/binding_host.h"

namespace tabulon {

class ComponentBinding : public QObject {
    Q_OBJECT

public:
    // widget: the Qt widget shown for model, owned by its Qt parent.
    ComponentBinding(BindingHost& host, Component& model, QWidget* widget);
    ~ComponentBinding() override;
    ComponentBinding(const ComponentBinding&) = delete;
    ComponentBinding& operator=(const ComponentBinding&) = delete;

    Component& model() const { return model_; }
    QWidget* widget() const { return widget_; }
    // The widget that takes Qt's focus when the model gives the component the focus.
    virtual QWidget* focusTarget() const { return widget_; }

    // Mirrors the whole model again (after creation, or when the scale changed).
    void refresh();

protected:
    BindingHost& host() const { return host_; }

    // Observes another model of the same component (an inner part); its
    // notifications reach handler, or onChange like the component's own when handler
    // is empty.
    void observe(Observable& model, Observable::Observer handler = {});
    // Installs the focus and key handling above on a Qt widget of this component.
    void adopt(QWidget* part);

    // A notification of the component or an observed part. The default mirrors
    // geometry, visibility and enabled state on Geometry/Enabled/Everything and calls
    // applyState for every other kind (and for Everything).
    virtual void onChange(const ChangeInfo& change);
    // Places the widget, shows or hides it and enables it from the model.
    virtual void applyGeometry();
    // Mirrors content (text, items, values); the default does nothing.
    virtual void applyState(const ChangeInfo& change);

    // A key press on an adopted widget; true when handled (Qt does not see it). The
    // default sends the stroke to the control and handles every key.
    virtual bool keyPress(QWidget* part, QKeyEvent* event);

    // True while the binding writes into its widgets: signals raised by those writes
    // are not gestures.
    bool mirroring() const { return mirroring_ > 0; }
    class Mirroring {
    public:
        explicit Mirroring(ComponentBinding& binding) : binding_(binding) { ++binding_.mirroring_; }
        ~Mirroring() { --binding_.mirroring_; }
        Mirroring(const Mirroring&) = delete;
        Mirroring& operator=(const Mirroring&) = delete;

    private:
        ComponentBinding& binding_;
    };

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void handleFocusIn(Qt::FocusReason reason);

    BindingHost& host_;
    Component& model_;
    QPointer<QWidget> widget_;
    std::vector<std::pair<Observable*, int>> subscriptions_;
    int mirroring_ = 0;
};

// Whether a key reaches the control rather than a shortcut of the host: keys the
// control navigates with (Tab, Enter, F5..F8, with any modifiers) and keys that type
// a character.
bool ControlWantsKey(const QKeyEvent& event);

}  // namespace tabulon
