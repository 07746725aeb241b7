// UnitNumBinding: the unit number editor (unitNumControl, a UnitNumBox) as its number
// field with the unit's label beside it, in the registrar's current system.
//
// Decision: the model gives the box one width; the label takes the width its text
// needs (at most half the box) at the right end and the number field the rest. With
// no unit (code 0) the number field takes the whole box.
#pragma once

#include <QLabel>

#include "qt/bindings/unit_box_binding.h"
#include "unitinput/unit_num_box.h"

namespace tabulon {

class UnitNumBinding : public UnitBoxBinding {
    Q_OBJECT

public:
    UnitNumBinding(BindingHost& host, UnitNumBox& box, QWidget* parent);

    QLabel* unitLabel() const { return unitLabel_; }

protected:
    void layoutParts(const QRect& area) override;
    void mirrorUnits() override;

private:
    UnitNumBox& box_;
    QLabel* unitLabel_;
};

}  // namespace tabulon
