#include "subcontrols/horizontal_scroll.h"

#include <utility>

#include "subcontrols/int16.h"

namespace tabulon {

using widgets::Narrow16;
using widgets::NonNegative;

namespace {
constexpr const char* kLeftMarginKey = "LeftMargin";
constexpr const char* kRightMarginKey = "RightMargin";
// Room for the grid's border and the vertical bar at the right end.
constexpr std::int64_t kFitMargin = 300;
}  // namespace

bool FirstColumnVisible(const FlexGrid& grid) {
    for (int c = 1; c < grid.cols(); ++c) {
        if (grid.colWidth(c) >= 1) return grid.colIsVisible(c);
    }
    return false;
}

int LastVisibleColumn(const FlexGrid& grid) {
    for (int c = grid.cols() - 1; c >= 1; --c) {
        if (grid.colWidth(c) >= 1) return grid.colIsVisible(c) ? c : -1;
    }
    return -1;
}

ctlHorizontalScroll::ctlHorizontalScroll(std::string name, MessageSink* sink)
    : Component(std::move(name)),
      driver_(hsbGridHScrollBar_, GridAxis::Columns,
              {"Horizontal scrollbar error - ", "5001", "5002"}, sink) {
    hsbGridHScrollBar_.onChange = [this] { driver_.BarChanged(); };
    hsbGridHScrollBar_.onScroll = [this] { driver_.BarChanged(); };
    Layout();
}

void ctlHorizontalScroll::SetLeftMargin(std::int16_t value) {
    leftMargin_ = value;
    fraInside_.setWidth(NonNegative(Narrow16(leftMargin_ + 40)));
    hsbGridHScrollBar_.setLeft(leftMargin_);
    hsbGridHScrollBar_.setWidth(NonNegative(width() - Narrow16(leftMargin_ + rightMargin_)));
    PlaceLines();
}

void ctlHorizontalScroll::SetRightMargin(std::int16_t value) {
    rightMargin_ = value;
    hsbGridHScrollBar_.setWidth(NonNegative(std::int64_t{width()} - leftMargin_ - rightMargin_));
    PlaceLines();
}

bool ctlHorizontalScroll::RefresHScrollBar(bool moveGrid) {
    return driver_.Refresh(
        moveGrid,
        [this](const FlexGrid& grid) { SetLeftMargin(Narrow16(grid.colWidth(0) - 10LL)); },
        [](const FlexGrid& grid) {
            if (!FirstColumnVisible(grid)) return false;
            const int last = LastVisibleColumn(grid);
            if (last < 1) return false;
            const std::int64_t right = std::int64_t{grid.colPos(last)} + grid.colWidth(last);
            return right <= grid.width() - kFitMargin;
        });
}

void ctlHorizontalScroll::ReadProperties(PropertyBag& bag) {
    const std::int16_t left = bag.ReadInt16(kLeftMarginKey, kDefaultLeftMargin);
    const std::int16_t right = bag.ReadInt16(kRightMarginKey, kDefaultRightMargin);
    leftMargin_ = left;
    rightMargin_ = right;
    Layout();
}

void ctlHorizontalScroll::WriteProperties(PropertyBag& bag) const {
    bag.Write(kLeftMarginKey, std::int64_t{leftMargin_}, std::int64_t{kDefaultLeftMargin});
    bag.Write(kRightMarginKey, std::int64_t{rightMargin_}, std::int64_t{kDefaultRightMargin});
}

void ctlHorizontalScroll::Layout() {
    const std::int64_t w = width();
    const std::int64_t h = height();
    hsbGridHScrollBar_.move(leftMargin_, 0, NonNegative(w - leftMargin_ - rightMargin_),
                            NonNegative(h - 30));
    fraInside_.setWidth(NonNegative(Narrow16(leftMargin_ + 50)));
    fraInside_.setHeight(NonNegative(h + 60));
    fraHorizontalScroll_.setHeight(NonNegative(h + 90));
    fraHorizontalScroll_.setWidth(NonNegative(w + 30));
    PlaceLines();
}

void ctlHorizontalScroll::PlaceLines() {
    const ScrollBar& bar = hsbGridHScrollBar_;
    linHorizontal_.move(bar.left(), bar.top(), bar.width(), 0);
    linVertical_.move(bar.left(), bar.top(), 0, bar.height());
}

}  // namespace tabulon
