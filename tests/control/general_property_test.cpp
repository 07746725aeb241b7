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
    record.lngTreeViewStyle = 3;
    record.strFilterCaption = "Family";
    record.strFilterLabel = "Size";
    record.blnAllowBigSelection = kTrue;
    record.lngRowHeightMin = 400;
    record.lngColWidthMin = 40000;
    record.intScrollBars = 1;
    host.clear();
    control().SetGeneralProperty(record);

    ExpectMessages({Critical("Unexpected Error - 1019")});
    const gGeneralProperty_type read = control().GeneralProperty();
    EXPECT_EQ(read.lngTreeViewStyle, 3);
    EXPECT_EQ(read.strFilterCaption, "Family");
    EXPECT_EQ(read.strFilterLabel, "Size");
    EXPECT_EQ(read.blnAllowBigSelection, kTrue);
    EXPECT_EQ(read.lngRowHeightMin, 400);
    EXPECT_EQ(read.lngColWidthMin, 1080);
    EXPECT_EQ(read.intScrollBars, 0);  // the later steps did not run
    EXPECT_TRUE(host.events().empty());
}

TEST_F(GeneralPropertyLet, ANewTreeWidthGoesThroughTheSplitterAndItsLimits) {
    form().imgSplitter.setLeft(100);  // the current width leaves the splitter alone
    control().SetGeneralProperty(control().GeneralProperty());
    EXPECT_EQ(form().imgSplitter.left(), 100);
    const struct {
        std::int32_t asked;
        std::int32_t width;
    } cases[] = {{2000, 2000}, {1000, 1500}, {99999, 3155}};
    for (const auto& c : cases) {
        gGeneralProperty_type record = control().GeneralProperty();
        record.lngTreeViewWidth = c.asked;
        control().SetGeneralProperty(record);
        EXPECT_EQ(form().treTreeView.width(), c.width) << c.asked;
        EXPECT_EQ(form().imgSplitter.left(), c.width + 30) << c.asked;
    }
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
