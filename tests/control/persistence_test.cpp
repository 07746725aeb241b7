// Restoring and saving the settings through the host's property bag.
#include <gtest/gtest.h>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Critical;

using Persistence = ControlHarness;

TEST_F(Persistence, AnEmptyBagRestoresTheDefaultsAndSavingThemStoresNothing) {
    MemoryPropertyBag bag;
    RestoreControl(bag);
    EXPECT_EQ(control().ButtonProperty(),
              (gButtonProperty_type{kTrue, kTrue, kTrue, kTrue, kTrue, 3150, 4415, 5680, 6945}));
    EXPECT_EQ(
        control().GeneralProperty(),
        (gGeneralProperty_type{2745, 7, kTrue, "Filter", "Filter Label", kFalse, 1, 350, 1080}));
    EXPECT_TRUE(form().vscGrid.visible());
    ExpectMessages({});
    control().WriteProperties(bag);
    EXPECT_TRUE(bag.values().empty());  // values equal to their default are not stored
}

TEST_F(Persistence, SavedPositionsAreTheLastGivenNotWhereTheButtonsStand) {
    control().SetButtonProperty({kTrue, kTrue, kTrue, kTrue, kTrue, 11, 22, 33, 44});
    control().Reposition_Button();
    ASSERT_EQ(form().cmdOK.left(), 4405);
    MemoryPropertyBag bag;
    control().WriteProperties(bag);
    EXPECT_EQ(bag.values().at("ButtonProperty.lngPrintLeft"), PropertyValue(std::int64_t{11}));
    EXPECT_EQ(bag.values().at("ButtonProperty.lngHelpLeft"), PropertyValue(std::int64_t{44}));
}

TEST_F(Persistence, ABadStoredValueEndsTheRestoreAndKeepsWhatWasApplied) {
    MemoryPropertyBag bag;
    bag.values() = {{"ButtonProperty.blnOKVisible", false},
                    {"GeneralProperty.lngTreeViewStyle", std::string("wide")}};
    RestoreControl(bag);
    ExpectMessages({Critical("Unexpected Error - 1013")});
    EXPECT_FALSE(form().cmdOK.visible());
    EXPECT_EQ(form().treTreeView.style(), 7);
    EXPECT_FALSE(form().hscGrid.visible());
}

}  // namespace
}  // namespace tabulon
