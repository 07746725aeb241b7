// ppGeneral: the design-time page captioned "General" on which a developer edits the
// GeneralProperty record of the first selected control: tree-view width and style,
// the filter's visibility and texts, big selection, scroll-bar mode, minimum row
// height and column width.
//
// Selection changed fills, in this order, the tree-view width, style, filter visible,
// filter caption and label, big selection, scroll-bar mode, row height and column
// width minimums; then gives txtTreeViewWidth the largest allowed tree-view width as
// its MaxValue and marks the page unchanged. Any edit marks the page changed.
//
// Apply validates the tree-view width (at least 1500, at most the largest allowed
// width), the row height minimum (at least 350) and the column width minimum (at
// least 1080), in that order; the first failure shows its plain message box, marks
// the page changed again and writes nothing. Otherwise the whole record is assigned
// to the first selected control in one GeneralProperty let, and the page is marked
// unchanged. Any other failure shows "Property page error - 3001".
//
// Decisions:
// - The upper bound of the tree-view width is read when applying, from the thread's
//   largest allowed width at that moment (a layout after the selection counts). It is
//   compared as it is: while no control of the thread has laid itself out it is 0, and
//   every width is then refused as greater than 0.
// - Numeric boxes are validated through their Value, so an entry not yet clamped by
//   leaving the box is refused rather than silently corrected; a text whose number
//   does not fit 32 bits fails the apply with 3001.
// - The labels, not named by the layout, are lblStyle, lblTreeViewWidth,
//   lblFilterCaption, lblFilterLabel, lblScrollBars, lblRowHeightMin and
//   lblColWidthMin.
#pragma once

#include "platform/caption_component.h"
#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "platform/text_box.h"
#include "propertypages/property_page.h"
#include "subcontrols/numeric_text_box.h"

namespace tabulon {

class ppGeneral : public PropertyPage {
public:
    static constexpr std::int32_t kMinTreeViewWidth = 1500;
    static constexpr std::int32_t kMinRowHeight = 350;
    static constexpr std::int32_t kMinColWidth = 1080;

    // The page at its design state: nothing selected, unchanged; messages go to sink,
    // which must outlive the page.
    explicit ppGeneral(MessageSink& sink);

    Frame fraTreeViewProperties{"fraTreeViewProperties", "TreeViewProperties"};
    Label lblStyle{"lblStyle", "Style:"};
    ComboBox cboTreeViewStyle{"cboTreeViewStyle"};  // list index = style
    Label lblTreeViewWidth{"lblTreeViewWidth", "TreeViewWidth:"};
    ctlNumericTextBox txtTreeViewWidth{"txtTreeViewWidth"};  // max length 4, min 1500

    Frame fraFilterProperties{"fraFilterProperties", "FilterProperties"};
    CheckBox chkFiltervisible{"chkFiltervisible", "Visible:"};
    Label lblFilterCaption{"lblFilterCaption", "FilterCaption:"};
    TextBox txtFilterCaption{"txtFilterCaption"};
    Label lblFilterLabel{"lblFilterLabel", "FilterLabel:"};
    TextBox txtFilterLabel{"txtFilterLabel"};

    Frame fraGridViewProperties{"fraGridViewProperties", "GridViewProperties"};
    Label lblScrollBars{"lblScrollBars", "ScrollBars:"};
    ComboBox cboScrollBars{"cboScrollBars"};  // "Default" (0), "Advanced" (1)
    CheckBox chkAllowBigSelection{"chkAllowBigSelection", "AllowBigSelection:"};
    Label lblRowHeightMin{"lblRowHeightMin", "RowHeightMin:"};
    ctlNumericTextBox txtRowHeightMin{"txtRowHeightMin"};  // max length 4, min 350
    Label lblColWidthMin{"lblColWidthMin", "ColWidthMin:"};
    ctlNumericTextBox txtColWidthMin{"txtColWidthMin"};  // max length 4, min 1080

private:
    void OnSelectionChanged() override;
    void OnApplyChanges() override;
    // The validation message for the page as it stands; "" when it may be applied.
    std::string ValidationMessage() const;
};

}  // namespace tabulon
