// GridView: where the rows and columns lie in pixels.
//
// The fixed rows and columns lie where their twips put them. The scrollable ones are
// counted from the first scrollable row (column), scrolled out or not, not from the
// view's edge: counted from the edge, a row 350 twips high is 23 pixels at one scroll
// position and 24 at the next, its text moves by a pixel as it scrolls, and a scroll
// moves the rows in view by different numbers of pixels, so that most of them must be
// painted again. Laid this way, each keeps its size wherever it is scrolled to and a
// scroll moves all of them alike.
#include <algorithm>
#include <cstdint>

#include "qt/bindings/grid_view.h"

namespace tabulon {

std::int64_t GridView::axisPos(bool cols, int index) const {
    return cols ? grid_.colPos(index) : grid_.rowPos(index);
}

std::int64_t GridView::axisExtent(bool cols, int index) const {
    return cols ? grid_.colWidth(index) : grid_.rowHeight(index);
}

int GridView::axisToPixels(bool cols, std::int64_t twips) const {
    return cols ? host_.scale().toPixelsX(twips) : host_.scale().toPixelsY(twips);
}

// The fixed ones end where the first scrollable one in view begins.
GridView::AxisPixels GridView::axisPixels(bool cols) const {
    AxisPixels axis;
    axis.cols = cols;
    const int fixed = cols ? grid_.fixedCols() : grid_.fixedRows();
    axis.scrollable = (cols ? grid_.cols() : grid_.rows()) > fixed;
    if (!axis.scrollable) return axis;
    const int first = std::max(cols ? grid_.leftCol() : grid_.topRow(), fixed);
    axis.fixed = axisPos(cols, first);
    axis.before = axis.fixed - axisPos(cols, fixed);
    axis.fixedPixels = axisToPixels(cols, axis.fixed);
    axis.beforePixels = axisToPixels(cols, axis.before);
    return axis;
}

int GridView::edge(const AxisPixels& axis, std::int64_t twips) const {
    if (!axis.scrollable || twips <= axis.fixed) return axisToPixels(axis.cols, twips);
    return axis.fixedPixels + axisToPixels(axis.cols, twips - axis.fixed + axis.before) -
           axis.beforePixels;
}

GridView::Span GridView::spanOf(const AxisPixels& axis, int index) const {
    const std::int64_t first = axisPos(axis.cols, index);
    return {index, edge(axis, first), edge(axis, first + axisExtent(axis.cols, index))};
}

int GridView::rowEdge(std::int64_t y) const {
    return edge(axisPixels(false), y);
}

int GridView::colEdge(std::int64_t x) const {
    return edge(axisPixels(true), x);
}

int GridView::shiftInPixels(bool cols, int from) const {
    const AxisPixels axis = axisPixels(cols);
    const int first = cols ? grid_.leftCol() : grid_.topRow();
    const std::int64_t shift = axisPos(cols, from) - axisPos(cols, first);
    return axisToPixels(cols, axis.before + shift) - axis.beforePixels;
}

}  // namespace tabulon
