// The Advanced (button) page: filling from the control, the enabling rules of the
// position boxes, the all-hidden refusal and the one record assignment on apply.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "propertypages/button_page.h"
#include "propertypages/page_harness.h"

namespace tabulon {
namespace {

using testing::Critical;
using testing::Information;
using testing::Paste;

using ButtonPage = testing::PageHarness<ppButtonProperty>;

std::array<bool, 4> LeftsEnabled(const ppButtonProperty& page) {
    std::array<bool, 4> enabled{};
    for (std::size_t i = 0; i < 4; ++i)
        enabled[i] = page.txtLeft[i].Enabled();
    return enabled;
}

std::array<bool, 4> ButtonsVisible(Form& form) {
    return {form.cmdPrint.visible(), form.cmdOK.visible(), form.cmdCancel.visible(),
            form.cmdHelp.visible()};
}

// A new control keeps its buttons at default positions: the check box's click on
// selection disables every position box. The page is left changed (kept).
TEST_F(ButtonPage, SelectionShowsTheRecordAndLeavesThePageChanged) {
    const gButtonProperty_type record = control().ButtonProperty();
    const std::array<std::int32_t, 4> lefts = {record.lngPrintLeft, record.lngOKLeft,
                                               record.lngCancelLeft, record.lngHelpLeft};
    for (std::size_t i = 0; i < 4; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(page.cboVisible[i].text(), "True");
        EXPECT_EQ(page.txtLeft[i].Value(), lefts[i]);
    }
    EXPECT_TRUE(page.chkDefault.checked());
    EXPECT_EQ(LeftsEnabled(page), (std::array<bool, 4>{false, false, false, false}));
    EXPECT_TRUE(page.changed());
}

// Lists set by code raise no click: with the check box already unchecked, selection
// leaves the enabling of the position boxes as it was (kept).
TEST_F(ButtonPage, ListsSetOnSelectionDoNotRunTheEnablingRule) {
    gButtonProperty_type record = control().ButtonProperty();
    record.blnDefaultPos = kFalse;
    record.blnHelpVisible = kFalse;
    control().SetButtonProperty(record);
    ppButtonProperty fresh(sink);

    fresh.SelectControls({&control()});

    EXPECT_EQ(fresh.cboVisible[3].text(), "False");
    EXPECT_FALSE(fresh.chkDefault.checked());
    EXPECT_EQ(LeftsEnabled(fresh), (std::array<bool, 4>{true, true, true, true}));
}

TEST_F(ButtonPage, DefaultPositionDisablesEveryLeftAndUncheckingEnablesThoseOfVisibleButtons) {
    page.cboVisible[1].userPick("False");
    page.cboVisible[3].userPick("False");
    EXPECT_EQ(LeftsEnabled(page), (std::array<bool, 4>{false, false, false, false}));

    page.setChanged(false);
    page.chkDefault.userClick();
    EXPECT_EQ(LeftsEnabled(page), (std::array<bool, 4>{true, false, true, false}));
    EXPECT_TRUE(page.changed());

    page.chkDefault.userClick();
    EXPECT_EQ(LeftsEnabled(page), (std::array<bool, 4>{false, false, false, false}));
}

TEST_F(ButtonPage, SettingAListToFalseDisablesItsLeftAtOnce) {
    page.chkDefault.userClick();
    ASSERT_EQ(LeftsEnabled(page), (std::array<bool, 4>{true, true, true, true}));
    page.setChanged(false);

    page.cboVisible[2].userPick("False");
    EXPECT_EQ(LeftsEnabled(page), (std::array<bool, 4>{true, true, false, true}));
    EXPECT_TRUE(page.changed());

    page.cboVisible[2].userPick("True");
    EXPECT_EQ(LeftsEnabled(page), (std::array<bool, 4>{true, true, true, true}));
}

TEST_F(ButtonPage, ThreeHiddenButtonsAreAccepted) {
    for (std::size_t i = 0; i < 3; ++i)
        page.cboVisible[i].userPick("False");

    page.ApplyChanges();

    ExpectMessages({});
    EXPECT_EQ(ButtonsVisible(form()), (std::array<bool, 4>{false, false, false, true}));
    EXPECT_EQ(host.events(),
              (std::vector<RecordedEvent>{{HostEventKind::PropertyChanged, "ButtonProperty"}}));
    EXPECT_FALSE(page.changed());
}

TEST_F(ButtonPage, FourHiddenButtonsAreRefused) {
    const gButtonProperty_type before = control().ButtonProperty();
    for (ComboBox& list : page.cboVisible)
        list.userPick("False");
    page.setChanged(false);

    page.ApplyChanges();

    ExpectMessages({Information("All buttons cannot be hide.")});
    EXPECT_EQ(control().ButtonProperty(), before);
    EXPECT_TRUE(host.events().empty());
    EXPECT_TRUE(page.changed());
}

TEST_F(ButtonPage, ApplyWritesThePositionsAndTheDefaultFlag) {
    page.chkDefault.userClick();
    const std::array<const char*, 4> lefts = {"100", "1400", "2700", "4000"};
    for (std::size_t i = 0; i < 4; ++i)
        Paste(page.txtLeft[i], lefts[i]);

    page.ApplyChanges();

    const gButtonProperty_type expected = {kTrue, kTrue, kTrue, kTrue, kFalse,
                                           100,   1400,  2700,  4000};
    EXPECT_EQ(control().ButtonProperty(), expected);
    EXPECT_EQ(form().cmdOK.left(), 1400);
}

TEST_F(ButtonPage, AnyOtherFailureWhileApplyingShowsPageError2001) {
    page.chkDefault.userClick();
    Paste(page.txtLeft[1], "9e99");  // beyond 32 bits
    const gButtonProperty_type before = control().ButtonProperty();
    page.ApplyChanges();
    ExpectMessages({Critical("Property page error - 2001")});
    EXPECT_EQ(control().ButtonProperty(), before);

    // Lists with nothing chosen read no boolean.
    ClearRecords();
    ppButtonProperty unselected(sink);
    unselected.ApplyChanges();
    ExpectMessages({Critical("Property page error - 2001")});
}

}  // namespace
}  // namespace tabulon
