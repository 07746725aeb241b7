// The Metric display pass (ConvertGridUnits, 1037): every UnitNum and UnitDrop cell of
// the grid, stored in English units, is shown converted. The document is not touched.
//
// The hidden boxes unitNumForCnv and unitDropForCnv resolve unit codes, the unit named
// in a cell and the per-unit formats; a registrar made for this pass does the
// arithmetic and names the Metric units. A unit fault shows one of three information
// messages and ends the pass: rows and cells before it stay converted, the rest not.
//
// Decisions:
// - The registrar is the pass's own (made at its start, released at its end); the
//   editors' registrar in ControlCore is left alone.
// - The root's MeasurementUnit is read by name; "ENGLISH" (exactly) is English, any
//   other text Metric.
// - A UnitDrop unit that is a custom unit is registered by its conversion-table key
//   (its English name, also when the row lists it by its Metric name).
// - A custom unit the document no longer declares keeps its conversion-table code,
//   which this pass's registrar does not know: the box rejects it and the pass ends
//   with the row type's message.
#include "view/unit_display.h"

#include <string>
#include <vector>

#include "support/failure.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "support/text.h"
#include "unitinput/unit_catalogue.h"
#include "unitinput/unit_errors.h"
#include "units/conversion_table.h"
#include "view/unit_codes.h"

namespace tabulon {

namespace {

constexpr std::string_view kInvalidUnitNumUnits = "Invalid UnitNum units defined in XML.";
constexpr std::string_view kInvalidUnitDropUnits =
    "Metric conversion is not possible because invalid UnitDrop units defined in XML.";
constexpr std::string_view kInvalidUnitDropValue =
    "Metric conversion is not possible because invalid unit defined with UnitDrop value "
    "within XML.";

// The columns a pass covers: the one given, or every data column for 0.
struct ColumnRange {
    int first;
    int last;
};

ColumnRange ColumnsOf(const FlexGrid& grid, std::int16_t column) {
    if (column == 0) return {1, grid.cols() - 1};
    return {column, column};
}

// A display pass's own registrar, given to the form's hidden boxes, and its converter.
struct DisplayPass {
    explicit DisplayPass(ControlCore& core)
        : registrar(DisplayPassRegistrar(core)),
          converter(core, *registrar, core.form.unitNumForCnv, core.form.unitDropForCnv) {
        core.form.unitDropForCnv.SetRegistrar(registrar);
        core.form.unitNumForCnv.SetRegistrar(registrar);
    }
    std::shared_ptr<UnitRegistrar> registrar;
    MetricTextConverter converter;
};

}  // namespace

MetricTextConverter::MetricTextConverter(ControlCore& core, UnitRegistrar& registrar,
                                         UnitNumBox& numBox, UnitDropBox& dropBox)
    : core_(core), registrar_(registrar), num_(numBox), drop_(dropBox) {}

// The code of the row's Unit, as the number box's unit code.
void MetricTextConverter::SetUpNumUnit(const std::string& unitName) {
    try {
        int code = ConversionIndex(unitName);
        if (code < kFirstCustomUnitCode) {
            num_.SetUnitCode(code);
            return;
        }
        const int registered = RegisterDocumentCustomUnit(core_, registrar_, unitName);
        if (registered != -1) code = registered;
        if (code > 0) num_.SetUnitCode(code);
    } catch (const std::exception&) {
        throw MetricPassFault{kInvalidUnitNumUnits};
    }
}

// The drop-down box's list from the row's Unit and Format lists.
void MetricTextConverter::SetUpDropUnits(const RowInfo& row) {
    const std::vector<std::string> names = SplitList(row.Unit);
    const std::vector<std::string> formats = SplitList(row.Format);
    drop_.ClearUnits();
    try {
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string key = UnitDropLookupKey(core_, names[i]);
            int code = ConversionIndex(key);
            if (code >= kFirstCustomUnitCode) {
                const int registered = RegisterDocumentCustomUnit(core_, registrar_, key);
                if (registered != -1) code = registered;
            }
            if (i < formats.size()) {
                drop_.AddUnit(code, formats[i]);
            } else {
                drop_.AddUnit(code);
            }
        }
    } catch (const std::exception&) {
        throw MetricPassFault{kInvalidUnitDropUnits};
    }
}

