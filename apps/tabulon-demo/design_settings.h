// DesignSettings: the control's design-time settings as the demo keeps them between
// runs, the way a form designer keeps those of a control placed on a form: restored
// into every control the demo makes, and written only when the user changes them on
// a property page.
//
// Why not save at exit: the control's save reads most settings back from its parts,
// and some parts change while the control is used. The tree widens by a third of
// every widening of the control, and a tree node's filter caption replaces the filter
// label. Saving at every exit carries one run's layout and document into the next
// start, whose layout widens the tree again, run after run, until the layout breaks.
//
// So when a page changes a record, the record keys ("GeneralProperty.*",
// "ButtonProperty.*") as they stand are compared with the same keys as they stood when
// the page opened, and only those that differ are written to the store; every other
// key keeps the value it was restored with. The scroll bars' margins, which the layout
// derives from the grid, are never written.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/property_bag.h"

namespace tabulon {
class SpreadsheetWidget;
}

namespace tabulon::demo {

class DesignSettings {
public:
    // store must outlive this object.
    explicit DesignSettings(PropertyBag& store) : store_(store) {}

    // What each new control is restored from.
    PropertyBag& store() { return store_; }

    // A property page opens on control: its settings are remembered as they are.
    void pageOpened(SpreadsheetWidget& control);
    // A page changed a record of control: the keys whose value differs from the one
    // remembered are written to the store, and the settings are remembered anew.
    // Returns the keys written, in order.
    std::vector<std::string> recordChanged(SpreadsheetWidget& control);

private:
    // Every record key the control saves, with its value and its default.
    using Snapshot = std::map<std::string, std::pair<PropertyValue, PropertyValue>>;
    static Snapshot Take(SpreadsheetWidget& control);

    PropertyBag& store_;
    Snapshot atOpen_;
};

}  // namespace tabulon::demo
