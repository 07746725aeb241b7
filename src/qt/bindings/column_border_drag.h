// ColumnBorderDrag: the grid view's column resizing by mouse, on the right border of a
// column header (the fixed rows; the row-caption column's border too).
//
// - Over a border the pointer shows the split cursor. A left press there starts a
//   drag instead of a click; while the button is held a guide line follows the
//   pointer, and the release gives the column its width at press + the distance
//   moved (FlexGrid::userResizeCol, which keeps it within its limits). One drag is one
//   change of the model, whatever the pointer did on the way.
// - A double click on a border fits the column to its widest text (every row's,
//   caption included) with the cell padding, through the same model gesture.
// - A border is grabbed up to kGrabPixels either side of it; where borders lie that
//   close together the nearest wins, the later column on a tie.
#pragma once

#include <QPoint>
#include <cstdint>

#include "qt/bindings/binding_host.h"

class QMouseEvent;
class QPainter;

namespace tabulon {

class FlexGrid;
class GridView;

class ColumnBorderDrag {
public:
    static constexpr int kGrabPixels = 3;

    ColumnBorderDrag(BindingHost& host, FlexGrid& grid, GridView& view);

    // The column whose right border is under a view position in the fixed rows;
    // -1 elsewhere.
    int borderAt(const QPoint& position) const;
    // The width (twips) that fits the column's widest text.
    std::int32_t fittingWidth(int col) const;
    bool dragging() const { return col_ >= 0; }

    // Each returns true when it took the event (the view then does nothing more).
    bool press(QMouseEvent* event);
    bool move(QMouseEvent* event);
    bool release(QMouseEvent* event);
    bool doubleClick(QMouseEvent* event);
    // The guide line of a drag in progress.
    void paint(QPainter& painter) const;

private:
    int guideX() const;

    BindingHost& host_;
    FlexGrid& grid_;
    GridView& view_;
    int col_ = -1;  // the column being resized; -1 when no drag
    int pressX_ = 0;
    int pointerX_ = 0;
    std::int32_t widthAtPress_ = 0;
};

}  // namespace tabulon
