// Keeping the control's own scroll bars in step with the grid.
//
// The advanced bars count as shown when hscGrid is visible, exactly as the
// GeneralProperty record reports intScrollBars (1 for a visible hscGrid, else 0);
// vscGrid's own visibility is not consulted.
#include "view/scrollbar_refresh.h"

#include "support/failure.h"

namespace tabulon {

void RefreshAdvanceScrollbars(ControlCore& core) {
    Guarded(core.sink, "1022", [&] {
        Form& form = core.form;
        const int intScrollBars = form.hscGrid.visible() ? 1 : 0;
        if (intScrollBars != 1 || !core.doc.blnGridLoaded) return;
        form.hscGrid.SetScrollEnabled(form.hscGrid.RefresHScrollBar());
        form.vscGrid.SetScrollEnabled(form.vscGrid.RefresVScrollBar());
    });
}

}  // namespace tabulon
