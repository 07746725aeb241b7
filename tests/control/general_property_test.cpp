// The GeneralProperty record: reading it from the parts and writing it in order.
#include <gtest/gtest.h>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Critical;

using GeneralPropertyLet = ControlHarness;

TEST_F(GeneralPropertyLet, AColumnMinimumBeyondSixteenBitsFailsAfterTheEarlierSteps) {
    gGeneralProperty_type record = control().GeneralProperty();
    record.lngRowHeightMin = 400;
    record.lngColWidthMin = 40000;
    record.intScrollBars = 1;
    host.clear();
    control().SetGeneralProperty(record);

    ExpectMessages({Critical("Unexpected Error - 1019")});
    const gGeneralProperty_type read = control().GeneralProperty();
    EXPECT_EQ(read.lngRowHeightMin, 400);  // the step before
    EXPECT_EQ(read.lngColWidthMin, 1080);
    EXPECT_EQ(read.intScrollBars, 0);  // the step after
    EXPECT_TRUE(host.events().empty());
}

}  // namespace
}  // namespace tabulon
