// The control's lifecycle and the members that only report: XML, FilterValue,
// DisplayColWidth, the discarding lets, first-time initialisation and termination.
#include <gtest/gtest.h>

#include <memory>

#include "common/control_harness.h"
#include "control/control_access.h"
#include "subcontrols/horizontal_scroll.h"
#include "subcontrols/scroll_grid.h"
#include "units/conversion_table.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::DataFile;

using ControlLifecycle = ControlHarness;

TEST_F(ControlLifecycle, BeforeAnyLoadNothingIsReportedSavedOrPrinted) {
    EXPECT_EQ(control().XML(), "");
    EXPECT_EQ(control().DisplayColWidth(), "");
    form().cmdOK.userClick();
    form().cmdPrint.userClick();
    ExpectMessages({});
    EXPECT_TRUE(host.events().empty());
}

TEST_F(ControlLifecycle, TheThreeLetsAcceptAndDiscardTheirValue) {
    ASSERT_TRUE(LoadDataFile("shell_two_by_two.xml"));
    const std::string xml = control().XML();
    const std::string filter = control().FilterValue();
    control().SetXML("<xml/>");
    control().SetFilterValue("Nothing");
    control().SetDisplayColWidth("1,2,3");
    EXPECT_EQ(control().XML(), xml);
    EXPECT_EQ(control().FilterValue(), filter);
    EXPECT_EQ(control().DisplayColWidth(), "1500,1080,1080");
    ExpectMessages({});
}

TEST_F(ControlLifecycle, TerminateReleasesTheDocumentAndThePerThreadState) {
    ASSERT_TRUE(LoadDataFile("shell_two_by_two.xml"));
    ASSERT_EQ(ScrollGrid(), &form().msgGridView);
    control().Terminate();
    EXPECT_EQ(control().XML(), "");
    EXPECT_FALSE(HasConversionTable());
    EXPECT_EQ(ScrollGrid(), nullptr);
    control().Terminate();  // a second time does nothing
    EXPECT_TRUE(control().terminated());
}

TEST_F(ControlLifecycle, ScrollBarsKeepingAnEndedControlsGridMoveNothing) {
    // The bars take the thread's grid at their first change: here the second
    // control's, which then ends before the first control's bars are used.
    auto second = std::make_unique<Generic_SP_Control>(sink, host);
    ASSERT_TRUE(second->Load(DataFile("shell_report.xml")));
    ASSERT_TRUE(LoadDataFile("shell_report.xml"));
    ctlHorizontalScroll& bar = form().hscGrid;
    ASSERT_TRUE(bar.driver().gridTaken());
    EXPECT_EQ(bar.driver().grid(), &FormOf(*second).msgGridView);
    second.reset();

    EXPECT_EQ(bar.driver().grid(), nullptr);
    const int leftCol = form().msgGridView.leftCol();
    bar.bar().userStep(+1);
    bar.bar().userStep(-1);
    EXPECT_EQ(form().msgGridView.leftCol(), leftCol);
    EXPECT_FALSE(bar.driver().busy());
    ExpectMessages({});
}

}  // namespace
}  // namespace tabulon
