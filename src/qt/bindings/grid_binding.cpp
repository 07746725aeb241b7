#include "qt/bindings/grid_binding.h"

#include "qt/bindings/grid_accessibility.h"

namespace tabulon {

GridBinding::GridBinding(BindingHost& bindingHost, FlexGrid& grid, QWidget* parent)
    : ComponentBinding(bindingHost, grid, new GridView(bindingHost, grid, parent)),
      view_(static_cast<GridView*>(widget())) {}

void GridBinding::applyGeometry() {
    ComponentBinding::applyGeometry();
    view_->updateAll();
}

void GridBinding::applyState(const ChangeInfo& change) {
    NotifyGridAccessibility(*view_, change);
    if (change.kind == Change::Cell) {
        view_->updateCell(change.row, change.col);
        return;
    }
    view_->updateAll();
}

}  // namespace tabulon
