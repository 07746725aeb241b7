#include "unitinput/unit_box_base.h"

#include <exception>
#include <string_view>

#include "platform/key_codes.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "unitinput/unit_catalogue.h"

namespace tabulon {

namespace {

using keys::kBackspace;
using keys::kDelete;
constexpr int kLetterA = 'A';

struct CaretKey {
    int keyCode;
    EditLine::Move move;
};

constexpr CaretKey kCaretKeys[] = {
    {keys::kLeft, EditLine::Move::Left},
    {keys::kRight, EditLine::Move::Right},
    {keys::kHome, EditLine::Move::Home},
    {keys::kEnd, EditLine::Move::End},
};

bool Holds(std::string_view text, std::string_view characters) {
    return text.find_first_of(characters) != std::string_view::npos;
}

bool IsExponent(char c) {
    return c == 'e' || c == 'E';
}

}  // namespace

void UnitBoxBase::SetRegistrar(std::shared_ptr<UnitRegistrar> registrar) {
    registrar_ = std::move(registrar);
    DropUnknownUnits();
    Notify(Change::Content);
}

void UnitBoxBase::SetNumberText(std::string text) {
    if (text == field_.text()) return;
    EditLine edited = field_;
    edited.setText(std::move(text));
    Apply(edited);
}

void UnitBoxBase::SetSelection(int start, int length) {
    EditLine edited = field_;
    edited.select(start, start + length);
    Apply(edited);
}

double UnitBoxBase::Number() const {
    return ReadNumber(field_.text());
}

void UnitBoxBase::Apply(const EditLine& edited) {
    if (edited == field_) return;
    const bool textChanged = edited.text() != field_.text();
    field_ = edited;
    if (textChanged) NumberTextReplaced();
    Notify(textChanged ? Change::Content : Change::Selection);
}

bool UnitBoxBase::Fits(char c, const EditLine& field) const {
    const std::string before = field.beforeSelection();
    const std::string after = field.afterSelection();
    const std::string rest = before + after;
    if (c >= '0' && c <= '9') return true;
    switch (c) {
        case '.':
            return !Holds(rest, ".") && !Holds(before, "eE");
        case 'e':
        case 'E':
            return !Holds(rest, "eE") && Holds(before, "0123456789") && !Holds(after, ".");
        case '+':
        case '-':
            if (!after.empty() && (after.front() == '+' || after.front() == '-')) return false;
            if (!before.empty() && IsExponent(before.back())) return true;
            return c == '-' && before.empty() && NegativesAllowed();
        default:
            return false;
    }
}

void UnitBoxBase::UserSetText(std::string text) {
    if (acceptsInput()) SetNumberText(std::move(text));
}

bool UnitBoxBase::Take(char c, EditLine& field) const {
    if (!Fits(c, field)) return false;
    EditLine taken = field;
    taken.replaceSelection(std::string(1, c));
    try {
        (void)ReadNumber(taken.text());
    } catch (const OverflowFailure&) {
        return false;  // an exponent too large for any number
    }
    field = taken;
    return true;
}

void UnitBoxBase::UserKeyPress(int keyAscii) {
    if (!acceptsInput()) return;
    EditLine edited = field_;
    if (keyAscii == kBackspace) {
        edited.deleteBackward();
    } else if (keyAscii >= 32 && keyAscii <= 126) {
        Take(static_cast<char>(keyAscii), edited);
    }
    Apply(edited);
}

void UnitBoxBase::UserKeyDown(int keyCode, int shift) {
    if (!acceptsInput()) return;
    EditLine edited = field_;
    for (const CaretKey& key : kCaretKeys) {
        // Plain, the key moves the caret; with Shift alone it selects.
        if (key.keyCode == keyCode && (shift == 0 || shift == kShiftBit)) {
            edited.move(key.move, shift == kShiftBit);
        }
    }
    if (keyCode == kDelete && shift == 0) edited.deleteForward();
    if (keyCode == kLetterA && shift == kCtrlBit) edited.selectAll();
    Apply(edited);
}

void UnitBoxBase::UserPaste(const std::string& text) {
    if (!acceptsInput()) return;
    EditLine edited = field_;
    for (const char c : text) {
        if (c == '\r' || c == '\n') break;
        Take(c, edited);
    }
    // A paste of which nothing fits leaves the selection as it was.
    Apply(edited);
}

void UnitBoxBase::UserSelect(int anchor, int caret) {
    if (!acceptsInput()) return;
    EditLine edited = field_;
    edited.select(anchor, caret);
    Apply(edited);
}

bool UnitBoxBase::MinimumBelowZero(double minimum, double maximum, int code) const {
    if (minimum == 0 && maximum == 0) return true;
    if (!MetricSystem()) return minimum < 0;
    try {
        return registrar_->Convert(minimum, code, UnitRegistrar::kToMetric) < 0;
    } catch (const std::exception&) {
        return minimum < 0;
    }
}

bool UnitBoxBase::Accepts(int code) const {
    return registrar_ ? registrar_->Knows(code) : IsBuiltInCode(code);
}

bool UnitBoxBase::MetricSystem() const {
    return registrar_ && registrar_->system() == UnitRegistrar::kMetric;
}

std::string UnitBoxBase::LabelInSystem(int code, bool currentSystem) const {
    if (!Accepts(code)) return {};
    const bool metric = MetricSystem() == currentSystem;
    const int direction = metric ? UnitRegistrar::kToMetric : UnitRegistrar::kToEnglish;
    if (registrar_) return registrar_->UnitName(code, direction);
    return UnitRegistrar().UnitName(code, direction);
}

std::string UnitBoxBase::LabelOf(int code) const {
    return LabelInSystem(code, true);
}

std::optional<double> UnitBoxBase::SameQuantityIn(double number, int from, int to) const {
    if (!Accepts(from) || !Accepts(to)) return std::nullopt;
    const UnitRegistrar builtIn;
    const UnitRegistrar& registrar = registrar_ ? *registrar_ : builtIn;
    const std::string metric = registrar.UnitName(from, UnitRegistrar::kToMetric);
    if (metric.empty() || metric != registrar.UnitName(to, UnitRegistrar::kToMetric)) {
        return std::nullopt;
    }
    if (MetricSystem()) return number;
    try {
        const double common = registrar.Convert(number, from, UnitRegistrar::kToMetric);
        return registrar.Convert(common, to, UnitRegistrar::kToEnglish);
    } catch (const OverflowFailure&) {
        return std::nullopt;
    }
}

RangeVerdict JudgeRange(double english, double minimum, double maximum) {
    if (minimum == 0 && maximum == 0) return RangeVerdict::Within;
    if (minimum > maximum) return RangeVerdict::NoValueFits;
    // Written so that a number that compares with nothing (NaN) fails.
    if (!(minimum <= english)) return RangeVerdict::BelowMinimum;
    if (!(english <= maximum)) return RangeVerdict::AboveMaximum;
    return RangeVerdict::Within;
}

RangeVerdict UnitBoxBase::JudgeLimits(double number, int code, double minimum,
                                      double maximum) const {
    if (minimum == 0 && maximum == 0) return RangeVerdict::Within;
    const double english =
        MetricSystem() ? registrar_->Convert(number, code, UnitRegistrar::kToEnglish) : number;
    return JudgeRange(english, minimum, maximum);
}

}  // namespace tabulon
