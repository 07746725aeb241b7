// The GeneralProperty record (tree, filter and grid settings), the column width
// minimum and the control's own scroll bars.
#include <algorithm>
#include <limits>

#include "control/generic_sp_control.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "view/control_core.h"
#include "view/filter.h"

namespace tabulon {

gGeneralProperty_type Generic_SP_Control::GeneralProperty() {
    gGeneralProperty_type value;
    Guarded(core_->sink, "1018", [&] {
        const Form& f = core_->form;
        value.lngTreeViewWidth = f.treTreeView.width();
        value.lngTreeViewStyle = f.treTreeView.style();
        value.blnFilterVisible = ToVariantBool(f.fraFilterView.visible());
        value.strFilterCaption = f.fraFilterView.caption();
        value.strFilterLabel = f.lblFilter.caption();
        value.blnAllowBigSelection = ToVariantBool(f.msgGridView.allowBigSelection());
        value.lngRowHeightMin = f.msgGridView.rowHeightMin();
        // Only the horizontal bar is consulted: both are always shown together.
        value.intScrollBars = f.hscGrid.visible() ? 1 : 0;
        value.lngColWidthMin = core_->intColWidthMin;
    });
    return value;
}

void Generic_SP_Control::SetGeneralProperty(const gGeneralProperty_type& value) {
    Guarded(core_->sink, "1019", [&] {
        Form& f = core_->form;
        // A new width goes through the splitter and its limits; the same width
        // leaves the layout alone.
        const std::int32_t width = f.treTreeView.width();
        if (value.lngTreeViewWidth != width) {
            const long long dx = static_cast<long long>(value.lngTreeViewWidth) - width;
            SplitterDrag(1, 0,
                         static_cast<std::int32_t>(
                             std::clamp<long long>(dx, std::numeric_limits<std::int32_t>::min(),
                                                   std::numeric_limits<std::int32_t>::max())),
                         0);
        }
        f.treTreeView.setStyle(value.lngTreeViewStyle);
        f.fraFilterView.setVisible(value.blnFilterVisible != kFalse);
        f.fraFilterView.setCaption(value.strFilterCaption);
        f.lblFilter.setCaption(value.strFilterLabel);
        LayoutGridArea(*core_);
        f.msgGridView.setAllowBigSelection(value.blnAllowBigSelection != kFalse);
        f.msgGridView.setRowHeightMin(value.lngRowHeightMin);
        // Narrowing is this procedure's failure (1019); setting the widths has its own.
        SetColWidthMin(ToInt16(value.lngColWidthMin));
        ShowScrollBars(value.intScrollBars != 0);
        core_->host.PropertyChanged("GeneralProperty");
    });
}

void Generic_SP_Control::SetColWidthMin(std::int16_t width) {
    Guarded(core_->sink, "1020", [&] {
        core_->intColWidthMin = width;
        KeepDefaultColWidth();
        FlexGrid& grid = core_->form.msgGridView;
        for (int c = 0; c < grid.cols(); ++c)
            grid.setColWidth(c, width);
    });
}

void Generic_SP_Control::KeepDefaultColWidth() {
    if (core_->intColWidthMin >= 0) {
        core_->form.msgGridView.setDefaultColWidth(core_->intColWidthMin);
    }
}

void Generic_SP_Control::ShowScrollBars(bool show) {
    Form& f = core_->form;
    f.hscGrid.setVisible(show);
    f.vscGrid.setVisible(show);
    if (show) {
        f.hscGrid.RefresHScrollBar(true);
        f.vscGrid.RefresVScrollBar(true);
    }
}

}  // namespace tabulon
