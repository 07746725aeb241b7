// UnitBoxBinding: what the two unit editors' bindings share — a container widget
// at the component's place with the number field (a QLineEdit) in it, and the unit
// part each subclass adds beside it.
//
// The number field shows the model's number text, caret and selection. Every key goes
// to the control's keyboard routing, which edits the model's field (typing, Backspace,
// Delete, the caret keys, Ctrl+A); Qt never edits the field itself. The clipboard keys
// work on the model too: paste hands the clipboard's text to the model's filtered
// paste, cut copies the selection and deletes it, copy only reads. A caret placed or a
// selection made with the mouse goes to the model at once; what Qt does to the field's
// selection by itself as the focus comes and goes is put back from the model. The context menu,
// undo and drag and drop are off.
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
    bool eventFilter(QObject* watched, QEvent* event) override;

    // Places the number field and the unit part inside the container (pixels).
    virtual void layoutParts(const QRect& area) = 0;
    // Mirrors the unit part.
    virtual void mirrorUnits() = 0;

private:
    void mirrorNumber();
    // The field's caret and selection, placed with the mouse, into the model.
    void pushSelection();
    // Copy, cut and paste on the model's field; false for other keys.
    bool clipboardKey(const QKeyEvent& event);

    UnitBoxBase& box_;
    QLineEdit* numberEdit_;
    // The field is handling a mouse event: its caret and selection changes are the
    // user's. Qt's own changes (the selection dropped as the focus leaves) are not.
    bool pointing_ = false;
};

}  // namespace tabulon
