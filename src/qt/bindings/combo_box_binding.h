// ComboBoxBinding: a ComboBox model (the pick-list editor cboComboBoxControl, the
// filter combo cboFilter) as a non-editable QComboBox.
//
// The list and the chosen item are the model's. A text that is no item of the list
// shows as the combo's placeholder, with no item chosen. Choosing an item in the
// drop-down, or with the arrow keys after the control has previewed them, is the
// model's userPickIndex; the model's answer is mirrored back, so a pick the model
// refuses leaves the combo as it was.
//
// Decision: the mouse wheel does not change the chosen item (a pick raises the
// control's Click handlers; a wheel passing over the combo must not).
#pragma once

#include <QComboBox>

#include "platform/combo_box.h"
#include "qt/bindings/component_binding.h"

namespace tabulon {

class ComboBoxBinding : public ComponentBinding {
    Q_OBJECT

public:
    ComboBoxBinding(BindingHost& host, ComboBox& combo, QWidget* parent);

    QComboBox* comboBox() const { return comboBox_; }

protected:
    void applyState(const ChangeInfo& change) override;
    bool keyPress(QWidget* part, QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void mirror();

    ComboBox& combo_;
    QComboBox* comboBox_;
};

// Qt keys a QComboBox handles itself (moving through the list, opening it).
bool ComboBoxKey(const QKeyEvent& event);

// Mirrors items and a chosen index (-1: none, placeholder shows placeholder) into a
// QComboBox, rebuilding the list only when it differs.
void MirrorComboBox(QComboBox& combo, const QStringList& items, int index,
                    const QString& placeholder);

}  // namespace tabulon
