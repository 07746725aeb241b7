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
#include <string_view>
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

// A unit fault that ends the pass with the message it carries.
struct PassEnded {
    std::string_view message;
};

// The columns a pass covers: the one given, or every data column for 0.
struct ColumnRange {
    int first;
    int last;
};

ColumnRange ColumnsOf(const FlexGrid& grid, std::int16_t column) {
    if (column == 0) return {1, grid.cols() - 1};
    return {column, column};
}

// The code of the row's Unit, as unitNumForCnv's unit code.
void SetUpNumUnit(ControlCore& core, UnitRegistrar& registrar, const std::string& unitName) {
    UnitNumBox& box = core.form.unitNumForCnv;
    try {
        int code = ConversionIndex(unitName);
        if (code < kFirstCustomUnitCode) {
            box.SetUnitCode(code);
            return;
        }
        const int registered = RegisterDocumentCustomUnit(core, registrar, unitName);
        if (registered != -1) code = registered;
        if (code > 0) box.SetUnitCode(code);
    } catch (const std::exception&) {
        throw PassEnded{kInvalidUnitNumUnits};
    }
}

void ConvertUnitNumRow(ControlCore& core, UnitRegistrar& registrar, int r, const RowInfo& row,
                       ColumnRange columns) {
    if (row.Unit.empty()) return;
    SetUpNumUnit(core, registrar, row.Unit);
    FlexGrid& grid = core.form.msgGridView;
    const int code = core.form.unitNumForCnv.UnitCode();
    for (int c = columns.first; c <= columns.last; ++c) {
        const double metric =
            registrar.Convert(ReadNumber(grid.textMatrix(r, c)), code, UnitRegistrar::kToMetric);
        grid.setTextMatrix(r, c, FormatNumber(AsWrittenText(metric), row.Format));
    }
}

// unitDropForCnv's list from the row's Unit and Format lists.
void SetUpDropUnits(ControlCore& core, UnitRegistrar& registrar, const RowInfo& row) {
    UnitDropBox& box = core.form.unitDropForCnv;
    const std::vector<std::string> names = SplitList(row.Unit);
    const std::vector<std::string> formats = SplitList(row.Format);
    box.ClearUnits();
    try {
        for (std::size_t i = 0; i < names.size(); ++i) {
            const std::string key = UnitDropLookupKey(core, names[i]);
            int code = ConversionIndex(key);
            if (code >= kFirstCustomUnitCode) {
                const int registered = RegisterDocumentCustomUnit(core, registrar, key);
                if (registered != -1) code = registered;
            }
            if (i < formats.size()) {
                box.AddUnit(code, formats[i]);
            } else {
                box.AddUnit(code);
            }
        }
    } catch (const std::exception&) {
        throw PassEnded{kInvalidUnitDropUnits};
    }
}

void ConvertUnitDropRow(ControlCore& core, UnitRegistrar& registrar, int r, const RowInfo& row,
                        ColumnRange columns) {
    SetUpDropUnits(core, registrar, row);
    FlexGrid& grid = core.form.msgGridView;
    UnitDropBox& box = core.form.unitDropForCnv;
    for (int c = columns.first; c <= columns.last; ++c) {
        const std::string& text = grid.textMatrix(r, c);
        const std::size_t open = text.find('(');
        if (open == std::string::npos) continue;  // no unit: shown as stored
        const double english = ReadNumber(text.substr(0, open));
        const std::string unit = WithoutLastCharacter(std::string_view(text).substr(open + 1));
        try {
            box.SelectUnitByText(unit);
        } catch (const UnitRejectedFailure&) {
            throw PassEnded{kInvalidUnitDropValue};
        }
        const int code = box.SelectedUnitIndex();
        const double metric = registrar.Convert(english, code, UnitRegistrar::kToMetric);
        const std::string number = FormatNumber(metric, box.FormatOf(code));
        const std::string label = registrar.UnitName(code, UnitRegistrar::kToMetric);
        grid.setTextMatrix(r, c, Trim(number) + "(" + Trim(label) + ")");
    }
}

}  // namespace

void ConvertGridUnits(ControlCore& core, std::int16_t column) {
    Guarded(core.sink, "1037", [&] {
        const std::string_view system = core.doc.objXMLRoot.attribute("MeasurementUnit").value();
        const std::shared_ptr<UnitRegistrar> registrar = NewUnitRegistrar(
            system == "ENGLISH" ? UnitRegistrar::kEnglish : UnitRegistrar::kMetric);
        Form& form = core.form;
        form.unitDropForCnv.SetRegistrar(registrar);
        form.unitNumForCnv.SetRegistrar(registrar);

        const FlexGrid& grid = form.msgGridView;
        const ColumnRange columns = ColumnsOf(grid, column);
        try {
            for (int r = 1; r < grid.rows(); ++r) {
                const RowInfo& row = core.doc.arrRowInfo.at(static_cast<std::size_t>(r));
                if (row.ControlType == EditorKind::UnitNum) {
                    ConvertUnitNumRow(core, *registrar, r, row, columns);
                } else if (row.ControlType == EditorKind::UnitDrop) {
                    ConvertUnitDropRow(core, *registrar, r, row, columns);
                }
            }
        } catch (const PassEnded& ended) {
            core.sink.Information(ended.message);
        }
    });
}

}  // namespace tabulon
