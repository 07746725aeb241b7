// ctlHorizontalScroll: the control's own horizontal scroll bar, placed under the grid.
// It drives the grid of ScrollGrid() by whole columns (see ScrollBarDriver): its
// maximum is the number of scrollable columns not fully shown and each change of its
// value by the user moves the grid's left column by one. The margins line the bar up
// with the grid's data area: LeftMargin leaves out the header column, RightMargin the
// space at the right end. It raises no events of its own; the control listens to the
// inner bar (bar()) and to the component's focus.
//
// Decisions:
// - Messages ("Horizontal scrollbar error - " + "5001" for the change steps, + "5002"
//   for RefresHScrollBar, both critical) go to the MessageSink given to the
//   constructor or to setMessageSink; without one, failures are caught silently.
// - RefresHScrollBar called without an argument runs with move grid false: it only
//   recomputes the bar and does not step the grid.
// - A new instance starts with the property-bag defaults (LeftMargin 1100,
//   RightMargin 0), as if read from an empty bag.
// - When every column fits, the change steps end with maximum 1 and value 1 (the last
//   column counts as hidden once and the probe cannot move the grid), not maximum 0;
//   RefresHScrollBar's "both are 1" rule turns that into false. The steps are kept as
//   they are rather than forcing 0, so a host reading the bar sees what they give.
// - Sizes that would come out negative (a control narrower than its margins, or
//   lower than 30 twips) are applied as 0 instead of failing.
// - Sums of two 16-bit values (LeftMargin + 40, LeftMargin + 50, LeftMargin +
//   RightMargin) are 16-bit: a sum beyond 32767 throws OverflowFailure. Differences
//   with the control's width are not narrowed.
//
// Layout, in twips: bar left = LeftMargin, width = width - LeftMargin - RightMargin,
// height = height - 30, top 0; fraInside width = LeftMargin + 50 (the LeftMargin Let
// uses + 40; both are kept) and height = height + 60; fraHorizontalScroll width =
// width + 30 and height = height + 90; linHorizontal runs along the bar's top edge and
// linVertical along its left edge.
#pragma once

#include <cstdint>
#include <string>

#include "platform/caption_component.h"
#include "platform/component.h"
#include "platform/flex_grid.h"
#include "platform/property_bag.h"
#include "platform/scroll_bar.h"
#include "subcontrols/scroll_bar_driver.h"
#include "support/message_sink.h"

namespace tabulon {

// Whether the first column after the header that has a width (>= 1) is visible;
// false when every column after the header has width 0 or there is none.
bool FirstColumnVisible(const FlexGrid& grid);
// From the last column down to column 1, the first one with a width (>= 1): its index
// when it is visible, else -1; -1 when there is none.
int LastVisibleColumn(const FlexGrid& grid);

class ctlHorizontalScroll : public Component {
public:
    static constexpr std::int16_t kDefaultLeftMargin = 1100;
    static constexpr std::int16_t kDefaultRightMargin = 0;

    // name: the component's name on the control's form (e.g. "hscGrid").
    explicit ctlHorizontalScroll(std::string name, MessageSink* sink = nullptr);
    ctlHorizontalScroll(const ctlHorizontalScroll&) = delete;
    ctlHorizontalScroll& operator=(const ctlHorizontalScroll&) = delete;

    // Where the error messages go (null: nowhere).
    void setMessageSink(MessageSink* sink) { driver_.setMessageSink(sink); }

    // Space before the bar, twips. The Let stores it, sets fraInside's width to
    // value + 40, the bar's left to value and its width to width - (value +
    // RightMargin). Overflow of the 16-bit sums throws, leaving the value stored.
    std::int16_t LeftMargin() const { return leftMargin_; }
    void SetLeftMargin(std::int16_t value);
    // Space after the bar, twips. The Let stores it and sets the bar's width to
    // width - LeftMargin - value.
    std::int16_t RightMargin() const { return rightMargin_; }
    void SetRightMargin(std::int16_t value);
    // Recomputes the bar from ScrollGrid() and answers whether it is needed. No grid
    // or no columns: false. Otherwise LeftMargin becomes the width of column 0 - 10,
    // the change steps run with move grid = moveGrid, and the answer is false when
    // the maximum is below 1, when maximum and value are both 1, or when every column
    // fits (FirstColumnVisible, and LastVisibleColumn >= 1 ends no further right than
    // the grid's width - 300). Failures: "Horizontal scrollbar error - 5002", false.
    bool RefresHScrollBar(bool moveGrid = false);
    // The bar's enabled state.
    bool ScrollEnabled() const { return hsbGridHScrollBar_.enabled(); }
    void SetScrollEnabled(bool enabled) { hsbGridHScrollBar_.setEnabled(enabled); }

    // Settings kept by the form: "LeftMargin" (default 1100) then "RightMargin"
    // (default 0), as 16-bit integers. Read stores both and lays the bar out; a stored
    // value that is not a 16-bit integer throws RuntimeFailure and changes nothing.
    // Write leaves out values equal to their defaults.
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // --- inner parts, for views and tools
    // The platform bar: user gestures on it (userStep, userSetValue, userDrag) run
    // the change steps.
    ScrollBar& bar() { return hsbGridHScrollBar_; }
    const ScrollBar& bar() const { return hsbGridHScrollBar_; }
    const Frame& fraHorizontalScroll() const { return fraHorizontalScroll_; }
    const Frame& Frame2() const { return frame2_; }
    const Frame& fraInside() const { return fraInside_; }
    const Component& linHorizontal() const { return linHorizontal_; }
    const Component& linVertical() const { return linVertical_; }
    // Busy flag, move-grid flag, previous value and the grid taken.
    const ScrollBarDriver& driver() const { return driver_; }

protected:
    void geometryChanged() override { Layout(); }

private:
    void Layout();
    void PlaceLines();

    Frame fraHorizontalScroll_{"fraHorizontalScroll", ""};
    Frame frame2_{"Frame2", ""};
    Frame fraInside_{"fraInside", ""};
    ScrollBar hsbGridHScrollBar_{"hsbGridHScrollBar"};
    Component linHorizontal_{"linHorizontal"};
    Component linVertical_{"linVertical"};
    ScrollBarDriver driver_;
    std::int16_t leftMargin_ = kDefaultLeftMargin;
    std::int16_t rightMargin_ = kDefaultRightMargin;
};

}  // namespace tabulon
