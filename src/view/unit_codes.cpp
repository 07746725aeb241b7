#include "view/unit_codes.h"

#include "document/lookups.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "support/utf8.h"

namespace tabulon {

namespace {

constexpr int kEnglishNameColumn = 0;
constexpr int kMetricNameColumn = 1;
constexpr std::size_t kFactorColumn = 2;

}  // namespace

bool MetricDocument(const ControlCore& core) {
    return core.doc.strMeasurementUnit == "METRIC";
}

std::shared_ptr<UnitRegistrar> NewUnitRegistrar(int system) {
    auto registrar = std::make_shared<UnitRegistrar>();
    registrar->setSystem(system);
    return registrar;
}

int RegisterDocumentCustomUnit(ControlCore& core, UnitRegistrar& registrar,
                               std::string_view englishName) {
    const std::vector<CustomUnitRow>& units = core.doc.arrCustomUnits;
    const std::int16_t found = FindArrayIndex(core.sink, units, englishName, kEnglishNameColumn);
    if (found == -1) return -1;
    const CustomUnitRow& unit = units.at(static_cast<std::size_t>(found));
    return registrar.RegisterCustomUnit(ReadNumber(unit[kFactorColumn]), unit[0], unit[1],
                                        std::string(kCustomUnitDescription));
}

std::string UnitDropLookupKey(ControlCore& core, const std::string& name) {
    if (!MetricDocument(core)) return name;
    const std::vector<CustomUnitRow>& units = core.doc.arrCustomUnits;
    const std::int16_t found = FindArrayIndex(core.sink, units, name, kMetricNameColumn);
    if (found == -1) return name;
    return units.at(static_cast<std::size_t>(found))[kEnglishNameColumn];
}

std::string WithoutLastCharacter(std::string_view text) {
    const std::size_t characters = CountUtf8(text);
    if (characters == 0) throw InvalidArgumentFailure("Invalid procedure call or argument");
    return std::string(text.substr(0, Utf8Offset(text, characters - 1)));
}

double AsWrittenText(double value) {
    return ReadNumber(NumberToText(value));
}

}  // namespace tabulon
