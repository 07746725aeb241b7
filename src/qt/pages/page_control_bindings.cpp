#include "qt/pages/page_control_bindings.h"

#include <QEvent>
#include <QStringList>

#include "qt/bindings/combo_box_binding.h"
#include "qt/qt_text.h"

namespace tabulon {

// --- captions

PageCaptionBinding::PageCaptionBinding(PageBindingHost& bindingHost, CaptionComponent& component,
                                       Kind kind, QWidget* parent)
    : PageBinding(bindingHost, component, MakeCaptionWidget(kind, parent)), component_(component) {}

QGroupBox* PageCaptionBinding::groupBox() const {
    return qobject_cast<QGroupBox*>(widget());
}

QLabel* PageCaptionBinding::label() const {
    return qobject_cast<QLabel*>(widget());
}

void PageCaptionBinding::applyState(const ChangeInfo& /*change*/) {
    ShowCaption(*widget(), component_.caption());
}

// --- check boxes

PageCheckBinding::PageCheckBinding(PageBindingHost& bindingHost, CheckBox& check, QWidget* parent)
    : PageBinding(bindingHost, check, new QCheckBox(parent)),
      check_(check),
      checkBox_(static_cast<QCheckBox*>(widget())) {
    checkBox_->setText(ToQString(check.caption()));
    connect(checkBox_, &QCheckBox::clicked, this, [this] {
        if (mirroring()) return;
        host().runGesture([this] { check_.userClick(); });
        applyState(ChangeInfo{Change::Content});
    });
}

void PageCheckBinding::applyState(const ChangeInfo& /*change*/) {
    const Mirroring mirroring(*this);
    checkBox_->setChecked(check_.checked());
}

// --- lists

PageComboBinding::PageComboBinding(PageBindingHost& bindingHost, ComboBox& combo, QWidget* parent)
    : PageBinding(bindingHost, combo, new QComboBox(parent)),
      combo_(combo),
      comboBox_(static_cast<QComboBox*>(widget())) {
    comboBox_->setEditable(false);
    comboBox_->installEventFilter(this);
    connect(comboBox_, &QComboBox::activated, this, [this](int index) {
        if (mirroring()) return;
        host().runGesture([this, index] { combo_.userPickIndex(index); });
        applyState(ChangeInfo{Change::Content});
    });
}

void PageComboBinding::applyState(const ChangeInfo& /*change*/) {
    const Mirroring mirroring(*this);
    QStringList items;
    for (const std::string& item : combo_.items())
        items.append(ToQString(item));
    MirrorComboBox(*comboBox_, items, combo_.listIndex(), ToQString(combo_.text()));
}

bool PageComboBinding::eventFilter(QObject* watched, QEvent* event) {
    return watched == comboBox_ && event->type() == QEvent::Wheel;
}

}  // namespace tabulon
