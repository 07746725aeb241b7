// The bindings of a property page's caption, check box and list controls.
//
// - PageCaptionBinding: a frame as a QGroupBox titled with its caption (the controls
//   the frame holds are placed inside the group box), or a label as a plain-text
//   QLabel. Neither takes the focus.
// - PageCheckBinding: a check box as a QCheckBox. A click (mouse, or Space while it
//   has the focus) is the model's userClick; the check mark always shows the model's
//   state, also when the model ignores the click.
// - PageComboBinding: a drop-down list as a non-editable QComboBox. Choosing an item
//   (drop-down, or the arrow keys while it has the focus) is the model's
//   userPickIndex; a text that is no item of the list shows as the placeholder with
//   no item chosen.
//
// Decision: as on the control's filter list, the mouse wheel passing over a list does
// not change it (a pick raises the page's Click handlers and marks it changed).
#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>

#include "platform/caption_component.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "qt/caption_widget.h"
#include "qt/pages/page_binding.h"

namespace tabulon {

class PageCaptionBinding : public PageBinding {
    Q_OBJECT

public:
    using Kind = CaptionKind;

    PageCaptionBinding(PageBindingHost& host, CaptionComponent& component, Kind kind,
                       QWidget* parent);

    // The group box of a frame (null for a label) and the label of a label (null for
    // a frame).
    QGroupBox* groupBox() const;
    QLabel* label() const;

protected:
    void applyState(const ChangeInfo& change) override;

private:
    CaptionComponent& component_;
};

class PageCheckBinding : public PageBinding {
    Q_OBJECT

public:
    PageCheckBinding(PageBindingHost& host, CheckBox& check, QWidget* parent);

    QCheckBox* checkBox() const { return checkBox_; }

protected:
    void applyState(const ChangeInfo& change) override;

private:
    CheckBox& check_;
    QCheckBox* checkBox_;
};

class PageComboBinding : public PageBinding {
    Q_OBJECT

public:
    PageComboBinding(PageBindingHost& host, ComboBox& combo, QWidget* parent);

    QComboBox* comboBox() const { return comboBox_; }

protected:
    void applyState(const ChangeInfo& change) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    ComboBox& combo_;
    QComboBox* comboBox_;
};

}  // namespace tabulon
