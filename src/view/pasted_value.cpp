#include "view/pasted_value.h"

#include <algorithm>
#include <vector>

#include "support/numeric.h"
#include "support/text.h"
#include "support/utf8.h"
#include "view/editor_placement.h"

namespace tabulon {

namespace {

PasteOutcome Refused(std::string reason) {
    return {false, std::move(reason)};
}

// value without a trailing unit label ("12 ft", "12ft", "12(ft)"); the label is
// returned in unit, empty when there is none.
std::string SplitUnit(const std::string& value, std::string& unit) {
    std::string text;
    for (const char c : Trim(value)) {
        if (c != ',') text += c;  // grouping
    }
    unit.clear();
    if (!text.empty() && text.back() == ')') {
        const std::size_t open = text.rfind('(');
        if (open != std::string::npos) {
            unit = Trim(text.substr(open + 1, text.size() - open - 2));
            return Trim(text.substr(0, open));
        }
    }
    const std::size_t length = NumericPrefixLength(text);
    if (length > 0 && length < text.size()) {
        unit = Trim(text.substr(length));
        return text.substr(0, length);
    }
    return text;
}

// The number part; nullopt when it is not wholly a number.
std::optional<std::string> NumberPart(const std::string& number) {
    if (number.empty() || NumericPrefixLength(number) != number.size()) return std::nullopt;
    return number;
}

// Types the number into the box's field over its whole text; refused when the field
// would hold another number.
PasteOutcome TypeNumber(UnitBoxBase& box, const std::string& number) {
    box.SelectAll();
    box.UserPaste(number);
    const std::string& held = box.NumberText();
    if (held.empty() || NumericPrefixLength(held) != held.size() ||
        ReadNumber(held) != ReadNumber(number)) {
        return Refused("the cell does not take this number");
    }
    return {true, {}};
}

PasteOutcome PutNumber(UnitBoxBase& box, const std::string& value, const std::string& unit,
                       const std::string& number, bool unitOffered) {
    if (Trim(value).empty()) return Refused("a number is required");
    if (!unit.empty() && !unitOffered) return Refused("unit \"" + unit + "\" is not offered here");
    const std::optional<std::string> digits = NumberPart(number);
    if (!digits) return Refused("not a number");
    return TypeNumber(box, *digits);
}

PasteOutcome PutText(TextBox& box, const std::string& value) {
    if (value.find_first_of("\r\n") != std::string::npos) {
        return Refused("a line break cannot stand in this cell");
    }
    box.setSelStart(0);
    box.setSelLength(static_cast<int>(CountUtf8(box.text())));
    box.userPaste(value);
    if (box.text() == value) return {true, {}};
    return {true, "cut to " + std::to_string(box.maxLength()) + " characters"};
}

}  // namespace

PasteOutcome PutIntoOpenEditor(ControlCore& core, const std::string& value) {
    Form& form = core.form;
    switch (CurrentRowInfo(core).ControlType) {
        case EditorKind::TextBox:
            return PutText(form.txtTextBoxControl, value);
        case EditorKind::ComboBox:
            if (form.cboComboBoxControl.userPick(value)) return {true, {}};
            return Refused("not in the list");
        case EditorKind::UnitNum: {
            UnitNumBox& box = form.unitNumControl;
            std::string unit;
            const std::string number = SplitUnit(value, unit);
            return PutNumber(box, value, unit, number, unit == box.UnitLabel());
        }
        case EditorKind::UnitDrop: {
            UnitDropBox& box = form.unitDropControl;
            std::string unit;
            const std::string number = SplitUnit(value, unit);
            // Labels of the document's system only: the number is read in that unit.
            const std::vector<std::string> labels = box.UnitLabels();
            const bool listed = std::find(labels.begin(), labels.end(), unit) != labels.end();
            const bool offered = unit.empty() || unit == box.SelectedUnitText() ||
                                 (listed && box.UserPickUnit(unit));
            return PutNumber(box, value, unit, number, offered);
        }
        case EditorKind::None:
            break;
    }
    return Refused("no editor");
}

}  // namespace tabulon
