// BindingHost: what every binding needs from the widget that hosts the bindings —
// the control, the twips scale of the screen, keyboard focus kept in step with the
// model's, and one way to run a user's gesture into the models.
#pragma once

#include <QKeyEvent>
#include <QObject>
#include <QWheelEvent>
#include <cstdint>
#include <functional>

#include "control/generic_sp_control.h"
#include "qt/twips_scale.h"

namespace tabulon {

class BindingHost {
public:
    virtual ~BindingHost() = default;

    virtual Generic_SP_Control& control() = 0;
    virtual const TwipsScale& scale() const = 0;

    // Gives Qt's keyboard focus to the widget of the component that has the model's
    // focus. When no component has it and Qt's focus is inside the host widget, the
    // host widget itself takes it; Qt's focus elsewhere is then left alone.
    virtual void syncFocusToModel() = 0;

    // Runs a gesture into the models. A failure that the control lets reach its
    // caller (a key event, a click) cannot travel through Qt's event loop: it is shown
    // as a critical message with the failure's own description, as the platform shows
    // a run-time error nobody handled, and the widget stays usable.
    virtual void runGesture(const std::function<void()>& gesture) = 0;

    // Runs mirror once the gestures and host calls under way have ended, or at once
    // when none is; one mirror per binding however often it is asked. For a widget
    // whose model passes through states nobody should see on the way (a scroll bar's
    // range emptied and filled again): Qt repaints it on every change. Messages and
    // host events let the put-off mirrors catch up first.
    virtual void mirrorLater(QObject* binding, std::function<void()> mirror) = 0;

    // The pixels in the host widget of a rectangle in the control's twips that lies on
    // the grid, laid on the grid's rows and columns (GridView::rowEdge, colEdge).
    virtual QRect onGridPixels(std::int32_t left, std::int32_t top, std::int32_t width,
                               std::int32_t height) const {
        return scale().toPixels(left, top, width, height);
    }

    // The wheel turned over a cell editor, which lies on the grid: the grid scrolls
    // as if the wheel were over it.
    virtual void wheelOverGrid(const QWheelEvent& event) = 0;
};

// The key stroke of a Qt key event, sent to the control's keyboard routing
// (Generic_SP_Control::UserKeyStroke) as one gesture.
void SendKeyStroke(BindingHost& host, const QKeyEvent& event);

}  // namespace tabulon
