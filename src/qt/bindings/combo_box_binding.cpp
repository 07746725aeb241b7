#include "qt/bindings/combo_box_binding.h"

#include <QKeyEvent>

#include "qt/qt_text.h"

namespace tabulon {

bool ComboBoxKey(const QKeyEvent& event) {
    switch (event.key()) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_F4:
        case Qt::Key_Space:
            return true;
        default:
            return false;
    }
}

void MirrorComboBox(QComboBox& combo, const QStringList& items, int index,
                    const QString& placeholder) {
    QStringList shown;
    for (int i = 0; i < combo.count(); ++i)
        shown.append(combo.itemText(i));
    if (shown != items) {
        combo.clear();
        combo.addItems(items);
    }
    combo.setPlaceholderText(index < 0 ? placeholder : QString());
    combo.setCurrentIndex(index);
}

ComboBoxBinding::ComboBoxBinding(BindingHost& bindingHost, ComboBox& combo, QWidget* parent)
    : ComponentBinding(bindingHost, combo, new QComboBox(parent)),
      combo_(combo),
      comboBox_(static_cast<QComboBox*>(widget())) {
    comboBox_->setEditable(false);
    comboBox_->setFocusPolicy(Qt::ClickFocus);
    connect(comboBox_, &QComboBox::activated, this, [this](int index) {
        if (mirroring()) return;
        host().runGesture([this, index] { combo_.userPickIndex(index); });
        mirror();
    });
}

void ComboBoxBinding::mirror() {
    const Mirroring mirroring(*this);
    QStringList items;
    for (const std::string& item : combo_.items())
        items.append(ToQString(item));
    MirrorComboBox(*comboBox_, items, combo_.listIndex(), ToQString(combo_.text()));
}

void ComboBoxBinding::applyState(const ChangeInfo& /*change*/) {
    mirror();
}

bool ComboBoxBinding::keyPress(QWidget* part, QKeyEvent* event) {
    SendKeyStroke(host(), *event);
    return !(part == comboBox_ && ComboBoxKey(*event) && combo_.hasFocus());
}

bool ComboBoxBinding::eventFilter(QObject* watched, QEvent* event) {
    // The wheel never changes the choice; over the grid it scrolls the grid.
    if (watched == comboBox_ && event->type() == QEvent::Wheel) {
        ComponentBinding::eventFilter(watched, event);
        return true;
    }
    return ComponentBinding::eventFilter(watched, event);
}

}  // namespace tabulon
