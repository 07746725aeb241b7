// UnitNumBox: the model of a number field with one fixed unit. The control gives it
// a unit code, limits and a format, sets the value, lets the user type, and asks
// whether the number lies within the limits (Check). The unit label shown beside the
// number follows the registrar's system.
//
// Decisions:
// - Limits take effect only through ApplyLimits; until then (and after limits of 0
//   and 0) every number passes Check. Limits are English values (UnitBoxBase).
// - Replacing the registrar keeps the unit code when the new registrar knows it and
//   resets it to 0 (no conversion) otherwise, so the code can always be converted.
// - A number set through SetValue/SetNumber is written with the edit format while the
//   box has the focus and with the display format otherwise. Changing a format
//   rewrites such a number from its value, until text is typed or set as text.
#pragma once

#include <string>

#include "unitinput/unit_box_base.h"

namespace tabulon {

class UnitNumBox : public UnitBoxBase {
public:
    explicit UnitNumBox(std::string name) : UnitBoxBase(std::move(name)) {}

    // The conversion code of the box's unit; starts 0. A code that is neither built in
    // nor registered in the box's registrar throws UnitRejectedFailure, unchanged.
    int UnitCode() const { return unitCode_; }
    void SetUnitCode(int code);

    // Label of the unit in the registrar's system; "" for code 0.
    std::string UnitLabel() const { return LabelOf(unitCode_); }

    // Limits as set; they take effect at ApplyLimits.
    double Minimum() const { return minimum_; }
    double Maximum() const { return maximum_; }
    void SetMinimum(double minimum);
    void SetMaximum(double maximum);
    // Makes the set limits the ones Check uses. Minimum above maximum, or a limit
    // that is not finite, throws UnitRejectedFailure and keeps the limits in effect.
    void ApplyLimits();
    double AppliedMinimum() const { return appliedMinimum_; }
    double AppliedMaximum() const { return appliedMaximum_; }

    // Writes value into the number text with the current format (see above); the two
    // names are the same operation. A value that is not finite throws OverflowFailure.
    void SetValue(double value) { SetNumber(value); }
    void SetNumber(double value);

    // Format codes as FormatNumber takes them; "" writes the number as plain text.
    const std::string& DisplayFormat() const { return displayFormat_; }
    const std::string& EditFormat() const { return editFormat_; }
    void SetDisplayFormat(std::string format);
    void SetEditFormat(std::string format);
    void SetFormat(const std::string& format);

    // True when the number lies within the applied limits (English-units rule).
    // Throws what the registrar's conversion throws (an unreadably large number).
    bool Check() const { return Judge() == RangeVerdict::Within; }
    // The same check, saying which limit the number misses.
    RangeVerdict Judge() const;

private:
    void DropUnknownUnits() override;
    void NumberTextReplaced() override { rendered_ = false; }
    // By the applied limits, in the box's unit.
    bool NegativesAllowed() const override {
        return MinimumBelowZero(appliedMinimum_, appliedMaximum_, unitCode_);
    }
    // After a format change: rewrites a number the box wrote itself, then notifies.
    void FormatChanged();

    int unitCode_ = 0;
    double minimum_ = 0, maximum_ = 0;
    double appliedMinimum_ = 0, appliedMaximum_ = 0;
    std::string displayFormat_;
    std::string editFormat_;
    double renderedValue_ = 0;  // the value SetNumber last wrote
    bool rendered_ = false;     // the number text is still what SetNumber wrote
};

}  // namespace tabulon
