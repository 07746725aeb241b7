// The mark a value that needs correcting carries besides its red background, so that
// it is seen without telling colours apart (in greyscale, in a high-contrast palette,
// by a person who cannot see red): a small triangle in the top-left corner of the
// cell, or of the editor open over it, filled black or white, whichever stands
// further from the background, and outlined in the other. The editor, which hides
// the cell's red, is framed in that red as well. It is painting only: the cell keeps
// its colours and its text.
#pragma once

#include <QColor>
#include <QPainter>
#include <QRect>
#include <QString>

#include "platform/flex_grid.h"

namespace tabulon {

// The length of the triangle's sides in pixels for a cell or editor of that height.
int ProblemMarkSize(int height);

// Paints the mark, size pixels long, into the top-left corner of rect, over
// background.
void PaintProblemMark(QPainter& painter, const QRect& rect, const QColor& background, int size);

class Generic_SP_Control;

// What a data cell tells besides its text, for the accessible description of the cell
// and of the editor open over it: "Unit: ft. Above the maximum of 3000 ft"; empty when
// it has no unit and no problem.
QString CellDescription(const Generic_SP_Control& control, int row, int col);

// The tooltip of a grid cell: its problem, and its whole text when the cell shows it
// cut; empty when there is neither.
QString CellToolTip(const FlexGrid& grid, int row, int col, bool textCut);

}  // namespace tabulon
