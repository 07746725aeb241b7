#include "qt/bindings/grid_binding.h"

#include "qt/bindings/grid_accessibility.h"

namespace tabulon {

GridBinding::GridBinding(BindingHost& bindingHost, FlexGrid& grid, QWidget* parent)
    : ComponentBinding(bindingHost, grid, new GridView(bindingHost, grid, parent)),
      view_(static_cast<GridView*>(widget())) {}

// A layout moves and sizes the grid in several steps: placed once, where it ends, Qt
// does not repaint what the steps uncover on the way (the buttons below, the frame
// above).
void GridBinding::applyGeometry() {
    host().mirrorLater(this, [this] {
        ComponentBinding::applyGeometry();
        view_->updateAll();
    });
}

void GridBinding::applyState(const ChangeInfo& change) {
    NotifyGridAccessibility(*view_, change);
    switch (change.kind) {
        case Change::Cell:
            view_->updateCell(change.row, change.col);
            break;
        case Change::Scroll:
            view_->updateScroll();
            break;
        case Change::Current:
            view_->updateCurrent();
            break;
        default:
            view_->updateAll();
    }
}

}  // namespace tabulon
