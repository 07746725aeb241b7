// UnitBoxBinding: what the two unit editors' bindings share — a container widget
// at the component's place with the number field (a QLineEdit) in it, and the unit
// part each subclass adds beside it.
//
// The number field shows the model's number text with the caret at its end: the
// model appends typed characters and Backspace removes the last one, so the field
// has no caret of its own to move. Every key goes to the control's keyboard routing.
// Paste replaces the whole number text with the clipboard's first line (the model's
// UserSetText). The context menu and drag and drop are off.
#pragma once

#include <QLineEdit>
#include <QWidget>

#include "qt/bindings/component_binding.h"
#include "unitinput/unit_box_base.h"

namespace tabulon {

class UnitBoxBinding : public ComponentBinding {
    Q_OBJECT

public:
    UnitBoxBinding(BindingHost& host, UnitBoxBase& box, QWidget* parent);

    QLineEdit* numberEdit() const { return numberEdit_; }
    QWidget* focusTarget() const override { return numberEdit_; }

protected:
    void applyGeometry() override;
    void applyState(const ChangeInfo& change) override;
    bool keyPress(QWidget* part, QKeyEvent* event) override;

    // Places the number field and the unit part inside the container (pixels).
    virtual void layoutParts(const QRect& area) = 0;
    // Mirrors the unit part.
    virtual void mirrorUnits() = 0;

private:
    void mirrorNumber();

    UnitBoxBase& box_;
    QLineEdit* numberEdit_;
};

}  // namespace tabulon
