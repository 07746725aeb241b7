// Why a value is invalid, in one short sentence a person reads beside the red cell.
//
// A range check says which limit a number misses (RangeVerdict); the sentence names
// that limit in the unit and format the cell is shown in: in a Metric document the
// English limit is converted as the display pass converts values ("Above the maximum
// of 907.2 t"). Besides range faults: "Not a number" when the text holds no number
// at all (and the check fails), "Not one of the listed units" for a UnitDrop value
// whose unit its row does not offer, "No value fits: ..." when a unit's minimum lies
// above its maximum, and the two marks set from outside: "Marked invalid in the
// document" and "Marked invalid by the host".
//
// Decision: a value the document itself marks invalid is judged by its row's rules as
// the editor would judge it (stored values are English), so the sentence says what is
// wrong with it where the rules can tell; only when they find nothing (a text row, a
// value within its range, a UnitDrop value without a unit) does it read "Marked
// invalid in the document". Nothing here shows a message or throws.
#pragma once

#include <string>
#include <string_view>

#include "unitinput/unit_box_base.h"
#include "unitinput/unit_drop_box.h"
#include "unitinput/unit_num_box.h"
#include "unitinput/unit_registrar.h"

namespace tabulon {

struct ControlCore;
struct RowInfo;

inline constexpr std::string_view kNotANumber = "Not a number";
inline constexpr std::string_view kUnitNotListed = "Not one of the listed units";
inline constexpr std::string_view kMarkedInDocument = "Marked invalid in the document";
inline constexpr std::string_view kMarkedByHost = "Marked invalid by the host";

// What a range check found: its verdict, the limits it used (English units), the unit
// (conversion code, 0 for none) and format of the value as shown, and whether the
// checked text read as a number at all.
struct RangeFinding {
    RangeVerdict verdict = RangeVerdict::Within;
    bool readsAsNumber = true;
    double minimum = 0;
    double maximum = 0;
    int code = 0;
    std::string format;
};

// The findings of the two unit editors' checks. typed is the number text as the user
// left it, before the commit formats it. Throw what the boxes' checks throw.
RangeFinding UnitNumFinding(const UnitNumBox& box, std::string_view typed);
RangeFinding UnitDropFinding(const UnitDropBox& box);

// The sentence for a finding; "" when it passes. registrar names and converts the unit
// (null: the built-in units only); metric: the cell shows Metric values.
std::string DescribeFinding(const RangeFinding& finding, const UnitRegistrar* registrar,
                            bool metric);

// Why a CellValue whose Valid is not "1" is invalid, from its stored text and its row's
// rules (see the decision above).
std::string DocumentValueProblem(ControlCore& core, const RowInfo& row, std::string_view stored);

}  // namespace tabulon
