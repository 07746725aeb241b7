// Every notification of the child components, wired to its handler in one place.
#include "control/generic_sp_control.h"
#include "control/save_gate.h"
#include "platform/key_codes.h"
#include "view/cell_editors.h"
#include "view/cell_selection.h"
#include "view/commit.h"
#include "view/control_core.h"
#include "view/filter.h"
#include "view/grid_events.h"
#include "view/node_selection.h"

namespace tabulon {

namespace {

// Space on a button runs its click handler once, from the key-press handler; other
// keys do nothing in the control.
std::function<void(int&)> SpaceClicks(std::function<void()> click) {
    return [click = std::move(click)](int& keyAscii) {
        if (keyAscii == keys::kSpace) click();
    };
}

}  // namespace

void Generic_SP_Control::WireNotifications() {
    ControlCore& core = *core_;
    Form& f = core.form;

    FlexGrid& grid = f.msgGridView;
    grid.onEnterCell = [&core] { OpenCellEditor(core); };
    grid.onLeaveCell = [&core] { CommitCellEdit(core); };
    grid.onClick = [&core] { GridClick(core); };
    grid.onRowColChange = [&core] { GridRowColChange(core); };
    grid.onScroll = [&core] { GridScroll(core); };
    grid.onMouseMove = [&core](int button, int shift, std::int32_t x, std::int32_t y) {
        GridMouseMove(core, button, shift, x, y);
    };
    grid.onUserColResize = [&core](int) { GridUserColResize(core); };
    grid.onSelChange = [&core] { GridSelChange(core); };

    f.hscGrid.onGotFocus = [&core] { ScrollBarGotFocus(core); };
    f.vscGrid.onGotFocus = [&core] { ScrollBarGotFocus(core); };

    f.treTreeView.onNodeClick = [&core](int index) { SelectTreeNode(core, index); };
    f.treTreeView.onCollapse = [&core](int) { TreeCollapsed(core); };

    f.cboFilter.onClick = [&core] { cboFilter_Click(core); };

    const std::function<void()> ok = [&core] { OKButtonClick(core); };
    const std::function<void()> print = [&core] { PrintButtonClick(core); };
    // Cancel and Help only tell the host: no commit, no validation, no document.
    const std::function<void()> cancel = [&core] { core.host.CancelClick(); };
    const std::function<void()> help = [&core] { core.host.HelpClick(); };
    f.cmdOK.onClick = ok;
    f.cmdOK.onKeyPress = SpaceClicks(ok);
    f.cmdPrint.onClick = print;
    f.cmdPrint.onKeyPress = SpaceClicks(print);
    f.cmdCancel.onClick = cancel;
    f.cmdCancel.onKeyPress = SpaceClicks(cancel);
    f.cmdHelp.onClick = help;
    f.cmdHelp.onKeyPress = SpaceClicks(help);
}

}  // namespace tabulon
