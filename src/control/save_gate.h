// OK and View/Print: commit, run the validation gate over the whole document, then
// raise OKClick and save, or raise PrintClick with the report.
#pragma once

#include "view/control_core.h"

namespace tabulon {

// The OK button. Saves back to the Load path after OKClick returns, only over the file
// that was loaded and only if no other program changed it since (support/
// atomic_file.h). Any failure shows "Unable the save the XML file."; then
// core.lastSaveError holds the precise reason and the host's SaveFailed hears it,
// after the message. A save that succeeds (or OK without a file) empties the reason.
void OKButtonClick(ControlCore& core);
// The View/Print button.
void PrintButtonClick(ControlCore& core);
// The gate: ok is true when every CellValue's Valid is "1"; otherwise also moves to
// the first invalid cell (except one bound to the last tree record, by design).
void ValidateGridValues(ControlCore& core, bool& ok);

}  // namespace tabulon
