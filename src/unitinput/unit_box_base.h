// UnitBoxBase: what UnitNumBox and UnitDropBox have in common — the conversion
// object (registrar) they share with the control, the number text the user types,
// and the range rule both apply.
//
// Range rule (decided once, for both boxes): limits are stated in English units, as
// the document stores values. When the registrar's system is Metric, the box converts
// its number back to English before comparing. Limits of 0 and 0 mean "no limits".
//
// Without a registrar a box knows the built-in codes only and works in English.
// The registrar does not announce a change of its system: the control sets the system
// before it hands the registrar to a box, and views re-read labels on any change.
#pragma once

#include <memory>
#include <string>

#include "platform/component.h"
#include "unitinput/unit_registrar.h"

namespace tabulon {

class UnitBoxBase : public Component {
public:
    explicit UnitBoxBase(std::string name) : Component(std::move(name)) {}

    // The conversion object; may be null. Replacing it drops whatever unit the new
    // registrar does not know (see the boxes) and raises Content.
    const std::shared_ptr<UnitRegistrar>& Registrar() const { return registrar_; }
    void SetRegistrar(std::shared_ptr<UnitRegistrar> registrar);

    // The text in the number field, as typed or set; raises Content when it changes.
    const std::string& NumberText() const { return numberText_; }
    void SetNumberText(std::string text);

    // The numeric value of the number text (leading-number rule; no number reads 0).
    // A magnitude beyond the double range throws OverflowFailure.
    double Number() const;

    // --- user gestures (ignored while the box is hidden or disabled)
    // Replaces the whole number text at once (typing it, pasting it).
    void UserSetText(std::string text);
    // One key: 8 (Backspace) removes the last character, printable ASCII (32..126) is
    // appended, any other code is ignored.
    void UserKeyPress(int keyAscii);

protected:
    // True when the box can use code: 0, a built-in code, or a code the registrar gave.
    bool Accepts(int code) const;
    // The label of code in the registrar's system ("" for code 0 and unknown codes).
    std::string LabelOf(int code) const;
    // The label of code in the registrar's system (currentSystem) or in the other one;
    // "" for code 0 and unknown codes.
    std::string LabelInSystem(int code, bool currentSystem) const;
    // The range rule above, for number shown in code's unit.
    bool WithinLimits(double number, int code, double minimum, double maximum) const;
    // Runs after the registrar changed, before Content is raised.
    virtual void DropUnknownUnits() = 0;
    // Runs whenever the number text is replaced (by code or by the user).
    virtual void NumberTextReplaced() {}

private:
    bool MetricSystem() const;

    std::shared_ptr<UnitRegistrar> registrar_;
    std::string numberText_;
};

}  // namespace tabulon
