// UnitDropBinding: the unit drop-down editor (unitDropControl, a UnitDropBox) as its
// number field beside a QComboBox of the units' labels, each part as wide as the
// model says (NumberWidth, UnitWidth). Choosing a unit in the combo, or with the
// arrow keys after the control has previewed them, is the model's UserPickUnit; the
// model's answer is mirrored back. The wheel does not change the unit.
#pragma once

#include <QComboBox>

#include "qt/bindings/unit_box_binding.h"
#include "unitinput/unit_drop_box.h"

namespace tabulon {

class UnitDropBinding : public UnitBoxBinding {
    Q_OBJECT

public:
    UnitDropBinding(BindingHost& host, UnitDropBox& box, QWidget* parent);

    QComboBox* unitCombo() const { return unitCombo_; }

protected:
    void layoutParts(const QRect& area) override;
    void mirrorUnits() override;
    bool keyPress(QWidget* part, QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    UnitDropBox& box_;
    QComboBox* unitCombo_;
};

}  // namespace tabulon
