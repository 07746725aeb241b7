// The General page: change tracking, validation and the one record assignment on
// apply. What the page shows of the control is checked on the dialog
// (tests/demo/page_dialog_test.cpp).
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "propertypages/general_page.h"
#include "propertypages/page_harness.h"
#include "support/numeric.h"

namespace tabulon {
namespace {

using testing::Critical;
using testing::Paste;
using testing::Plain;

using GeneralPage = testing::PageHarness<ppGeneral>;

std::string Text(std::int32_t value) {
    return IntegerToText(value);
}

// Each refused entry shows its one plain message, leaves the control's record and
// the host untouched and keeps the page changed; the first failure ends validation.
TEST_F(GeneralPage, OutOfRangeEntriesAreRefusedWithTheirMessage) {
    const std::int32_t largest = LargestTreeViewWidth();
    ASSERT_GT(largest, 1500);
    struct Case {
        std::vector<std::pair<ctlNumericTextBox*, std::string>> entries;
        std::string message;
    };
    const std::vector<Case> cases = {
        {{{&page.txtTreeViewWidth, "1499"}}, "Tree view width cannot be less than 1500"},
        {{{&page.txtTreeViewWidth, Text(largest + 1)}},
         "Tree view width cannot be greater than " + Text(largest)},
        {{{&page.txtRowHeightMin, "349"}}, "Grid row height cannot be less than 350"},
        {{{&page.txtColWidthMin, "1079"}}, "Grid column width cannot be less than 1080"},
        {{{&page.txtRowHeightMin, "0"}, {&page.txtColWidthMin, "0"}},
         "Grid row height cannot be less than 350"}};
    const gGeneralProperty_type before = control().GeneralProperty();
    for (const Case& c : cases) {
        SCOPED_TRACE(c.message);
        Reselect();
        ClearRecords();
        for (const auto& [box, text] : c.entries)
            Paste(*box, text);
        page.setChanged(false);

        page.ApplyChanges();

        ExpectMessages({Plain(c.message)});
        EXPECT_TRUE(host.events().empty());
        EXPECT_EQ(control().GeneralProperty(), before);
        EXPECT_TRUE(page.changed());
    }
}

// Every field goes to the control in one assignment, the boundary values accepted (the
// control starts above the two minimums, so that they are seen written).
TEST_F(GeneralPage, ApplyWritesEveryFieldFromThePageInOneAssignment) {
    const std::int32_t largest = LargestTreeViewWidth();
    gGeneralProperty_type start = control().GeneralProperty();
    start.lngRowHeightMin = 400;
    start.lngColWidthMin = 1200;
    control().SetGeneralProperty(start);
    Reselect();
    ClearRecords();
    page.cboTreeViewStyle.userPick("2 - tvwPlusMinusText");
    page.chkFiltervisible.userClick();
    page.cboScrollBars.userPick("Advanced");
    page.txtFilterCaption.userPaste("Family");
    page.txtFilterLabel.userPaste("Size");
    page.chkAllowBigSelection.userClick();
    Paste(page.txtTreeViewWidth, Text(largest));
    Paste(page.txtRowHeightMin, "350");
    Paste(page.txtColWidthMin, "1080");

    page.ApplyChanges();

    ExpectMessages({});
    EXPECT_EQ(host.events(),
              (std::vector<RecordedEvent>{{HostEventKind::PropertyChanged, "GeneralProperty"}}));
    const gGeneralProperty_type expected = {largest, 2, kFalse, "Family", "Size",
                                            kTrue,   1, 350,    1080};
    EXPECT_EQ(control().GeneralProperty(), expected);
    EXPECT_FALSE(page.changed());
    EXPECT_FALSE(form().fraFilterView.visible());
    EXPECT_TRUE(form().hscGrid.visible());
}

TEST_F(GeneralPage, AnyOtherFailureWhileApplyingShowsPageError3001) {
    Paste(page.txtRowHeightMin, "9e99");  // beyond 32 bits
    const gGeneralProperty_type before = control().GeneralProperty();
    page.ApplyChanges();
    ExpectMessages({Critical("Property page error - 3001")});
    EXPECT_EQ(control().GeneralProperty(), before);
    EXPECT_TRUE(host.events().empty());
}

}  // namespace
}  // namespace tabulon
