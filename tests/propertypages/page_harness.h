// PageHarness: a property page opened on a real control, the way a design environment
// does: the control is created, initialised and shown, the page is created with the
// same message sink and the control is selected. What selecting recorded is
// forgotten, so tests see only what their own gestures cause.
#pragma once

#include <string>

#include "common/control_harness.h"
#include "propertypages/property_page.h"
#include "subcontrols/numeric_text_box.h"

namespace tabulon::testing {

template <class Page>
class PageHarness : public ControlHarness {
protected:
    PageHarness() {
        page.SelectControls({&control()});
        ClearRecords();
    }

    // Selects the control again, refilling the page from it.
    void Reselect() { page.SelectControls({&control()}); }

    Page page{this->sink};
};

// Replaces the box's text at once as a user's paste; the box is not left, so nothing
// is clamped.
inline void Paste(ctlNumericTextBox& box, const std::string& text) {
    box.textBox().userPaste(text);
}

}  // namespace tabulon::testing
