// ctlVerticalScroll: the control's own vertical scroll bar, placed right of the grid.
// The same design as ctlHorizontalScroll, by rows: it drives the grid of ScrollGrid()
// one row per change of its value (see ScrollBarDriver). TopMargin leaves out the
// header row, BottomMargin the space at the lower end. It raises no events of its own.
//
// Differences from the horizontal bar, and decisions:
// - RefresVScrollBar sets TopMargin to the height of row 0 - 10, and decides that
//   every row fits when the last row and row 1 are both visible and the last row's
//   bottom edge is no lower than the grid's height - 300; zero-height rows are not
//   skipped.
// - Messages: "Vertical scrollbar error - " + "6001" (change steps) or "6002"
//   (refresh), critical, through the MessageSink given to the constructor or to
//   setMessageSink; without one, failures are caught silently.
// - RefresVScrollBar called without an argument runs with move grid false.
// - A new instance starts with the property-bag defaults (both margins 0).
// - Both margin Lets store the value and re-apply the whole layout.
// - Sizes that would come out negative are applied as 0; the 16-bit sums TopMargin +
//   90 and TopMargin + BottomMargin beyond 32767 throw OverflowFailure.
//
// Layout, in twips: fraVertical width = width, height = height + 90; bar left 0,
// width = width, top = TopMargin + 90, height = height - (TopMargin + BottomMargin).
#pragma once

#include <cstdint>
#include <string>

#include "platform/caption_component.h"
#include "platform/component.h"
#include "platform/property_bag.h"
#include "platform/scroll_bar.h"
#include "subcontrols/scroll_bar_driver.h"
#include "support/message_sink.h"

namespace tabulon {

class ctlVerticalScroll : public Component {
public:
    static constexpr std::int16_t kDefaultTopMargin = 0;
    static constexpr std::int16_t kDefaultBottomMargin = 0;

    // name: the component's name on the control's form (e.g. "vscGrid").
    explicit ctlVerticalScroll(std::string name, MessageSink* sink = nullptr);
    ctlVerticalScroll(const ctlVerticalScroll&) = delete;
    ctlVerticalScroll& operator=(const ctlVerticalScroll&) = delete;

    // Where the error messages go (null: nowhere).
    void setMessageSink(MessageSink* sink) { driver_.setMessageSink(sink); }

    // Space above the bar, twips; the Let stores it and lays the bar out (overflow of
    // the 16-bit sums throws, leaving the value stored).
    std::int16_t TopMargin() const { return topMargin_; }
    void SetTopMargin(std::int16_t value);
    // Space below the bar, twips; the Let stores it and lays the bar out.
    std::int16_t BottomMargin() const { return bottomMargin_; }
    void SetBottomMargin(std::int16_t value);
    // Recomputes the bar from ScrollGrid() and answers whether it is needed; see the
    // header comment and ctlHorizontalScroll::RefresHScrollBar. Failures:
    // "Vertical scrollbar error - 6002", false.
    bool RefresVScrollBar(bool moveGrid = false);
    // The bar's enabled state.
    bool ScrollEnabled() const { return vsbGrid_.enabled(); }
    void SetScrollEnabled(bool enabled) { vsbGrid_.setEnabled(enabled); }

    // Settings kept by the form: "TopMargin" then "BottomMargin" (defaults 0), as
    // 16-bit integers. Read stores both and lays the bar out; a stored value that is
    // not a 16-bit integer throws RuntimeFailure and changes nothing. Write leaves out
    // values equal to their defaults.
    void ReadProperties(PropertyBag& bag);
    void WriteProperties(PropertyBag& bag) const;

    // --- inner parts, for views and tools
    ScrollBar& bar() { return vsbGrid_; }
    const ScrollBar& bar() const { return vsbGrid_; }
    const Frame& fraVertical() const { return fraVertical_; }
    const ScrollBarDriver& driver() const { return driver_; }

protected:
    void geometryChanged() override { Layout(); }

private:
    void Layout();

    Frame fraVertical_{"fraVertical", ""};
    ScrollBar vsbGrid_{"vsbGrid"};
    ScrollBarDriver driver_;
    std::int16_t topMargin_ = kDefaultTopMargin;
    std::int16_t bottomMargin_ = kDefaultBottomMargin;
};

}  // namespace tabulon
