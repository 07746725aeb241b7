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

TEST_F(GeneralPropertyLet, ANewTreeWidthGoesThroughTheSplitterAndItsLimits) {
    form().imgSplitter.setLeft(100);  // the current width leaves the splitter alone
    control().SetGeneralProperty(control().GeneralProperty());
    EXPECT_EQ(form().imgSplitter.left(), 100);
    gGeneralProperty_type record = control().GeneralProperty();
    record.lngTreeViewWidth = 1000;
    control().SetGeneralProperty(record);
    EXPECT_EQ(form().treTreeView.width(), 1500);
    EXPECT_EQ(form().imgSplitter.left(), 1530);
}

TEST_F(GeneralPropertyLet, AFailingColumnWidthIsItsOwnErrorAndTheLetGoesOn) {
    ASSERT_TRUE(LoadDataFile("shell_two_by_two.xml"));
    gGeneralProperty_type record = control().GeneralProperty();
    record.lngColWidthMin = -5;
    record.intScrollBars = 1;
    host.clear();
    control().SetGeneralProperty(record);
    ExpectMessages({Critical("Unexpected Error - 1020")});
    EXPECT_TRUE(form().hscGrid.visible());
    EXPECT_EQ(host.events().size(), 1u);
}

}  // namespace
}  // namespace tabulon
