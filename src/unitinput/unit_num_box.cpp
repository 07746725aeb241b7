#include "unitinput/unit_num_box.h"

#include <cmath>

#include "support/number_format.h"
#include "support/numeric.h"
#include "unitinput/unit_errors.h"

namespace tabulon {

void UnitNumBox::SetUnitCode(int code) {
    if (!Accepts(code)) {
        throw UnitRejectedFailure("Unknown unit code " + IntegerToText(code));
    }
    if (code == unitCode_) return;
    unitCode_ = code;
    Notify(Change::Content);
}

void UnitNumBox::DropUnknownUnits() {
    if (!Accepts(unitCode_)) unitCode_ = 0;
}

void UnitNumBox::SetMinimum(double minimum) {
    if (minimum == minimum_) return;
    minimum_ = minimum;
    Notify(Change::Content);
}

void UnitNumBox::SetMaximum(double maximum) {
    if (maximum == maximum_) return;
    maximum_ = maximum;
    Notify(Change::Content);
}

void UnitNumBox::ApplyLimits() {
    if (!std::isfinite(minimum_) || !std::isfinite(maximum_)) {
        throw UnitRejectedFailure("Unit limits must be finite");
    }
    if (minimum_ > maximum_) throw UnitRejectedFailure("Unit minimum is above its maximum");
    if (appliedMinimum_ == minimum_ && appliedMaximum_ == maximum_) return;
    appliedMinimum_ = minimum_;
    appliedMaximum_ = maximum_;
    Notify(Change::Content);
}

void UnitNumBox::SetNumber(double value) {
    SetNumberText(FormatNumber(value, hasFocus() ? editFormat_ : displayFormat_));
    renderedValue_ = value;
    rendered_ = true;
}

void UnitNumBox::FormatChanged() {
    if (rendered_) SetNumber(renderedValue_);
    Notify(Change::Content);
}

void UnitNumBox::SetDisplayFormat(std::string format) {
    displayFormat_ = std::move(format);
    FormatChanged();
}

void UnitNumBox::SetEditFormat(std::string format) {
    editFormat_ = std::move(format);
    FormatChanged();
}

void UnitNumBox::SetFormat(const std::string& format) {
    displayFormat_ = format;
    editFormat_ = format;
    FormatChanged();
}

RangeVerdict UnitNumBox::Judge() const {
    return JudgeLimits(Number(), unitCode_, appliedMinimum_, appliedMaximum_);
}

}  // namespace tabulon
