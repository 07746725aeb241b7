// UnitDropBox: the model of a number field beside a drop-down of units. The control
// fills the list (each unit with its own limits and format), selects the unit named
// in a cell, reads the selection back and asks whether the number lies within the
// selected unit's limits. Labels come from the registrar, in its current system.
//
// Decisions:
// - The number part is at least kMinimumNumberWidth (200 twips) wide: smaller widths
//   are raised to it. The unit part takes any width; a negative one becomes 0.
// - Code 0 (no conversion) and a code the list already holds are refused like an
//   unknown code: the code identifies the unit (SelectedUnitIndex returns it).
// - Selecting by text looks at the labels of the registrar's system first and then at
//   those of the other system, so a cell written with the English label still resolves
//   in a Metric document. Where two units share a label, the first in list order wins.
// - With no unit selected, Check passes: there are no limits to apply, and passing
//   through an empty cell must not mark it invalid. A unit whose minimum is above its
//   maximum fails every check.
// - Replacing the registrar removes the units the new one does not know (and the
//   selection when it was one of them).
// - The user switching units keeps the quantity: when the unit picked and the unit it
//   replaces convert to the same Metric unit (built-in units through their factors
//   and offsets, custom units through the factor they were registered with), the
//   number is converted into the new unit and written in its format: 72.5 ton
//   switched to MBH becomes 870 MBH. Otherwise, or when the number field holds no
//   number, the text stays as it is and the switch relabels it. In the Metric system
//   the number is already in the Metric unit and stays. Selecting by code
//   (SelectUnitByText, SelectUnitCode) never converts.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "unitinput/unit_box_base.h"

namespace tabulon {

class UnitDropBox : public UnitBoxBase {
public:
    struct Unit {
        int code;
        double minimum;
        double maximum;
        std::string format;
    };

    static constexpr std::int32_t kMinimumNumberWidth = 200;

    explicit UnitDropBox(std::string name) : UnitBoxBase(std::move(name)) {}

    // Widths of the two parts in twips (rules above); each raises Geometry on change.
    std::int32_t NumberWidth() const { return numberWidth_; }
    void SetNumberWidth(std::int32_t width);
    std::int32_t UnitWidth() const { return unitWidth_; }
    void SetUnitWidth(std::int32_t width);

    // The units offered, in the order they were added.
    const std::vector<Unit>& Units() const { return units_; }
    // Their labels in the registrar's current system, for the drop-down.
    std::vector<std::string> UnitLabels() const;

    // Empties the list and the selection.
    void ClearUnits();
    // Appends a unit; limits default to 0 and 0 (no limits), the format to "". Code 0,
    // a code the registrar does not know, or one already listed throws
    // UnitRejectedFailure and leaves the list as it was.
    void AddUnit(int code) { AddUnit(code, 0, 0, std::string()); }
    void AddUnit(int code, std::string format) { AddUnit(code, 0, 0, std::move(format)); }
    void AddUnit(int code, double minimum, double maximum, std::string format);
    // Confirms the list; an empty list throws UnitRejectedFailure.
    void ListComplete() const;

    // Selects the unit whose label equals text exactly (rules above). A text no unit
    // carries throws UnitRejectedFailure and keeps the selection.
    void SelectUnitByText(const std::string& text);
    // Selects the listed unit with that code; -1 selects none. Any other code throws
    // UnitRejectedFailure and keeps the selection.
    void SelectUnitCode(int code);
    // Label of the selected unit in the current system; "" when none is selected.
    std::string SelectedUnitText() const;
    // The conversion code of the selected unit; -1 when none is selected.
    int SelectedUnitIndex() const;
    // The format held for the unit with code; "" when the list has no such unit.
    std::string FormatOf(int code) const;

    // True when the number lies within the selected unit's limits (English-units
    // rule), or when no unit is selected.
    bool Check() const { return Judge() == RangeVerdict::Within; }
    // The same check, saying which limit the number misses.
    RangeVerdict Judge() const;

    // --- user gestures
    // Picks the unit with that label from the drop-down, converting the number when
    // the switch keeps the quantity (rules above); false, with nothing changed, when
    // no unit carries it or the box is hidden or disabled.
    bool UserPickUnit(const std::string& label);

private:
    void DropUnknownUnits() override;
    // By the selected unit's limits in that unit; with none selected there are none.
    bool NegativesAllowed() const override;
    // Position of the unit whose label is text; -1 when none.
    int FindByLabel(const std::string& text) const;
    int FindByCode(int code) const;
    void Select(int position);
    // Converts the number from the selected unit into to's (rules above).
    void KeepQuantity(const Unit& to);

    std::int32_t numberWidth_ = kMinimumNumberWidth;
    std::int32_t unitWidth_ = 0;
    std::vector<Unit> units_;
    int selected_ = -1;  // position in units_
};

}  // namespace tabulon
