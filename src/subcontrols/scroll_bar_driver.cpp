#include "subcontrols/scroll_bar_driver.h"

#include <algorithm>
#include <utility>

#include "subcontrols/int16.h"
#include "subcontrols/scroll_grid.h"
#include "support/failure.h"

namespace tabulon {

namespace {

using widgets::Narrow16;

// The grid seen along one axis: count, fixed count, first shown scrollable index.
class AxisView {
public:
    AxisView(FlexGrid& grid, GridAxis axis) : grid_(grid), rows_(axis == GridAxis::Rows) {}

    int count() const { return rows_ ? grid_.rows() : grid_.cols(); }
    int fixed() const { return rows_ ? grid_.fixedRows() : grid_.fixedCols(); }
    int first() const { return rows_ ? grid_.topRow() : grid_.leftCol(); }
    void setFirst(int index) {
        if (rows_) {
            grid_.setTopRow(index);
        } else {
            grid_.setLeftCol(index);
        }
    }
    bool visible(int index) const {
        return rows_ ? grid_.rowIsVisible(index) : grid_.colIsVisible(index);
    }

private:
    FlexGrid& grid_;
    bool rows_;
};

FlexGrid& Require(FlexGrid* grid) {
    if (grid == nullptr) throw RuntimeFailure("Object variable not set");
    return *grid;
}

}  // namespace

ScrollBarDriver::ScrollBarDriver(ScrollBar& bar, GridAxis axis, ErrorTexts texts, MessageSink* sink)
    : bar_(bar), axis_(axis), texts_(std::move(texts)), sink_(sink) {}

void ScrollBarDriver::BarChanged() {
    // The writes to the bar below raise nested changes; they end here.
    if (busy_) {
        moveGrid_ = true;
        return;
    }
    try {
        RunChangeSteps();
    } catch (...) {
        if (sink_ != nullptr) sink_->Critical(texts_.prefix + texts_.changeCode);
    }
}

void ScrollBarDriver::RunChangeSteps() {
    busy_ = true;
    if (!gridTaken_) {
        FlexGrid* taken = ScrollGrid();
        if (taken != nullptr) grid_ = taken->handle();
        gridTaken_ = true;
    }
    if (grid_ && *grid_ == nullptr) {  // the kept grid has ended with its control
        busy_ = false;
        moveGrid_ = true;
        return;
    }
    AxisView axis(Require(grid()), axis_);
    const int n = Narrow16(axis.count());
    const int f = Narrow16(axis.fixed());

    if (moveGrid_) {
        const int first = axis.first();
        if (bar_.value() > previousValue_) {
            if (first <= n) axis.setFirst(first + 1);
        } else if (first > f) {
            axis.setFirst(first - 1);
        }
    }

    bar_.setMin(0);
    bar_.setMax(0);
    bar_.setValue(0);

    int hidden = 0;
    int offset = 0;
    for (int i = f; i < n; ++i) {
        if (!axis.visible(i)) {
            ++hidden;
        } else if (offset == 0) {
            offset = i - f;
        }
    }
    bar_.setMax(hidden);
    bar_.setValue(std::min(offset, bar_.max()));

    const int last = n - 1;
    if (axis.visible(last)) {
        ++hidden;
        const int before = axis.first();
        if (before + 1 < n) axis.setFirst(before + 1);  // probe: can the grid go on?
        if (axis.first() == before) {
            bar_.setMax(hidden);
            bar_.setValue(bar_.max());
        } else {
            axis.setFirst(axis.first() - 1);
        }
    }
    if (!axis.visible(last) && axis.first() == f) bar_.setValue(0);

    bar_.setMax(hidden);
    busy_ = false;
    previousValue_ = Narrow16(bar_.value());
    moveGrid_ = true;
}

bool ScrollBarDriver::Refresh(bool moveGrid,
                              const std::function<void(const FlexGrid&)>& alignMargin,
                              const std::function<bool(const FlexGrid&)>& everythingFits) {
    try {
        const FlexGrid& grid = Require(ScrollGrid());
        const int count = axis_ == GridAxis::Rows ? grid.rows() : grid.cols();
        if (count < 1) return false;
        alignMargin(grid);
        moveGrid_ = moveGrid;
        BarChanged();
        if (bar_.max() < 1 || (bar_.max() == 1 && bar_.value() == 1)) return false;
        return !everythingFits(grid);
    } catch (...) {
        if (sink_ != nullptr) sink_->Critical(texts_.prefix + texts_.refreshCode);
        return false;
    }
}

}  // namespace tabulon
