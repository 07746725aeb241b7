// The members of the control's interface in function-table order, with their fixed
// dispatch identifiers. Early-bound hosts depend on the order, late-bound ones on
// the identifiers; neither may change.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace tabulon {

enum class MemberKind { Method, PropertyGet, PropertyLet };

struct DispatchEntry {
    int slot;
    std::string_view member;
    MemberKind kind;
    std::uint32_t dispatchId;
};

inline constexpr std::array<DispatchEntry, 18> kDispatchTable = {{
    {1, "Reposition_Button", MemberKind::Method, 0x6003001A},
    {2, "ButtonProperty", MemberKind::PropertyGet, 0x68030002},
    {3, "ButtonProperty", MemberKind::PropertyLet, 0x68030002},
    {4, "GeneralProperty", MemberKind::PropertyGet, 0x68030001},
    {5, "GeneralProperty", MemberKind::PropertyLet, 0x68030001},
    {6, "RefreshAdvanceScrollbars", MemberKind::Method, 0x6003001F},
    {7, "Load", MemberKind::Method, 0x6003002B},
    {8, "LoadXML", MemberKind::Method, 0x6003002C},
    {9, "MoveNextCell", MemberKind::Method, 0x60030030},
    {10, "MoveNextColumn", MemberKind::Method, 0x60030032},
    {11, "MovePreviousCell", MemberKind::Method, 0x6003005E},
    {12, "MovePreviousColumn", MemberKind::Method, 0x60030061},
    {13, "XML", MemberKind::PropertyGet, 0x68030062},
    {14, "XML", MemberKind::PropertyLet, 0x68030062},
    {15, "FilterValue", MemberKind::PropertyGet, 0x68030064},
    {16, "FilterValue", MemberKind::PropertyLet, 0x68030064},
    {17, "DisplayColWidth", MemberKind::PropertyGet, 0x68030063},
    {18, "DisplayColWidth", MemberKind::PropertyLet, 0x68030063},
}};

// Event identifiers of the events interface.
enum class EventId : int {
    OKClick = 1,
    HelpClick = 2,
    PrintClick = 3,
    CancelClick = 4,
    AppGridEventHandler = 5
};

// Help string of DisplayColWidth, the only member that has one.
inline constexpr std::string_view kDisplayColWidthHelp =
    "Display comma delimited with of each column display in grid";

}  // namespace tabulon
