// UnitRegistrar: the conversion object the unit boxes share. It knows the unit system
// values are shown in, converts between English and Metric for the built-in codes
// and for the custom units registered with it, and names every unit it knows.
//
// Custom codes belong to one registrar: they start at kFirstCustomUnitCode (64) and
// count up in registration order; another registrar does not know them.
//
// Decisions:
// - Registering an English name that is already registered (exact comparison) returns
//   its code and keeps the first registration's factor and Metric name, so a code that
//   a box already holds never changes meaning.
// - Empty English or Metric names are refused: a unit box could neither show nor
//   select such a unit.
// - A conversion whose result is not finite (a huge or NaN value) throws
//   OverflowFailure, so no infinity or NaN ever comes out.
#pragma once

#include <string>
#include <vector>

namespace tabulon {

class UnitRegistrar {
public:
    // Unit systems.
    static constexpr int kEnglish = 0;
    static constexpr int kMetric = 1;
    // Conversion directions.
    static constexpr int kToEnglish = 0;
    static constexpr int kToMetric = 1;

    // The system labels are shown in; starts English. Values other than kEnglish and
    // kMetric throw UnitRejectedFailure and leave the system unchanged.
    int system() const { return system_; }
    void setSystem(int system);

    // True for 0, the built-in codes 1..63 and the custom codes of this registrar.
    bool Knows(int code) const;

    // direction kToMetric: english * factor + offset; kToEnglish: the exact inverse.
    // Code 0 returns value unchanged. An unknown code or a direction other than 0/1
    // throws UnitRejectedFailure; a non-finite result throws OverflowFailure.
    double Convert(double value, int code, int direction) const;

    // kToMetric gives the Metric label, kToEnglish the English label; code 0 gives "".
    // Unknown code or direction throws UnitRejectedFailure.
    std::string UnitName(int code, int direction) const;

    // The label of code in the current system (UnitName with the matching direction).
    std::string Label(int code) const;

    // Registers a custom unit with metric = english * factor and returns its code
    // (64, 65, ...). A factor that is 0, negative, NaN or infinite, or an empty
    // English or Metric name, throws UnitRejectedFailure. The description is required
    // by the interface and carries no meaning; it is not kept.
    int RegisterCustomUnit(double factor, const std::string& english, const std::string& metric,
                           const std::string& description);

private:
    struct CustomUnit {
        double factor;
        std::string english;
        std::string metric;
    };

    // The custom unit of code, or nullptr when code is not one of ours.
    const CustomUnit* FindCustom(int code) const;

    int system_ = kEnglish;
    std::vector<CustomUnit> custom_;
};

}  // namespace tabulon
