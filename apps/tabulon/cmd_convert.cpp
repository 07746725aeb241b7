// tabulon convert VALUE NAME [--to-english]: converts VALUE with the conversion NAME
// (a built-in conversion name, any letter case) from English to Metric, or back with
// --to-english, and prints the result written as text and the target unit's label.
// VALUE must be a number and nothing else.
#include <string>
#include <vector>

#include "command.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "unitinput/unit_registrar.h"
#include "units/conversion_table.h"

namespace tabulon::cli {

namespace {

double ParseValue(std::string_view text) {
    if (text.empty() || NumericPrefixLength(text) != text.size()) {
        throw UsageError("VALUE \"" + std::string(text) + "\" is not a number");
    }
    try {
        return ReadNumber(text);
    } catch (const OverflowFailure&) {
        throw UsageError("VALUE \"" + std::string(text) + "\" is out of range");
    }
}

int LookUpCode(std::string_view name) {
    BuildConversionTable();
    try {
        const int code = ConversionIndex(name);
        ReleaseConversionTable();
        return code;
    } catch (const UnknownConversionFailure&) {
        ReleaseConversionTable();
        throw UsageError("unknown conversion name \"" + std::string(name) + "\"");
    }
}

}  // namespace

int RunConvert(Arguments args, std::ostream& out, std::ostream& /*err*/) {
    int direction = UnitRegistrar::kToMetric;
    std::vector<std::string_view> positional;
    for (const std::string_view arg : args) {
        if (arg == "--to-english") {
            direction = UnitRegistrar::kToEnglish;
        } else if (arg.starts_with("--")) {
            throw UsageError("unknown option \"" + std::string(arg) + "\"");
        } else {
            positional.push_back(arg);
        }
    }
    if (positional.size() != 2) throw UsageError();
    const double value = ParseValue(positional[0]);
    const int code = LookUpCode(positional[1]);

    const UnitRegistrar registrar;
    const double result = registrar.Convert(value, code, direction);
    const std::string label = registrar.UnitName(code, direction);
    out << NumberToText(result);
    if (!label.empty()) out << ' ' << label;
    out << '\n';
    return 0;
}

}  // namespace tabulon::cli
