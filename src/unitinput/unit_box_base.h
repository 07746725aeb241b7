// UnitBoxBase: what UnitNumBox and UnitDropBox have in common — the conversion
// object (registrar) they share with the control, the number text the user types,
// and the range rule both apply.
//
// Range rule (decided once, for both boxes): limits are stated in English units, as
// the document stores values. When the registrar's system is Metric, the box converts
// its number back to English before comparing. Limits of 0 and 0 mean "no limits".
// A check says why a number fails (RangeVerdict), so the control can tell the user.
//
// Without a registrar a box knows the built-in codes only and works in English.
// The registrar does not announce a change of its system: the control sets the system
// before it hands the registrar to a box, and views re-read labels on any change.
//
// The number field is a single-line edit with a caret and a selection (EditLine):
// typing replaces the selection, Backspace and Delete remove it or one character, the
// caret keys move or (with Shift) select, Ctrl+A selects everything, and a paste
// replaces the selection. Text set by code leaves the caret at its end.
//
// Number filter (decision): what the user types or pastes must be able to stand in a
// number, so a character is taken only where it fits with the text around it:
// - digits anywhere;
// - one decimal point ".", in the part before any exponent;
// - "-" first in the field, only where negative numbers are allowed: the minimum in
//   the unit shown is below 0, or there are no limits (0 and 0);
// - an exponent "e" or "E" (formats may write one, so it can be typed too): one, after
//   a digit and after the decimal point, followed only by a sign "+" or "-" right
//   after it and digits, as long as the number stays within the double range (the
//   digit that would make 1e308 into 1e3080 is refused).
// Anything else is refused: no blanks, no grouping commas, no letters, no "+" in
// front. A paste is taken character by character as if typed at the caret, so the
// refused characters of "1,234.5 ft" leave "1234.5"; a paste of which nothing fits
// changes nothing. Text set by code (SetNumberText, UserSetText) is not filtered.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/component.h"
#include "platform/edit_line.h"
#include "unitinput/unit_registrar.h"

namespace tabulon {

// The answer of a range check. NoValueFits: the minimum lies above the maximum, so
// every number fails.
enum class RangeVerdict { Within, BelowMinimum, AboveMaximum, NoValueFits };

// The range rule on a number already in English units.
RangeVerdict JudgeRange(double english, double minimum, double maximum);

class UnitBoxBase : public Component {
public:
    explicit UnitBoxBase(std::string name) : Component(std::move(name)) {}

    // The conversion object; may be null. Replacing it drops whatever unit the new
    // registrar does not know (see the boxes) and raises Content.
    const std::shared_ptr<UnitRegistrar>& Registrar() const { return registrar_; }
    void SetRegistrar(std::shared_ptr<UnitRegistrar> registrar);

    // The text in the number field, as typed or set; raises Content when it changes
    // (the caret then stands at the end).
    const std::string& NumberText() const { return field_.text(); }
    void SetNumberText(std::string text);

    // The selection in the number field, in characters; the caret is at its end after
    // SetSelection. Raises Selection when it changes.
    int SelStart() const { return field_.selStart(); }
    int SelLength() const { return field_.selLength(); }
    std::string SelText() const { return field_.selText(); }
    int Anchor() const { return field_.anchor(); }  // where a selection started
    int Caret() const { return field_.caret(); }
    void SetSelection(int start, int length);
    void SelectAll() { SetSelection(0, field_.length()); }

    // The numeric value of the number text (leading-number rule; no number reads 0).
    // A magnitude beyond the double range throws OverflowFailure.
    double Number() const;

    // --- user gestures (ignored while the box is hidden or disabled)
    // Replaces the whole number text at once, unfiltered (a host's or a script's
    // entry of a complete value).
    void UserSetText(std::string text);
    // One key with a character: 8 (Backspace) deletes the selection or the character
    // before the caret; a character the number filter takes replaces the selection;
    // any other code is ignored.
    void UserKeyPress(int keyAscii);
    // A key going down, with the platform's key code and shift state (1 Shift, 2 Ctrl,
    // 4 Alt): Left 37, Right 39, Home 36 and End 35 move the caret (with Shift alone
    // they select), Delete 46 deletes the selection or the character after the caret,
    // Ctrl+A selects the whole number. Other keys do nothing here.
    void UserKeyDown(int keyCode, int shift);
    // Pastes the first line of text at the selection, filtered (see above).
    void UserPaste(const std::string& text);
    // The user selects from anchor to caret with the mouse (characters, clamped).
    void UserSelect(int anchor, int caret);

protected:
    // True when the box can use code: 0, a built-in code, or a code the registrar gave.
    bool Accepts(int code) const;
    // The label of code in the registrar's system ("" for code 0 and unknown codes).
    std::string LabelOf(int code) const;
    // The label of code in the registrar's system (currentSystem) or in the other one;
    // "" for code 0 and unknown codes.
    std::string LabelInSystem(int code, bool currentSystem) const;
    // number, shown in from's unit, expressed in to's unit when the two units convert
    // to the same Metric unit (the same Metric label); nullopt when they do not, or
    // when the result is not finite. In the Metric system both show that Metric unit,
    // so the number is the same.
    std::optional<double> SameQuantityIn(double number, int from, int to) const;
    // The range rule above, for number shown in code's unit.
    RangeVerdict JudgeLimits(double number, int code, double minimum, double maximum) const;
    // Runs after the registrar changed, before Content is raised.
    virtual void DropUnknownUnits() = 0;
    // Runs whenever the number text is replaced (by code or by the user).
    virtual void NumberTextReplaced() {}
    // Whether the user may type a minus sign in front of the number.
    virtual bool NegativesAllowed() const = 0;
    // The rule of NegativesAllowed for limits in English units, shown in code's unit.
    bool MinimumBelowZero(double minimum, double maximum, int code) const;

    // True when the registrar shows Metric units.
    bool MetricSystem() const;
    // Makes edited the field's state, with the notification its change calls for.
    void Apply(const EditLine& edited);
    // Whether the number filter takes c at the selection of field.
    bool Fits(char c, const EditLine& field) const;
    // Puts c in place of field's selection when the filter takes it and the number
    // stays within the double range; false, field unchanged, otherwise.
    bool Take(char c, EditLine& field) const;

private:
    std::shared_ptr<UnitRegistrar> registrar_;
    EditLine field_;
};

}  // namespace tabulon
