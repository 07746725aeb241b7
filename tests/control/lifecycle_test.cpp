// The control before any load and at termination.
#include <gtest/gtest.h>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;

using ControlLifecycle = ControlHarness;

TEST_F(ControlLifecycle, BeforeAnyLoadNothingIsReportedSavedOrPrinted) {
    EXPECT_EQ(control().XML(), "");
    EXPECT_EQ(control().DisplayColWidth(), "");
    form().cmdOK.userClick();
    form().cmdPrint.userClick();
    ExpectMessages({});
    EXPECT_TRUE(host.events().empty());
}

TEST_F(ControlLifecycle, TerminateReleasesTheDocument) {
    ASSERT_TRUE(LoadDataFile("shell_two_by_two.xml"));
    control().Terminate();
    EXPECT_EQ(control().XML(), "");
    control().Terminate();  // a second time does nothing
    EXPECT_TRUE(control().terminated());
}

}  // namespace
}  // namespace tabulon
