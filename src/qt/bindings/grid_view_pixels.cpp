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

bool GridView::scrollable(bool cols) const {
    return cols ? grid_.cols() > grid_.fixedCols() : grid_.rows() > grid_.fixedRows();
}

std::int64_t GridView::scrolledBefore(bool cols) const {
    if (!scrollable(cols)) return 0;
    const int fixed = cols ? grid_.fixedCols() : grid_.fixedRows();
    const int first = std::max(cols ? grid_.leftCol() : grid_.topRow(), fixed);
    return axisPos(cols, first) - axisPos(cols, fixed);
}

int GridView::axisEdge(bool cols, std::int64_t twips, std::int64_t before) const {
    const int fixedCount = cols ? grid_.fixedCols() : grid_.fixedRows();
    const int last = std::min(fixedCount, cols ? grid_.cols() : grid_.rows()) - 1;
    const std::int64_t fixed = last < 0 ? 0 : axisPos(cols, last) + axisExtent(cols, last);
    if (twips <= fixed || !scrollable(cols)) return axisToPixels(cols, twips);
    return axisToPixels(cols, fixed) + axisToPixels(cols, twips - fixed + before) -
           axisToPixels(cols, before);
}

int GridView::rowEdge(std::int64_t y) const {
    return axisEdge(false, y, scrolledBefore(false));
}

int GridView::colEdge(std::int64_t x) const {
    return axisEdge(true, x, scrolledBefore(true));
}

int GridView::shiftInPixels(bool cols, int from) const {
    const std::int64_t before = scrolledBefore(cols);
    const int first = cols ? grid_.leftCol() : grid_.topRow();
    const std::int64_t shift = axisPos(cols, from) - axisPos(cols, first);
    return axisToPixels(cols, before + shift) - axisToPixels(cols, before);
}

}  // namespace tabulon
