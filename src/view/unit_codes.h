// Turning a row's unit names into the codes the unit boxes take, and the small text
// rules the unit editors, the commit and the Metric display pass share.
//
// Decisions:
// - A unit registrar made for an editor or a display pass works in the document's unit
//   system (strMeasurementUnit "METRIC": Metric, anything else: English) and becomes
//   the conversion object of the boxes it serves, so that the codes it hands out for
//   custom units are codes those boxes accept.
// - A custom unit is registered with the factor text of its arrCustomUnits row read as
//   a number; the description the registrar requires is "unimportantString".
#pragma once

#include <exception>
#include <memory>
#include <string>
#include <string_view>

#include "unitinput/unit_registrar.h"
#include "view/control_core.h"

namespace tabulon {

// The description handed to UnitRegistrar::RegisterCustomUnit; it carries no meaning.
inline constexpr std::string_view kCustomUnitDescription = "unimportantString";

// True when the document shows values in Metric units (strMeasurementUnit "METRIC").
bool MetricDocument(const ControlCore& core);

// A new registrar in the given unit system (UnitRegistrar::kEnglish / kMetric).
std::shared_ptr<UnitRegistrar> NewUnitRegistrar(int system);

// Registers the custom unit whose English name (arrCustomUnits column 0) is englishName
// with registrar and returns the code it hands out; -1 when the document has no such
// custom unit. Throws what the registrar throws for a bad factor or name.
int RegisterDocumentCustomUnit(ControlCore& core, UnitRegistrar& registrar,
                               std::string_view englishName);

// As RegisterDocumentCustomUnit, but a failed look-up answers -1 too; only the
// registrar's refusal of the unit (UnitRejectedFailure) is thrown.
int RegisterCustomUnitOrIgnore(ControlCore& core, UnitRegistrar& registrar,
                               const std::string& englishName);

// Fills box's unit list from a UnitDrop row: each name of its Unit list with the
// item of MinVal and MaxVal at the same place (0 where the list is shorter) and of
// Format (the previous unit's format where Format is shorter), found in the conversion
// table through UnitDropLookupKey and, for a custom unit, registered with registrar by
// the name as the row lists it. Returns the format of the last unit. A name that
// cannot be found or added is skipped; only the registrar's refusal of a custom unit
// is thrown (UnitRejectedFailure).
std::string FillUnitDropList(ControlCore& core, UnitRegistrar& registrar, UnitDropBox& box,
                             const RowInfo& row);

// The conversion-table key of a UnitDrop unit name: in a Metric document a name that is
// a custom unit's Metric name (column 1) stands for that unit's English name; any other
// name is its own key.
std::string UnitDropLookupKey(ControlCore& core, const std::string& name);

// The unit label the data cell (row, col) of the grid on screen shows its value in: a
// UnitNum row's unit in the document's system, the unit inside a UnitDrop value's
// parentheses; "" for other rows, captions and cells outside the grid.
std::string CellUnit(const ControlCore& core, int row, int col);

// Text less its last (UTF-8) character: the closing ")" of a unit in a cell. Empty
// text throws InvalidArgumentFailure: there is no character to cut.
std::string WithoutLastCharacter(std::string_view text);

// The value as NumberToText writes it, read back: a number "written as text" (15
// significant digits) before it is formatted again.
double AsWrittenText(double value);

}  // namespace tabulon
