#include "subcontrols/vertical_scroll.h"

#include <utility>

#include "subcontrols/int16.h"

namespace tabulon {

using widgets::Narrow16;
using widgets::NonNegative;

namespace {
constexpr const char* kTopMarginKey = "TopMargin";
constexpr const char* kBottomMarginKey = "BottomMargin";
// Room for the grid's border and the horizontal bar at the lower end.
constexpr std::int64_t kFitMargin = 300;

bool EveryRowFits(const FlexGrid& grid) {
    const int last = grid.rows() - 1;
    if (!grid.rowIsVisible(last) || !grid.rowIsVisible(1)) return false;
    const std::int64_t bottom = std::int64_t{grid.rowPos(last)} + grid.rowHeight(last);
    return bottom <= grid.height() - kFitMargin;
}
}  // namespace

ctlVerticalScroll::ctlVerticalScroll(std::string name, MessageSink* sink)
    : Component(std::move(name)),
      driver_(vsbGrid_, GridAxis::Rows, {"Vertical scrollbar error - ", "6001", "6002"}, sink) {
    vsbGrid_.onChange = [this] { driver_.BarChanged(); };
    vsbGrid_.onScroll = [this] { driver_.BarChanged(); };
    Layout();
}

void ctlVerticalScroll::SetTopMargin(std::int16_t value) {
    topMargin_ = value;
    Layout();
}

void ctlVerticalScroll::SetBottomMargin(std::int16_t value) {
    bottomMargin_ = value;
    Layout();
}

bool ctlVerticalScroll::RefresVScrollBar(bool moveGrid) {
    return driver_.Refresh(
        moveGrid,
        [this](const FlexGrid& grid) { SetTopMargin(Narrow16(grid.rowHeight(0) - 10LL)); },
        EveryRowFits);
}

void ctlVerticalScroll::ReadProperties(PropertyBag& bag) {
    const std::int16_t top = bag.ReadInt16(kTopMarginKey, kDefaultTopMargin);
    const std::int16_t bottom = bag.ReadInt16(kBottomMarginKey, kDefaultBottomMargin);
    topMargin_ = top;
    bottomMargin_ = bottom;
    Layout();
}

void ctlVerticalScroll::WriteProperties(PropertyBag& bag) const {
    bag.Write(kTopMarginKey, std::int64_t{topMargin_}, std::int64_t{kDefaultTopMargin});
    bag.Write(kBottomMarginKey, std::int64_t{bottomMargin_}, std::int64_t{kDefaultBottomMargin});
}

void ctlVerticalScroll::Layout() {
    const std::int64_t w = width();
    const std::int64_t h = height();
    fraVertical_.setWidth(NonNegative(w));
    fraVertical_.setHeight(NonNegative(h + 90));
    vsbGrid_.move(0, Narrow16(topMargin_ + 90), NonNegative(w),
                  NonNegative(h - Narrow16(topMargin_ + bottomMargin_)));
}

}  // namespace tabulon
