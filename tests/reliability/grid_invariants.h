// What must hold between the control's grid and its document after any gesture on a
// valid document, checked from the outside for the soak test. The document is read
// through its own elements (GridHeader by key, GridValue by column, CellValues by
// key), not through the control's tables, so a table that went wrong shows up.
//
// Each check returns the problems it found, one readable line each; none is empty.
#pragma once

#include <string>
#include <vector>

#include "control/generic_sp_control.h"

namespace tabulon::reliability {

using Problems = std::vector<std::string>;

// While a grid is shown: its size is that of the node's GridHeader, every value cell
// shows its CellValue text
// as the grid fill writes it, its text is black or grey by Enabled and its background
// white or red by Valid. Unit rows of a Metric document show converted values and are
// not compared.
Problems CheckGridAgainstDocument(const Generic_SP_Control& control);

// XML() is not empty and passes ValidateDocumentText.
Problems CheckDocumentValidates(const Generic_SP_Control& control);

}  // namespace tabulon::reliability
