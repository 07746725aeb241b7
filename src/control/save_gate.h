// OK and View/Print: commit, run the validation gate over the whole document, then
// raise OKClick and save, or raise PrintClick with the report.
#pragma once

#include "view/control_core.h"

namespace tabulon {

// The OK button. Saves back to the Load path after OKClick returns.
void OKButtonClick(ControlCore& core);
// The View/Print button.
void PrintButtonClick(ControlCore& core);
// The gate: ok is true when every CellValue's Valid is "1"; otherwise also moves to
// the first invalid cell (except one bound to the last tree record, by design).
void ValidateGridValues(ControlCore& core, bool& ok);

}  // namespace tabulon
