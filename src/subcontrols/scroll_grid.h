// The grid the control's own scroll bars drive, one per thread. The control points
// it at its grid when it is created and clears it when it ends; with several controls
// on one thread the last one created or ended decides (the bars of every control on
// that thread then refresh against that grid).
#pragma once

namespace tabulon {

class FlexGrid;

// The grid set last on this thread; null when none is set or it was cleared.
FlexGrid* ScrollGrid();
// Points this thread's reference at grid (null clears it). The grid is not owned.
void SetScrollGrid(FlexGrid* grid);

}  // namespace tabulon
