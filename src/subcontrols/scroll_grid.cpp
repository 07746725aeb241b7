#include "subcontrols/scroll_grid.h"

namespace tabulon {

namespace {
thread_local FlexGrid* gobjScrollGrid = nullptr;
}  // namespace

FlexGrid* ScrollGrid() {
    return gobjScrollGrid;
}

void SetScrollGrid(FlexGrid* grid) {
    gobjScrollGrid = grid;
}

}  // namespace tabulon
