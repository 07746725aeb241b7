// ScrollBarDriver: how one of the control's own scroll bars follows and moves the
// grid along one axis (columns for the horizontal bar, rows for the vertical one).
// ctlHorizontalScroll and ctlVerticalScroll each own one and differ only in the axis,
// their margins and their "does everything fit" test.
//
// The bar's range is not a pixel range: its maximum counts the scrollable columns
// (rows) not shown, its value follows the grid's first shown one, and every change of
// the value by the user moves the grid by exactly one step, whatever the distance.
//
// Kept behaviours, on purpose:
// - The grid is taken from ScrollGrid() at the first change and kept from then on
//   (also when it was null then); the refresh reads ScrollGrid() every time.
//   Decision: the kept grid may be another control's (the last one created on the
//   thread); once that control has ended, a change of the bar moves nothing and
//   leaves the bar as it is.
// - The first visible scrollable index is recorded only while the recorded offset is
//   still 0, so when the first scrollable index is itself visible the offset is that
//   of the next visible one.
// - When the last index is visible, the grid really is moved one step further for a
//   moment to learn whether it can scroll on (its Scroll notification runs twice).
// - A failure inside the change steps leaves the busy flag set: from then on every
//   change of that bar stops at once and no longer moves the grid.
// - A step forward is tried whenever the first shown index is not greater than the
//   count. It never is, so when the first shown index is already the last one the
//   grid refuses the write: that is a failure of the change steps like any other
//   (message with the change code, bar stuck busy). User gestures cannot get there
//   (the bar then sits at its maximum); only code that raises the bar's value can.
#pragma once

#include <functional>
#include <string>

#include "platform/flex_grid.h"
#include "platform/scroll_bar.h"
#include "support/message_sink.h"

namespace tabulon {

enum class GridAxis { Columns, Rows };

class ScrollBarDriver {
public:
    // Texts of the critical messages: prefix + changeCode for a failure in the change
    // steps, prefix + refreshCode for one in the refresh.
    struct ErrorTexts {
        std::string prefix;
        std::string changeCode;
        std::string refreshCode;
    };

    // bar must outlive the driver. Messages go to sink; with no sink a failure is
    // still caught (and the busy flag still stays set) but nothing is shown.
    ScrollBarDriver(ScrollBar& bar, GridAxis axis, ErrorTexts texts, MessageSink* sink);
    ScrollBarDriver(const ScrollBarDriver&) = delete;
    ScrollBarDriver& operator=(const ScrollBarDriver&) = delete;

    void setMessageSink(MessageSink* sink) { sink_ = sink; }

    // The bar's Change and Scroll notifications. While busy (a change is running, or
    // one failed) it only sets move grid and returns. Otherwise it moves the grid one
    // step when move grid is set (forward when the value rose since the last completed
    // change, else back unless already at the first scrollable index), recomputes the
    // bar's range and value from the grid, and sets move grid again. Never throws: a
    // failure shows prefix + changeCode.
    void BarChanged();

    // The refresh shared by both bars. Returns false when ScrollGrid() has no index
    // on the axis; otherwise calls alignMargin (the bar lines up with the header),
    // runs BarChanged with move grid set to moveGrid, and answers whether the bar is
    // needed: false when its maximum is below 1, when maximum and value are both 1, or
    // when everythingFits says so. Never throws: a failure shows prefix + refreshCode
    // and answers false.
    bool Refresh(bool moveGrid, const std::function<void(const FlexGrid&)>& alignMargin,
                 const std::function<bool(const FlexGrid&)>& everythingFits);

    // --- state, for views, dumps and tests
    bool busy() const { return busy_; }
    bool moveGrid() const { return moveGrid_; }
    // The bar's value after the last completed change (0 before any).
    int previousValue() const { return previousValue_; }
    bool gridTaken() const { return gridTaken_; }
    FlexGrid* grid() const { return grid_ ? *grid_ : nullptr; }

private:
    void RunChangeSteps();

    ScrollBar& bar_;
    GridAxis axis_;
    ErrorTexts texts_;
    MessageSink* sink_;
    GridHandle grid_;
    bool gridTaken_ = false;
    bool busy_ = false;
    bool moveGrid_ = true;
    int previousValue_ = 0;
};

}  // namespace tabulon
