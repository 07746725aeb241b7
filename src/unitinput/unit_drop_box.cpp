#include "unitinput/unit_drop_box.h"

#include <algorithm>

#include "support/failure.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "unitinput/unit_errors.h"

namespace tabulon {

void UnitDropBox::SetNumberWidth(std::int32_t width) {
    width = std::max(width, kMinimumNumberWidth);
    if (width == numberWidth_) return;
    numberWidth_ = width;
    Notify(Change::Geometry);
}

void UnitDropBox::SetUnitWidth(std::int32_t width) {
    width = std::max(width, std::int32_t{0});
    if (width == unitWidth_) return;
    unitWidth_ = width;
    Notify(Change::Geometry);
}

std::vector<std::string> UnitDropBox::UnitLabels() const {
    std::vector<std::string> labels;
    labels.reserve(units_.size());
    for (const Unit& unit : units_)
        labels.push_back(LabelOf(unit.code));
    return labels;
}

void UnitDropBox::ClearUnits() {
    if (units_.empty() && selected_ == -1) return;
    units_.clear();
    selected_ = -1;
    Notify(Change::Content);
}

void UnitDropBox::AddUnit(int code, double minimum, double maximum, std::string format) {
    if (code == 0 || !Accepts(code) || FindByCode(code) >= 0) {
        throw UnitRejectedFailure("Unit code " + IntegerToText(code) + " cannot be added");
    }
    units_.push_back({code, minimum, maximum, std::move(format)});
    Notify(Change::Content);
}

void UnitDropBox::ListComplete() const {
    if (units_.empty()) throw UnitRejectedFailure("The unit list is empty");
}

int UnitDropBox::FindByCode(int code) const {
    for (std::size_t i = 0; i < units_.size(); ++i) {
        if (units_[i].code == code) return static_cast<int>(i);
    }
    return -1;
}

int UnitDropBox::FindByLabel(const std::string& text) const {
    for (const bool currentSystem : {true, false}) {
        for (std::size_t i = 0; i < units_.size(); ++i) {
            if (LabelInSystem(units_[i].code, currentSystem) == text) return static_cast<int>(i);
        }
    }
    return -1;
}

void UnitDropBox::Select(int position) {
    if (position == selected_) return;
    selected_ = position;
    Notify(Change::Content);
}

void UnitDropBox::SelectUnitByText(const std::string& text) {
    const int position = FindByLabel(text);
    if (position < 0) throw UnitRejectedFailure("The unit \"" + text + "\" is not offered");
    Select(position);
}

void UnitDropBox::SelectUnitCode(int code) {
    const int position = code == -1 ? -1 : FindByCode(code);
    if (code != -1 && position < 0) {
        throw UnitRejectedFailure("Unit code " + IntegerToText(code) + " is not offered");
    }
    Select(position);
}

bool UnitDropBox::UserPickUnit(const std::string& label) {
    if (!acceptsInput()) return false;
    const int position = FindByLabel(label);
    if (position < 0) return false;
    if (selected_ >= 0 && position != selected_ && !MetricSystem()) {
        KeepQuantity(units_[static_cast<std::size_t>(position)]);
    }
    Select(position);
    return true;
}

void UnitDropBox::KeepQuantity(const Unit& to) {
    if (NumericPrefixLength(NumberText()) == 0) return;
    double number = 0;
    try {
        number = Number();
    } catch (const OverflowFailure&) {
        return;
    }
    const std::optional<double> converted = SameQuantityIn(number, SelectedUnitIndex(), to.code);
    if (converted) SetNumberText(FormatNumber(*converted, to.format));
}

std::string UnitDropBox::SelectedUnitText() const {
    return selected_ < 0 ? std::string()
                         : LabelOf(units_[static_cast<std::size_t>(selected_)].code);
}

int UnitDropBox::SelectedUnitIndex() const {
    return selected_ < 0 ? -1 : units_[static_cast<std::size_t>(selected_)].code;
}

std::string UnitDropBox::FormatOf(int code) const {
    const int position = FindByCode(code);
    return position < 0 ? std::string() : units_[static_cast<std::size_t>(position)].format;
}

RangeVerdict UnitDropBox::Judge() const {
    if (selected_ < 0) return RangeVerdict::Within;
    const Unit& unit = units_[static_cast<std::size_t>(selected_)];
    return JudgeLimits(Number(), unit.code, unit.minimum, unit.maximum);
}

void UnitDropBox::DropUnknownUnits() {
    const int selectedCode = SelectedUnitIndex();
    std::erase_if(units_, [this](const Unit& unit) { return !Accepts(unit.code); });
    selected_ = FindByCode(selectedCode);
}

bool UnitDropBox::NegativesAllowed() const {
    if (selected_ < 0) return true;
    const Unit& unit = units_[static_cast<std::size_t>(selected_)];
    return MinimumBelowZero(unit.minimum, unit.maximum, unit.code);
}

}  // namespace tabulon
