// Design-time geometry of the control and its child components, in twips: where
// everything stands when an instance is created, before any settings are restored
// or any resize runs. Every other position is derived from these by the layout code.
//
// The splitter is 45 twips wide so that the filter frame and the grid end exactly at
// the control's right edge (frame width = control width - splitter left - 65, frame
// left = splitter left + splitter width + 20).
//
// Design-time states that differ from the property defaults are deliberate: the two
// scroll bars start hidden, and first-time initialisation does not change that (only
// restoring settings or writing GeneralProperty shows them).
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tabulon::design {

struct Placement {
    std::string_view name;
    std::int32_t left, top, width, height;
    bool visible;
};

inline constexpr std::int32_t kControlWidth = 8200;
inline constexpr std::int32_t kControlHeight = 6300;

// Children placed directly on the control, plus the filter label and combo, whose
// positions are relative to the filter frame.
inline constexpr std::array<Placement, 18> kPlacements = {{
    {"treTreeView", 0, 0, 2745, 5580, true},
    {"imgSplitter", 2775, 0, 45, 5580, true},
    {"fraFilterView", 2840, 0, 5360, 750, true},
    {"lblFilter", 120, 330, 1215, 255, true},
    {"cboFilter", 1440, 285, 3820, 315, true},
    {"msgGridView", 2840, 840, 5360, 4740, true},
    {"vscGrid", 7930, 880, 255, 4390, false},
    {"hscGrid", 2890, 5580, 5020, 255, false},
    {"cmdPrint", 3150, 5880, 1215, 375, true},
    {"cmdOK", 4415, 5880, 1215, 375, true},
    {"cmdCancel", 5680, 5880, 1215, 375, true},
    {"cmdHelp", 6945, 5880, 1215, 375, true},
    {"txtTextBoxControl", 0, 0, 1080, 285, false},
    {"cboComboBoxControl", 0, 0, 1080, 315, false},
    {"unitNumControl", 0, 0, 1080, 285, false},
    {"unitDropControl", 0, 0, 2160, 315, false},
    {"unitNumForCnv", 0, 0, 0, 0, false},
    {"unitDropForCnv", 0, 0, 0, 0, false},
}};

// The placement of a child by name; an unknown name does not compile when used in a
// constant expression.
constexpr const Placement& Find(std::string_view name) {
    for (const Placement& p : kPlacements) {
        if (p.name == name) return p;
    }
    throw "unknown child component";
}

// Grid and tree properties at design time.
inline constexpr std::int32_t kGridRowHeightMin = 350;
inline constexpr std::int32_t kGridDefaultRowHeight = 240;
inline constexpr std::int16_t kGridColWidthMin = 1080;  // the width new columns get
inline constexpr bool kGridAllowBigSelection = false;
inline constexpr std::int32_t kTreeStyle = 7;
inline constexpr std::string_view kFilterCaption = "Filter";
inline constexpr std::string_view kFilterLabel = "Filter Label";
inline constexpr std::string_view kFilterAll = "All";

// Button captions.
inline constexpr std::string_view kPrintCaption = "View/Print";
inline constexpr std::string_view kOKCaption = "OK";
inline constexpr std::string_view kCancelCaption = "Cancel";
inline constexpr std::string_view kHelpCaption = "Help";

}  // namespace tabulon::design
