// Form: every child component of the control, placed at its design-time geometry
// and sharing one focus manager. The control's own size is the `control` component.
//
// Tab order (decision): tree, filter combo, the four cell editors, grid, then the
// buttons Print, OK, Cancel, Help. A focused component that is hidden or disabled
// hands the focus on along it (FocusManager), so hiding the open editor leaves the
// grid focused.
#pragma once

#include <array>
#include <vector>

#include "platform/button.h"
#include "platform/caption_component.h"
#include "platform/combo_box.h"
#include "platform/component.h"
#include "platform/flex_grid.h"
#include "platform/image_list.h"
#include "platform/text_box.h"
#include "platform/tree_view.h"
#include "subcontrols/horizontal_scroll.h"
#include "subcontrols/vertical_scroll.h"
#include "unitinput/unit_drop_box.h"
#include "unitinput/unit_num_box.h"

namespace tabulon {

struct Form {
    Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    FocusManager focus;
    Component control{"UserControl"};

    TreeView treTreeView{"treTreeView"};
    ImageList ilsTreeView;
    Component imgSplitter{"imgSplitter"};

    Frame fraFilterView{"fraFilterView", ""};
    Label lblFilter{"lblFilter", ""};
    ComboBox cboFilter{"cboFilter"};

    FlexGrid msgGridView{"msgGridView"};

    TextBox txtTextBoxControl{"txtTextBoxControl"};
    ComboBox cboComboBoxControl{"cboComboBoxControl"};
    UnitNumBox unitNumControl{"unitNumControl"};
    UnitDropBox unitDropControl{"unitDropControl"};
    UnitNumBox unitNumForCnv{"unitNumForCnv"};
    UnitDropBox unitDropForCnv{"unitDropForCnv"};

    ctlHorizontalScroll hscGrid{"hscGrid"};
    ctlVerticalScroll vscGrid{"vscGrid"};

    Button cmdPrint{"cmdPrint", ""};
    Button cmdOK{"cmdOK", ""};
    Button cmdCancel{"cmdCancel", ""};
    Button cmdHelp{"cmdHelp", ""};

    // Every child in design-table order (for layout dumps and views).
    std::vector<Component*> children();
    // True when any of the four cell editors is visible.
    bool anyEditorVisible() const;
    // The four cell editors: text, pick list, unit number, unit drop-down.
    std::array<Component*, 4> cellEditors();
    bool isCellEditor(const Component& component) const;

private:
    // Tells the grid how much of its right edge the visible vertical bar covers.
    void CoverGrid();
};

}  // namespace tabulon
