// GridBinding: binds the control's grid (msgGridView) to a GridView. A Cell change
// repaints that cell's rectangle only, a Current change what the move changed
// (GridView::updateCurrent); any other change of the grid repaints the view.
#pragma once

#include "platform/flex_grid.h"
#include "qt/bindings/component_binding.h"
#include "qt/bindings/grid_view.h"

namespace tabulon {

class GridBinding : public ComponentBinding {
    Q_OBJECT

public:
    GridBinding(BindingHost& host, FlexGrid& grid, QWidget* parent);

    GridView* view() const { return view_; }

protected:
    void applyGeometry() override;
    void applyState(const ChangeInfo& change) override;

private:
    GridView* view_;
};

}  // namespace tabulon