bool MetricTextConverter::SetRow(const RowInfo& row) {
    row_ = &row;
    kind_ = EditorKind::None;
    if (row.ControlType == EditorKind::UnitNum) {
        if (row.Unit.empty()) return false;
        SetUpNumUnit(row.Unit);
    } else if (row.ControlType == EditorKind::UnitDrop) {
        SetUpDropUnits(row);
    } else {
        return false;
    }
    kind_ = row.ControlType;
    return true;
}

std::optional<std::string> MetricTextConverter::Convert(const std::string& text) const {
    if (kind_ == EditorKind::UnitNum) {
        const double metric =
            registrar_.Convert(ReadNumber(text), num_.UnitCode(), UnitRegistrar::kToMetric);
        return FormatNumber(AsWrittenText(metric), row_->Format);
    }
    if (kind_ != EditorKind::UnitDrop) return std::nullopt;
    const std::size_t open = text.find('(');
    if (open == std::string::npos) return std::nullopt;  // no unit: shown as stored
    const double english = ReadNumber(text.substr(0, open));
    const std::string unit = WithoutLastCharacter(std::string_view(text).substr(open + 1));
    try {
        drop_.SelectUnitByText(unit);
    } catch (const UnitRejectedFailure&) {
        throw MetricPassFault{kInvalidUnitDropValue};
    }
    const int code = drop_.SelectedUnitIndex();
    const double metric = registrar_.Convert(english, code, UnitRegistrar::kToMetric);
    const std::string number = FormatNumber(metric, drop_.FormatOf(code));
    const std::string label = registrar_.UnitName(code, UnitRegistrar::kToMetric);
    return Trim(number) + "(" + Trim(label) + ")";
}

std::shared_ptr<UnitRegistrar> DisplayPassRegistrar(const ControlCore& core) {
    const std::string_view system = core.doc.objXMLRoot.attribute("MeasurementUnit").value();
    return NewUnitRegistrar(system == "ENGLISH" ? UnitRegistrar::kEnglish : UnitRegistrar::kMetric);
}

void ConvertGridUnits(ControlCore& core, std::int16_t column) {
    // A whole pass starts afresh; a column's pass leaves the others' fault standing.
    const bool faultedBefore = column != 0 && core.doc.displayPassFaulted;
    Guarded(core.sink, "1037", [&] {
        DisplayPass pass(core);
        MetricTextConverter& converter = pass.converter;
        FlexGrid& grid = core.form.msgGridView;
        const ColumnRange columns = ColumnsOf(grid, column);
        // Until the pass ends without a fault (a failure that is not a unit fault too).
        core.doc.displayPassFaulted = true;
        try {
            for (int r = 1; r < grid.rows(); ++r) {
                if (!converter.SetRow(core.doc.arrRowInfo.at(static_cast<std::size_t>(r))))
                    continue;
                // Neighbours often hold the same text (every empty cell of a wide grid
                // does): the text converted last is reused for them.
                std::optional<std::string> lastText;
                std::optional<std::string> shown;
                for (int c = columns.first; c <= columns.last; ++c) {
                    const std::string& text = grid.textMatrix(r, c);
                    if (!lastText || text != *lastText) {
                        lastText = text;
                        shown = converter.Convert(*lastText);
                    }
                    if (shown) grid.setTextMatrix(r, c, *shown);
                }
            }
            core.doc.displayPassFaulted = faultedBefore;
        } catch (const MetricPassFault& ended) {
            core.sink.Information(ended.message);
        }
    });
}

bool ConvertGridCells(ControlCore& core, std::span<const std::pair<int, int>> cells) {
    if (cells.empty()) return true;
    try {
        DisplayPass pass(core);
        FlexGrid& grid = core.form.msgGridView;
        for (const auto& [r, c] : cells) {
            if (!pass.converter.SetRow(core.doc.arrRowInfo.at(static_cast<std::size_t>(r))))
                continue;
            if (std::optional<std::string> shown = pass.converter.Convert(grid.textMatrix(r, c)))
                grid.setTextMatrix(r, c, *shown);
        }
        return true;
    } catch (...) {
        return false;
    }
}

}  // namespace tabulon
