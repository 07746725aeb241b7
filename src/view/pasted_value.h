// One pasted value into the open editor of the current cell, by the rules of the
// user's own typing; the commit (commit.h) then takes it as it takes a typed value.
//
// Rules by editor:
// - Text: the value replaces the text as a paste does, cut to MaxLength (the cut is
//   noted). A value with a line break is refused: the box holds one line.
// - Pick list: only a listed entry, exactly as listed.
// - Unit number: a number, optionally followed by the row's unit label (with or
//   without a blank, or in parentheses); grouping commas are dropped. The number field
//   must then hold that same number: a number the field refuses (a negative one
//   where negatives are not allowed) is refused, never changed.
// - Unit drop-down: "12.5(ft)", "12.5 ft" or "12.5" (the unit selected now); a unit
//   the cell does not offer in the document's unit system is refused (a Metric
//   document takes "3.8 m", not "12.5 ft"). The number as for the unit number.
// - An empty value into either unit editor is refused: a number is required.
#pragma once

#include <optional>
#include <string>

#include "view/control_core.h"

namespace tabulon {

struct PasteOutcome {
    bool taken = false;
    std::string reason;  // why it was refused, or what was changed while it was taken
};

PasteOutcome PutIntoOpenEditor(ControlCore& core, const std::string& value);

}  // namespace tabulon
