// ScrollBarBinding: one of the control's own scroll bars (hscGrid, vscGrid) as a
// container at the component's place holding a QScrollBar at the inner platform
// bar's place, with the inner bar's range, value and enabled state.
//
// Gestures, into the inner bar: an arrow click -> userStep(+1 / -1); a click in the
// track or a jump to either end -> userSetValue with the value Qt proposes; dragging
// the thumb (and the wheel over the bar) -> userDragTo the proposed value, one change
// per unit the thumb passes, so the grid follows the thumb. Qt's proposal is replaced
// by the model's answer before Qt applies it, so the bar shows the value the control
// computed. The bar taking the focus with a mouse press gives the component the
// model's focus first (the control then commits the open editor), before the press
// acts.
//
// Decisions: single and page steps are 1 (the bar's range counts columns or rows, not
// pixels); a bar whose minimum exceeds its maximum is shown inverted. Place, range,
// value and enabled state are mirrored once the gesture or host call that changed them
// ends (BindingHost::mirrorLater).
#pragma once

#include <QScrollBar>
#include <QWidget>

#include "platform/component.h"
#include "platform/scroll_bar.h"
#include "qt/bindings/component_binding.h"

namespace tabulon {

class ScrollBarBinding : public ComponentBinding {
    Q_OBJECT

public:
    // owner: the control's scroll-bar component; bar: its inner platform bar.
    ScrollBarBinding(BindingHost& host, Component& owner, ScrollBar& bar,
                     Qt::Orientation orientation, QWidget* parent);

    QScrollBar* scrollBar() const { return scrollBar_; }
    QWidget* focusTarget() const override { return scrollBar_; }

protected:
    void applyGeometry() override;
    void applyState(const ChangeInfo& change) override;

private:
    void mirrorSoon();
    void mirrorValue();
    void userAction(int action);

    ScrollBar& bar_;
    QScrollBar* scrollBar_;
};

}  // namespace tabulon
