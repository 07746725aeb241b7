#include "unitinput/unit_registrar.h"

#include <cmath>

#include "support/failure.h"
#include "support/numeric.h"
#include "unitinput/unit_catalogue.h"
#include "unitinput/unit_errors.h"

namespace tabulon {

namespace {

void RequireDirection(int direction) {
    if (direction != UnitRegistrar::kToEnglish && direction != UnitRegistrar::kToMetric) {
        throw UnitRejectedFailure("Invalid conversion direction " + IntegerToText(direction));
    }
}

[[noreturn]] void RejectCode(int code) {
    throw UnitRejectedFailure("Unknown unit code " + IntegerToText(code));
}

double Finite(double value) {
    if (!std::isfinite(value)) throw OverflowFailure();
    return value;
}

}  // namespace

void UnitRegistrar::setSystem(int system) {
    if (system != kEnglish && system != kMetric) {
        throw UnitRejectedFailure("Invalid unit system " + IntegerToText(system));
    }
    system_ = system;
}

const UnitRegistrar::CustomUnit* UnitRegistrar::FindCustom(int code) const {
    if (code < kFirstCustomUnitCode) return nullptr;
    const auto slot = static_cast<std::size_t>(code - kFirstCustomUnitCode);
    return slot < custom_.size() ? &custom_[slot] : nullptr;
}

bool UnitRegistrar::Knows(int code) const {
    return IsBuiltInCode(code) || FindCustom(code) != nullptr;
}

double UnitRegistrar::Convert(double value, int code, int direction) const {
    RequireDirection(direction);
    double factor = 1;
    double offset = 0;
    if (const UnitConversion* row = FindBuiltInConversion(code)) {
        factor = row->factor;
        offset = row->offset;
    } else if (const CustomUnit* unit = FindCustom(code)) {
        factor = unit->factor;
    } else if (code != 0) {
        RejectCode(code);
    }
    if (direction == kToMetric) return Finite(value * factor + offset);
    return Finite((value - offset) / factor);
}

std::string UnitRegistrar::UnitName(int code, int direction) const {
    RequireDirection(direction);
    const bool metric = direction == kToMetric;
    if (const UnitConversion* row = FindBuiltInConversion(code)) {
        return std::string(metric ? row->metric : row->english);
    }
    if (const CustomUnit* unit = FindCustom(code)) return metric ? unit->metric : unit->english;
    if (code != 0) RejectCode(code);
    return {};
}

std::string UnitRegistrar::Label(int code) const {
    return UnitName(code, system_ == kMetric ? kToMetric : kToEnglish);
}

int UnitRegistrar::RegisterCustomUnit(double factor, const std::string& english,
                                      const std::string& metric,
                                      const std::string& /*description*/) {
    if (!std::isfinite(factor) || factor <= 0) {
        throw UnitRejectedFailure("Invalid custom unit factor for \"" + english + "\"");
    }
    if (english.empty() || metric.empty()) {
        throw UnitRejectedFailure("Custom unit names may not be empty");
    }
    for (std::size_t i = 0; i < custom_.size(); ++i) {
        if (custom_[i].english == english) return kFirstCustomUnitCode + static_cast<int>(i);
    }
    custom_.push_back({factor, english, metric});
    return kFirstCustomUnitCode + static_cast<int>(custom_.size()) - 1;
}

}  // namespace tabulon
