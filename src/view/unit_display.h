// English/Metric display conversion of the grid's unit rows (1037).
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "view/control_core.h"

namespace tabulon {

// A unit fault that ends a display pass, with the information message it shows.
struct MetricPassFault {
    std::string_view message;
};

// The display pass for one row at a time, on any texts: the grid's pass runs it with
// the form's hidden boxes, find with boxes of its own. Boxes and registrar must
// outlive it.
class MetricTextConverter {
public:
    MetricTextConverter(ControlCore& core, UnitRegistrar& registrar, UnitNumBox& numBox,
                        UnitDropBox& dropBox);
    // Sets the boxes up for row's units; false when the row's values are shown as
    // stored (not a unit row, a UnitNum row without a Unit). A unit fault throws
    // MetricPassFault. row must outlive the calls of Convert for it.
    bool SetRow(const RowInfo& row);
    // The Metric text of a cell of that row whose English display text is text;
    // nullopt when it is shown as it is (a UnitDrop text without a unit). A unit the
    // row does not offer throws MetricPassFault; a conversion failure throws too.
    std::optional<std::string> Convert(const std::string& text) const;

private:
    void SetUpNumUnit(const std::string& unitName);
    void SetUpDropUnits(const RowInfo& row);

    ControlCore& core_;
    UnitRegistrar& registrar_;
    UnitNumBox& num_;
    UnitDropBox& drop_;
    const RowInfo* row_ = nullptr;
    EditorKind kind_ = EditorKind::None;
};

// A registrar for a display pass: in the system the root's MeasurementUnit names.
std::shared_ptr<UnitRegistrar> DisplayPassRegistrar(const ControlCore& core);

// column 0: every data column; otherwise that grid column only. Converts the grid
// text once: call it only right after a fill.
void ConvertGridUnits(ControlCore& core, std::int16_t column);

// The given cells (row, column), just written in English, converted as the pass would
// convert them, in order. False at the first unit fault or failure, with nothing shown:
// the caller then fills the column again and lets its pass report it.
bool ConvertGridCells(ControlCore& core, std::span<const std::pair<int, int>> cells);

}  // namespace tabulon
