// CaptionBinding: a frame (fraFilterView) as a QGroupBox titled with its caption, or
// a label (lblFilter) as a QLabel. Components placed inside a frame are bound to
// widgets inside its group box, at the model's frame-relative positions.
#pragma once

#include <QGroupBox>
#include <QLabel>

#include "platform/caption_component.h"
#include "qt/bindings/component_binding.h"
#include "qt/caption_widget.h"

namespace tabulon {

class CaptionBinding : public ComponentBinding {
    Q_OBJECT

public:
    using Kind = CaptionKind;

    CaptionBinding(BindingHost& host, CaptionComponent& component, Kind kind, QWidget* parent);

    Kind kind() const { return kind_; }
    // The group box of a frame (null for a label) and the label of a label (null for a
    // frame).
    QGroupBox* groupBox() const;
    QLabel* label() const;

protected:
    void applyState(const ChangeInfo& change) override;

private:
    CaptionComponent& component_;
    Kind kind_;
};

}  // namespace tabulon
