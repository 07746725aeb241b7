#include "unitinput/unit_box_base.h"

#include "platform/key_codes.h"
#include "support/numeric.h"
#include "unitinput/unit_catalogue.h"

namespace tabulon {

namespace {

using keys::kBackspace;

// Removes the last UTF-8 code point (continuation bytes are 10xxxxxx).
void RemoveLastCharacter(std::string& text) {
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.back());
        text.pop_back();
        if ((byte & 0xC0u) != 0x80u) return;
    }
}

}  // namespace

void UnitBoxBase::SetRegistrar(std::shared_ptr<UnitRegistrar> registrar) {
    registrar_ = std::move(registrar);
    DropUnknownUnits();
    Notify(Change::Content);
}

void UnitBoxBase::SetNumberText(std::string text) {
    if (text == numberText_) return;
    numberText_ = std::move(text);
    NumberTextReplaced();
    Notify(Change::Content);
}

double UnitBoxBase::Number() const {
    return ReadNumber(numberText_);
}

void UnitBoxBase::UserSetText(std::string text) {
    if (acceptsInput()) SetNumberText(std::move(text));
}

void UnitBoxBase::UserKeyPress(int keyAscii) {
    if (!acceptsInput()) return;
    std::string text = numberText_;
    if (keyAscii == kBackspace) {
        RemoveLastCharacter(text);
    } else if (keyAscii >= 32 && keyAscii <= 126) {
        text.push_back(static_cast<char>(keyAscii));
    }
    SetNumberText(std::move(text));
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

bool UnitBoxBase::WithinLimits(double number, int code, double minimum, double maximum) const {
    if (minimum == 0 && maximum == 0) return true;
    const double english =
        MetricSystem() ? registrar_->Convert(number, code, UnitRegistrar::kToEnglish) : number;
    return minimum <= english && english <= maximum;
}

}  // namespace tabulon
