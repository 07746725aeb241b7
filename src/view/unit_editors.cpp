// The two unit editors: the number box with one unit and the number box with a
// drop-down of units (ShowUnitNumEditor 1008, ShowUnitDropEditor 1009).
//
// Failures inside the unit look-up and registration are ignored one statement at a
// time, as the editors have always done: an unknown unit name leaves the number box
// without a unit (code 0) and skips that unit of a drop-down. Everything else the unit
// boxes reject ends the procedure with an information message and the editor hidden.
//
// Decisions:
// - A custom unit that the registrar refuses (its factor is 0, negative or not a
//   number; a name is empty) is such a rejection, not a failed look-up: the editor
//   could neither convert with it nor check a range in it. The number box then shows
//   "Invalid UnitNum units defined in XML.", the drop-down "Invalid UnitDrop units
//   defined in XML.", in either unit system, so no infinity or NaN can come of it.
// - Each activation makes a new registrar (kept in ControlCore::unitRegistrar, in the
//   document's unit system) and hands it to the editor, so custom-unit codes it gives
//   out are codes the editor accepts (see view/unit_codes.h).
// - A UnitDrop cell without "(" whose text has no leading number (an empty cell among
//   them) keeps its text as it is in the number field; one with a number shows that
//   number in the last unit's format.
// - The width check comes after the registrar is made: a hidden column still replaces
//   the registrar, and nothing else happens.
// - Both editors open with the whole number selected, as the text editor does, so
//   what the user types replaces it.
#include <string>
#include <vector>

#include "support/failure.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "support/text.h"
#include "unitinput/unit_catalogue.h"
#include "unitinput/unit_errors.h"
#include "units/conversion_table.h"
#include "view/cell_editors.h"
#include "view/editor_placement.h"
#include "view/unit_codes.h"

namespace tabulon {

namespace {

constexpr std::string_view kInvalidUnitNumUnits = "Invalid UnitNum units defined in XML.";
constexpr std::string_view kInvalidUnitDropUnits = "Invalid UnitDrop units defined in XML.";
constexpr std::string_view kInvalidUnitDropValue =
    "Invalid unit defined with UnitDrop value within XML.";

// A new registrar for an editor, in the document's system, kept in the control.
UnitRegistrar& FreshEditorRegistrar(ControlCore& core) {
    core.unitRegistrar =
        NewUnitRegistrar(MetricDocument(core) ? UnitRegistrar::kMetric : UnitRegistrar::kEnglish);
    return *core.unitRegistrar;
}

// The number box's unit from the row's Unit name; every statement ignores its failure
// but the registrar's refusal of a custom unit, which throws UnitRejectedFailure.
void SetUpUnitNumUnit(ControlCore& core, UnitRegistrar& registrar, UnitNumBox& box,
                      const std::string& unitName) {
    int code = 0;
    IgnoringFailure([&] { code = ConversionIndex(unitName); });
    if (code < kFirstCustomUnitCode) {
        IgnoringFailure([&] { box.SetUnitCode(code); });
        return;
    }
    const int registered = RegisterCustomUnitOrIgnore(core, registrar, unitName);
    if (registered != -1) IgnoringFailure([&] { box.SetUnitCode(registered); });
}

// The cell text in the number field: a leading number in format, other text as it is.
std::string NumberFieldText(const std::string& text, const std::string& format) {
    if (NumericPrefixLength(text) == 0) return text;
    return FormatNumber(ReadNumber(text), format);
}

}  // namespace

void ShowUnitNumEditor(ControlCore& core) {
    Guarded(core.sink, "1008", [&] {
        UnitRegistrar& registrar = FreshEditorRegistrar(core);
        const FlexGrid& grid = core.form.msgGridView;
        if (!CurrentColumnTakesEditor(grid)) return;
        const RowInfo& row = CurrentRowInfo(core);
        UnitNumBox& box = core.form.unitNumControl;
        PlaceOverCurrentCell(core, box, {.cellHeight = true, .clipAtHorizontalBar = true});
        box.SetRegistrar(core.unitRegistrar);
        try {
            SetUpUnitNumUnit(core, registrar, box, row.Unit);
            box.SetMinimum(ReadNumber(row.MinVal));
            box.SetMaximum(ReadNumber(row.MaxVal));
            box.ApplyLimits();
        } catch (const UnitRejectedFailure&) {
            core.sink.Information(kInvalidUnitNumUnits);
            return;
        }
        box.SetValue(ReadNumber(grid.text()));
        box.SetFormat(row.Format);
        // Kept for its failure, not its answer: a value too large to convert ends the
        // opening with this procedure's error, before the editor is shown.
        (void)box.Check();
        ActivateEditor(core, box);
        box.SelectAll();
    });
}

void ShowUnitDropEditor(ControlCore& core) {
    Guarded(core.sink, "1009", [&] {
        UnitRegistrar& registrar = FreshEditorRegistrar(core);
        const FlexGrid& grid = core.form.msgGridView;
        if (!CurrentColumnTakesEditor(grid)) return;
        const RowInfo& row = CurrentRowInfo(core);
        UnitDropBox& box = core.form.unitDropControl;

        const std::int32_t cellWidth = grid.cellWidth();
        box.SetNumberWidth(ToInt32(cellWidth * 0.5));
        box.SetUnitWidth(cellWidth - box.NumberWidth());
        PlaceOverCurrentCell(core, box, {.cellHeight = false, .clipAtHorizontalBar = false});

        box.SetRegistrar(core.unitRegistrar);
        std::string lastFormat;
        try {
            lastFormat = FillUnitDropList(core, registrar, box, row);
            box.ListComplete();
        } catch (const UnitRejectedFailure&) {
            core.sink.Information(kInvalidUnitDropUnits);
            return;
        }

        const std::string& text = grid.text();
        const std::size_t open = text.find('(');
        if (open == std::string::npos) {
            box.SetNumberText(NumberFieldText(text, lastFormat));
        } else {
            // A blank before "(" is tolerated: the number is read from the text before it.
            const std::string unit = WithoutLastCharacter(Trim(text.substr(open + 1)));
            try {
                box.SelectUnitByText(unit);
            } catch (const UnitRejectedFailure&) {
                core.sink.Information(kInvalidUnitDropValue);
                return;
            }
            const double number = ReadNumber(text.substr(0, open));
            box.SetNumberText(FormatNumber(number, box.FormatOf(box.SelectedUnitIndex())));
        }
        ActivateEditor(core, box);
        box.SelectAll();
    });
}

}  // namespace tabulon
