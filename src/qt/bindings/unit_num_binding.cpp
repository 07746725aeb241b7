#include "qt/bindings/unit_num_binding.h"

#include <algorithm>

#include "qt/qt_text.h"

namespace tabulon {

namespace {

constexpr int kLabelPadding = 3;

}  // namespace

UnitNumBinding::UnitNumBinding(BindingHost& bindingHost, UnitNumBox& box, QWidget* parent)
    : UnitBoxBinding(bindingHost, box, parent), box_(box), unitLabel_(new QLabel(widget())) {
    unitLabel_->setAlignment(Qt::AlignCenter);
    unitLabel_->setAutoFillBackground(true);
}

void UnitNumBinding::mirrorUnits() {
    const QString label = ToQString(box_.UnitLabel());
    if (unitLabel_->text() != label) unitLabel_->setText(label);
}

void UnitNumBinding::layoutParts(const QRect& area) {
    const QString label = unitLabel_->text();
    const int wanted = label.isEmpty()
                           ? 0
                           : unitLabel_->fontMetrics().horizontalAdvance(label) + 2 * kLabelPadding;
    const int labelWidth = std::min(wanted, area.width() / 2);
    numberEdit()->setGeometry(area.left(), area.top(), area.width() - labelWidth, area.height());
    unitLabel_->setGeometry(area.right() + 1 - labelWidth, area.top(), labelWidth, area.height());
    unitLabel_->setVisible(labelWidth > 0);
}

}  // namespace tabulon
