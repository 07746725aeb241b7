// PageBinding: the base of every binding between one control of a property page
// model (a frame, label, check box, list, text box or numeric box) and the Qt widget
// that shows it in a PropertyPageDialog.
//
// A binding observes its model (and any inner part it names) and mirrors the model
// into the widget on every notification: geometry (twips -> pixels with the dialog's
// scale, relative to the frame's widget as the model's place is relative to its
// frame), visibility and enabled state here, content in the subclasses. The other
// way it forwards the user's gestures into the model through the host, and mirrors
// the model's answer back at once, so the widget always shows what the model says.
//
// Unlike the control's own widgets, keys are not routed through a keyboard preview:
// a page has none, so each binding hands a key to its own model.
#pragma once

#include <QWidget>
#include <functional>

#include "qt/model_binding.h"
#include "qt/twips_scale.h"

namespace tabulon {

class PropertyPage;

// What page bindings need from the dialog that holds them.
class PageBindingHost {
public:
    virtual ~PageBindingHost() = default;

    virtual PropertyPage& page() = 0;
    virtual const TwipsScale& scale() const = 0;
    // Runs a user's gesture into the page's models. A failure that reaches it is
    // shown as a critical message with the failure's own description and the dialog
    // stays usable.
    virtual void runGesture(const std::function<void()>& gesture) = 0;
};

class PageBinding : public ModelBinding {
    Q_OBJECT

public:
    // widget: the Qt widget shown for model, owned by its Qt parent.
    PageBinding(PageBindingHost& host, Component& model, QWidget* widget);

protected:
    PageBindingHost& host() const { return host_; }

    // Whether the widget is enabled: the model's own state by default.
    virtual bool shownEnabled() const { return model().enabled(); }

    // Places, enables (shownEnabled) and shows the widget from the model.
    void applyGeometry() override;

private:
    PageBindingHost& host_;
};

}  // namespace tabulon
