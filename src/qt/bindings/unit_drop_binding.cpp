#include "qt/bindings/unit_drop_binding.h"

#include <QKeyEvent>
#include <algorithm>

#include "qt/bindings/combo_box_binding.h"
#include "qt/qt_text.h"

namespace tabulon {

UnitDropBinding::UnitDropBinding(BindingHost& bindingHost, UnitDropBox& box, QWidget* parent)
    : UnitBoxBinding(bindingHost, box, parent), box_(box), unitCombo_(new QComboBox(widget())) {
    unitCombo_->setEditable(false);
    unitCombo_->setFocusPolicy(Qt::ClickFocus);
    adopt(unitCombo_);
    connect(unitCombo_, &QComboBox::activated, this, [this](int index) {
        if (mirroring()) return;
        const std::string label = ToStdString(unitCombo_->itemText(index));
        host().runGesture([this, label] { box_.UserPickUnit(label); });
        mirrorUnits();
    });
}

void UnitDropBinding::mirrorUnits() {
    const Mirroring mirroring(*this);
    QStringList labels;
    for (const std::string& label : box_.UnitLabels())
        labels.append(ToQString(label));
    const QString selected = ToQString(box_.SelectedUnitText());
    const int index = selected.isEmpty() ? -1 : static_cast<int>(labels.indexOf(selected));
    MirrorComboBox(*unitCombo_, labels, index, QString());
}

void UnitDropBinding::layoutParts(const QRect& area) {
    const TwipsScale& scale = host().scale();
    const int numberWidth = std::min(scale.toPixelsX(box_.NumberWidth()), area.width());
    const int unitRight = scale.toPixelsX(box_.NumberWidth() + box_.UnitWidth());
    numberEdit()->setGeometry(area.left(), area.top(), numberWidth, area.height());
    unitCombo_->setGeometry(area.left() + numberWidth, area.top(),
                            std::max(unitRight - numberWidth, 0), area.height());
}

bool UnitDropBinding::keyPress(QWidget* part, QKeyEvent* event) {
    if (part != unitCombo_) return UnitBoxBinding::keyPress(part, event);
    SendKeyStroke(host(), *event);
    return !(ComboBoxKey(*event) && box_.hasFocus());
}

bool UnitDropBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == unitCombo_ && event->type() == QEvent::Wheel) {
        UnitBoxBinding::eventFilter(watched, event);  // the grid scrolls, the unit stays
        return true;
    }
    return UnitBoxBinding::eventFilter(watched, event);
}

}  // namespace tabulon
