#include "unit_drop_cell.h"

#include <cstddef>

#include "control/control_access.h"
#include "document/editor_kind.h"

namespace tabulon::bench {

bool OpenFirstUnitDropEditor(Generic_SP_Control& control) {
    const DocumentModel& doc = CoreOf(control).doc;
    Form& form = FormOf(control);
    for (int row = 1; row < static_cast<int>(doc.arrRowInfo.size()); ++row) {
        if (doc.arrRowInfo[static_cast<std::size_t>(row)].ControlType != EditorKind::UnitDrop)
            continue;
        for (int col = 1; col <= doc.arrCellNodes.upperBound2(); ++col) {
            if (doc.arrCellNodes.at(row, col).attribute("Enabled").value() != "1") continue;
            form.msgGridView.userClick(row, col);
            if (form.unitDropControl.visible()) return true;
        }
    }
    return false;
}

}  // namespace tabulon::bench
