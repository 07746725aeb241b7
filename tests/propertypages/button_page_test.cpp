// The Advanced (button) page: the enabling rules of the position boxes, the record
// written on apply and its failures. What the page shows when it opens and the
// refusal to hide every button are checked on the dialog (tests/demo/page_dialog_test.cpp).
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "propertypages/button_page.h"
#include "propertypages/page_harness.h"

namespace tabulon {
namespace {

using testing::Critical;
using testing::Paste;

using ButtonPage = testing::PageHarness<ppButtonProperty>;

std::array<bool, 4> LeftsEnabled(const ppButtonProperty& page) {
    std::array<bool, 4> enabled{};
    for (std::size_t i = 0; i < 4; ++i)
        enabled[i] = page.txtLeft[i].Enabled();
    return enabled;
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
}

}  // namespace
}  // namespace tabulon
