// The colours of a value cell, in one place: its text says whether the cell may be
// edited, its background whether its value is valid. The grid fill paints them from
// the document; a commit repaints the background from the editor's check.
#pragma once

#include "platform/flex_grid.h"

namespace tabulon {

inline constexpr Rgb kEnabledTextColor = 0x000000;
inline constexpr Rgb kDisabledTextColor = 0x808080;
inline constexpr Rgb kValidBackColor = 0xFFFFFF;
inline constexpr Rgb kInvalidBackColor = 0xFF0000;

constexpr Rgb CellTextColor(bool enabled) {
    return enabled ? kEnabledTextColor : kDisabledTextColor;
}
constexpr Rgb CellBackColor(bool valid) {
    return valid ? kValidBackColor : kInvalidBackColor;
}

}  // namespace tabulon
