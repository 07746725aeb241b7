// ppButtonProperty: the design-time page captioned "Advanced" on which a developer
// edits the ButtonProperty record of the first selected control: for each of the four
// buttons whether it is visible and where its left edge lies, and whether the buttons
// keep their default positions.
//
// The buttons are control arrays with a fixed index: 0 View/Print (fraPrint), 1 OK
// (fraOK), 2 Cancel (fraCancel), 3 Help (fraHelp). Each frame holds "Visible:" with
// cboVisible(i) (items "True", "False") and "Left:" with txtLeft(i) (a numeric box,
// maximum length 4, no bounds). The frame "Button Property" holds chkDefault ("Set
// Default Position") above the four button frames.
//
// Rules:
// - Selection changed sets cboVisible(0..3) to "True"/"False" from the four visible
//   flags, chkDefault from blnDefaultPos and the Value of txtLeft(0..3) from the four
//   left positions.
// - chkDefault clicked: every txtLeft(i) is enabled exactly when cboVisible(i) does not
//   read "False" and chkDefault is unchecked; the page is marked changed.
// - cboVisible(i) clicked: the same rule for txtLeft(i) alone; the page is marked
//   changed. A Change of any txtLeft marks the page changed.
// - Apply: when all four lists read "False", the information message "All buttons
//   cannot be hide." (wording kept), the page is marked changed again and nothing is
//   written. Otherwise the record is built from the page (the list texts converted to
//   booleans as the platform converts text) and assigned to the first selected control
//   in one ButtonProperty let; the page is marked unchanged. Any other failure shows
//   "Property page error - 2001". Left positions are not range-checked.
//
// Kept behaviours, on purpose:
// - Selection changed does not mark the page unchanged: the controls' own
//   notifications mark it changed when chkDefault's state changes (its Click) or a
//   txtLeft's text changes, so the page usually opens with something to apply.
// - The lists are set by code, which raises no Click; the enabling rule runs on
//   selection only through chkDefault's Click, that is when its state changes.
//
// Decisions:
// - The labels, not named by the layout, are the arrays lblVisible(i) and lblLeft(i).
// - A list that reads neither "True" nor "False" (nothing chosen yet) does not count
//   as "False" for the enabling rule; on apply its text goes through the platform's
//   text-to-boolean conversion, so an empty list fails the apply (2001).
#pragma once

#include <array>

#include "platform/caption_component.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "propertypages/property_page.h"
#include "subcontrols/numeric_text_box.h"

namespace tabulon {

class ppButtonProperty : public PropertyPage {
public:
    static constexpr std::size_t kButtons = 4;

    // The page at its design state: nothing selected, unchanged, lists empty, every
    // txtLeft enabled; messages go to sink, which must outlive the page.
    explicit ppButtonProperty(MessageSink& sink);

    Frame fraButtonProperty{"fraButtonProperty", "Button Property"};
    CheckBox chkDefault{"chkDefault", "Set Default Position"};
    Frame fraPrint{"fraPrint", "View/Print"};
    Frame fraOK{"fraOK", "OK"};
    Frame fraCancel{"fraCancel", "Cancel"};
    Frame fraHelp{"fraHelp", "Help"};
    std::array<Label, kButtons> lblVisible{{{"lblVisible", "Visible:"},
                                            {"lblVisible", "Visible:"},
                                            {"lblVisible", "Visible:"},
                                            {"lblVisible", "Visible:"}}};
    std::array<ComboBox, kButtons> cboVisible{{ComboBox{"cboVisible"}, ComboBox{"cboVisible"},
                                               ComboBox{"cboVisible"}, ComboBox{"cboVisible"}}};
    std::array<Label, kButtons> lblLeft{
        {{"lblLeft", "Left:"}, {"lblLeft", "Left:"}, {"lblLeft", "Left:"}, {"lblLeft", "Left:"}}};
    std::array<ctlNumericTextBox, kButtons> txtLeft{
        {ctlNumericTextBox{"txtLeft"}, ctlNumericTextBox{"txtLeft"}, ctlNumericTextBox{"txtLeft"},
         ctlNumericTextBox{"txtLeft"}}};

    // The frame of button i (0..3), in index order.
    Frame& buttonFrame(std::size_t i);

private:
    void OnSelectionChanged() override;
    void OnApplyChanges() override;
    // txtLeft(i) enabled exactly when its list does not read "False" and the default
    // position is off.
    void UpdateLeftEnabled(std::size_t i);
};

}  // namespace tabulon
