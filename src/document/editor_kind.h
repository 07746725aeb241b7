// EditorKind: the editor a grid row takes, read once from its RowHeader's ControlType
// when the row is laid out. One row of kEditorKinds per kind holds everything that
// depends on it outside the editor itself: the name documents use, the least height
// the grid gives the row, the alignment of its value cells and whether its values
// carry a unit.
//
// Names compare case-sensitively; any other name, and a row without a ControlType,
// is EditorKind::None, which lays out as plain text and gets "Invalid control name"
// when a cell of the row is about to be edited.
//
// Adding a kind: a row here, the editor's Show... function (view/cell_editors.h) and
// its write-back (view/commit.cpp), and a DTD value when documents may name it.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/flex_grid.h"

namespace tabulon {

enum class EditorKind : std::uint8_t { None, TextBox, ComboBox, UnitNum, UnitDrop };

struct EditorKindRow {
    EditorKind kind;
    std::string_view name;      // the ControlType value; "" for None
    std::int32_t minRowHeight;  // twips; 0: the row keeps its Height
    CellAlignment alignment;    // of the row's value cells
    bool unitRow;               // values carry a unit (display conversion, Metric)
};

inline constexpr std::array<EditorKindRow, 5> kEditorKinds = {{
    {EditorKind::None, "", 0, CellAlignment::LeftTop, false},
    {EditorKind::TextBox, "TextBox", 320, CellAlignment::LeftTop, false},
    {EditorKind::ComboBox, "ComboBox", 350, CellAlignment::LeftTop, false},
    {EditorKind::UnitNum, "UnitNum", 320, CellAlignment::RightTop, true},
    {EditorKind::UnitDrop, "UnitDrop", 350, CellAlignment::RightTop, true},
}};

constexpr const EditorKindRow& EditorKindInfo(EditorKind kind) {
    return kEditorKinds[static_cast<std::size_t>(kind)];
}

// The kind a ControlType value names; None for any other text.
constexpr EditorKind EditorKindNamed(std::string_view name) {
    if (name.empty()) return EditorKind::None;
    for (const EditorKindRow& row : kEditorKinds) {
        if (row.name == name) return row.kind;
    }
    return EditorKind::None;
}

static_assert([] {
    for (std::size_t i = 0; i < kEditorKinds.size(); ++i) {
        if (static_cast<std::size_t>(kEditorKinds[i].kind) != i) return false;
        if (i > 0 && EditorKindNamed(kEditorKinds[i].name) != kEditorKinds[i].kind) return false;
    }
    return true;
}());

}  // namespace tabulon
