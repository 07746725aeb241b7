// What must hold between the control's grid and its document after any gesture on a
// valid document, checked from the outside for the soak test. The document is read
// through its own elements (GridHeader by key, GridValue by column, CellValues by
// key), not through the control's tables, so a table that went wrong shows up.
//
// Each check returns the problems it found, one readable line each; none is empty.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "control/generic_sp_control.h"

namespace tabulon::reliability {

using Problems = std::vector<std::string>;

// While a grid is shown: its keys are those of the selected tree node, its size and
// captions those of the node's GridHeader, every value cell shows its CellValue text
// as the grid fill writes it, its text is black or grey by Enabled and its background
// white or red by Valid. Unit rows of a Metric document show converted values and are
// compared by CheckAgainstFreshFill instead.
Problems CheckGridAgainstDocument(const Generic_SP_Control& control);

// Range flags of committed unit cells. Remembers every CellValue's text and Valid flag
// as loaded; afterwards, a UnitNum or UnitDrop cell on screen whose stored text or
// flag has changed since (it was committed) must be Valid "1" exactly when its stored
// English value lies within the limits of its row (and unit), "0" otherwise. Values
// within rounding distance of a limit are not judged: the check ran on the number
// before it was formatted.
class CommittedRangeCheck {
public:
    explicit CommittedRangeCheck(const Generic_SP_Control& control);
    Problems Check(const Generic_SP_Control& control) const;
    // How many cells on screen differed from the loaded document at the last Check,
    // and how many of those were judged: evidence that the run really edits.
    std::size_t changedCells() const { return changed_; }
    std::size_t judgedCells() const { return judged_; }

private:
    std::vector<std::pair<std::string, std::string>> loaded_;  // text, Valid per CellValue
    mutable std::size_t changed_ = 0;
    mutable std::size_t judged_ = 0;
};

// XML() is not empty and passes ValidateDocumentText.
Problems CheckDocumentValidates(const Generic_SP_Control& control);

// A brand-new control on a thread of its own (so the per-thread tables of this one
// stay untouched) loads XML() and selects the same tree node: its grid must show the
// same texts in the same colours, cell for cell. Converted values of a Metric
// document may differ by the rounding that storing in English and converting back
// brings (half a unit of the row's format, times the conversion factor).
Problems CheckAgainstFreshFill(const Generic_SP_Control& control);

}  // namespace tabulon::reliability
