// The custom-painted grid for assistive technology: a QAccessible table over the
// GridView, with one cell interface per grid cell.
//
// The table's rows and columns are the grid's scrollable ones (cellAt(0, 0) is the
// first value); its children are every cell of the grid in row order, fixed ones
// included, which have the roles ColumnHeader (row 0) and RowHeader (column 0). A
// cell's name is its text, its description its unit and the reason it needs
// correcting (CellDescription); its state says whether it is current (focused while
// the grid has the focus), selected, or out of view. Cells read the grid model live;
// their interfaces are made on demand and dropped when the grid's shape changes.
//
// Events, only while an assistive technology listens (QAccessible::isActive): Focus
// for the current cell when it changes or the grid takes the focus, NameChanged and
// DescriptionChanged for a cell that changed, a model reset when rows or columns
// change.
#pragma once

#include "platform/observable.h"

namespace tabulon {

class GridView;

// Makes QAccessible create the table interface for every GridView (idempotent).
void InstallGridAccessibility();

// Tells assistive technology what changed in the view's grid.
void NotifyGridAccessibility(GridView& view, const ChangeInfo& change);
// The view took the keyboard focus.
void NotifyGridFocus(GridView& view);

}  // namespace tabulon
