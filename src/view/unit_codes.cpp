#include "view/unit_codes.h"

#include "document/lookups.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"
#include "support/utf8.h"
#include "unitinput/unit_catalogue.h"
#include "unitinput/unit_errors.h"
#include "units/conversion_table.h"

namespace tabulon {

namespace {

constexpr int kEnglishNameColumn = 0;
constexpr int kMetricNameColumn = 1;
constexpr std::size_t kFactorColumn = 2;

// Item i of items, or fallback where the list is shorter.
const std::string& ItemOr(const std::vector<std::string>& items, std::size_t i,
                          const std::string& fallback) {
    return i < items.size() ? items[i] : fallback;
}

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

int RegisterCustomUnitOrIgnore(ControlCore& core, UnitRegistrar& registrar,
                               const std::string& englishName) {
    int registered = -1;
    try {
        registered = RegisterDocumentCustomUnit(core, registrar, englishName);
    } catch (const UnitRejectedFailure&) {
        throw;
    } catch (const std::exception&) {
    }
    return registered;
}

std::string FillUnitDropList(ControlCore& core, UnitRegistrar& registrar, UnitDropBox& box,
                             const RowInfo& row) {
    const std::vector<std::string> names = SplitList(row.Unit);
    const std::vector<std::string> maxima = SplitList(row.MaxVal);
    const std::vector<std::string> minima = SplitList(row.MinVal);
    const std::vector<std::string> formats = SplitList(row.Format);
    box.ClearUnits();

    static const std::string kNone;
    std::string format;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        double minimum = 0;
        double maximum = 0;
        IgnoringFailure([&] { minimum = ReadNumber(ItemOr(minima, i, kNone)); });
        IgnoringFailure([&] { maximum = ReadNumber(ItemOr(maxima, i, kNone)); });
        format = ItemOr(formats, i, format);

        const std::string key = UnitDropLookupKey(core, name);
        int code = 0;  // a key the conversion table does not hold is skipped
        IgnoringFailure([&] { code = ConversionIndex(key); });
        if (code >= kFirstCustomUnitCode) {
            // Registered by the name as the row lists it.
            const int registered = RegisterCustomUnitOrIgnore(core, registrar, name);
            if (registered != -1) code = registered;
        }
        if (code > 0) IgnoringFailure([&] { box.AddUnit(code, minimum, maximum, format); });
    }
    return format;
}

std::string UnitDropLookupKey(ControlCore& core, const std::string& name) {
    if (!MetricDocument(core)) return name;
    const std::vector<CustomUnitRow>& units = core.doc.arrCustomUnits;
    const std::int16_t found = FindArrayIndex(core.sink, units, name, kMetricNameColumn);
    if (found == -1) return name;
    return units.at(static_cast<std::size_t>(found))[kEnglishNameColumn];
}

std::string CellUnit(const ControlCore& core, int row, int col) {
    const FlexGrid& grid = core.form.msgGridView;
    const std::vector<RowInfo>& rules = core.doc.arrRowInfo;
    if (row < 1 || col < 1 || row >= grid.rows() || col >= grid.cols()) return {};
    if (static_cast<std::size_t>(row) >= rules.size()) return {};
    const RowInfo& info = rules[static_cast<std::size_t>(row)];
    if (info.ControlType == EditorKind::UnitDrop) {
        const std::string& text = grid.textMatrix(row, col);
        const std::size_t open = text.find('(');
        const std::size_t close = text.rfind(')');
        if (open == std::string::npos || close == std::string::npos || close < open) return {};
        return Trim(std::string_view(text).substr(open + 1, close - open - 1));
    }
    if (info.ControlType != EditorKind::UnitNum) return {};
    // The unit as the number editor finds it: a built-in code, else a custom unit.
    const bool metric = MetricDocument(core);
    int code = 0;
    IgnoringFailure([&] { code = ConversionIndex(info.Unit); });
    if (const UnitConversion* conversion = FindBuiltInConversion(code))
        return std::string(metric ? conversion->metric : conversion->english);
    if (code < kFirstCustomUnitCode) return {};
    for (const CustomUnitRow& unit : core.doc.arrCustomUnits) {
        if (unit[kEnglishNameColumn] == info.Unit)
            return unit[static_cast<std::size_t>(metric ? kMetricNameColumn : kEnglishNameColumn)];
    }
    return {};
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
