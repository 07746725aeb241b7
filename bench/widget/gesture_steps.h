// The steps the gestures are made of, for any Subject: finding enabled cells in a
// grid's contents, clicks and keys sent as real Qt events, opening a cell's editor.
#pragma once

#include <QPoint>
#include <QWidget>
#include <optional>
#include <string>
#include <utility>

#include "grid_contents.h"
#include "subject.h"

namespace tabulon::bench {

using Cell = std::pair<int, int>;  // grid row, column

std::string Where(const Cell& cell);

// A data cell that takes input: in the grid, shown, and in black (not disabled).
bool Enabled(const GridContents& grid, int row, int col);
// The first enabled cell of a row from column from.
std::optional<Cell> EnabledIn(const GridContents& grid, int row, int from = 1);

void ClickAt(QWidget& widget, const QPoint& point);
// A key (or, with text, the key that types it) to the widget with Qt's focus.
void KeyToFocus(Qt::Key key, char text = 0, Qt::KeyboardModifiers modifiers = Qt::NoModifier);

// Changes the open editor's value and puts it back, so that leaving commits a value
// the user typed and the document stays valid: the last character of a text field
// deleted and typed again; the last entry of a pick list.
void Retype();

// Opens the editor on a cell with a click (set-up, not timed); what went wrong.
std::string Open(Subject& s, const Cell& cell);

// Shows a tree node's grid with a click on its item, unless it is shown (set-up, not
// timed); what went wrong.
std::string ShowNode(Subject& s, int node);

// Empty when condition holds, else what.
std::string Expect(bool condition, const std::string& what);

}  // namespace tabulon::bench
