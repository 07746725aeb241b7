#include "view/form.h"

#include "view/design_geometry.h"

namespace tabulon {

namespace {
void Place(Component& c) {
    const design::Placement& p = design::Find(c.name());
    c.move(p.left, p.top, p.width, p.height);
    c.setVisible(p.visible);
}
}  // namespace

Form::Form() {
    control.move(0, 0, design::kControlWidth, design::kControlHeight);
    fraFilterView.setCaption(std::string(design::kFilterCaption));
    lblFilter.setCaption(std::string(design::kFilterLabel));
    cmdPrint.setCaption(std::string(design::kPrintCaption));
    cmdOK.setCaption(std::string(design::kOKCaption));
    cmdCancel.setCaption(std::string(design::kCancelCaption));
    cmdHelp.setCaption(std::string(design::kHelpCaption));
    treTreeView.setStyle(design::kTreeStyle);
    msgGridView.setRowHeightMin(design::kGridRowHeightMin);
    msgGridView.setDefaultRowHeight(design::kGridDefaultRowHeight);
    msgGridView.setAllowBigSelection(design::kGridAllowBigSelection);
    // Nothing takes input before a document is loaded: OK and View/Print do nothing
    // while the grid is disabled, and the filter has no entries yet.
    msgGridView.setEnabled(false);
    cboFilter.setEnabled(false);
    for (Component* c : children()) {
        Place(*c);
        c->attachFocus(&focus);
    }
    control.attachFocus(&focus);
    // The vertical bar lies over the grid's right edge: the grid must scroll its last
    // column out from under it.
    const auto coverGrid = [this](const ChangeInfo& change) {
        if (change.kind == Change::Geometry || change.kind == Change::Everything) CoverGrid();
    };
    vscGrid.Subscribe(coverGrid);
    msgGridView.Subscribe(coverGrid);
    // The editors come right before the grid, so an editor hidden while it has the
    // focus hands it to the grid and the grid's keys keep working. The scroll bars are
    // not tab stops: taking the focus is how the user starts to operate them.
    focus.setTabOrder({&treTreeView, &cboFilter, &txtTextBoxControl, &cboComboBoxControl,
                       &unitNumControl, &unitDropControl, &msgGridView, &cmdPrint, &cmdOK,
                       &cmdCancel, &cmdHelp});
}

std::vector<Component*> Form::children() {
    return {
        &treTreeView,     &imgSplitter,   &fraFilterView,     &lblFilter,          &cboFilter,
        &msgGridView,     &vscGrid,       &hscGrid,           &cmdPrint,           &cmdOK,
        &cmdCancel,       &cmdHelp,       &txtTextBoxControl, &cboComboBoxControl, &unitNumControl,
        &unitDropControl, &unitNumForCnv, &unitDropForCnv};
}

void Form::CoverGrid() {
    const FlexGrid& grid = msgGridView;
    const bool over = vscGrid.visible() && vscGrid.top() < grid.top() + grid.height() &&
                      vscGrid.top() + vscGrid.height() > grid.top();
    msgGridView.setCoveredRight(over ? grid.left() + grid.width() - vscGrid.left() : 0);
}

std::array<Component*, 4> Form::cellEditors() {
    return {&txtTextBoxControl, &cboComboBoxControl, &unitNumControl, &unitDropControl};
}

bool Form::isCellEditor(const Component& component) const {
    return &component == &txtTextBoxControl || &component == &cboComboBoxControl ||
           &component == &unitNumControl || &component == &unitDropControl;
}

bool Form::anyEditorVisible() const {
    return txtTextBoxControl.visible() || cboComboBoxControl.visible() ||
           unitNumControl.visible() || unitDropControl.visible();
}

}  // namespace tabulon
