// Restoring and saving the settings through the host's property bag.
#include <gtest/gtest.h>

#include <algorithm>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Critical;

// A bag that remembers the order of reads and every write with its default.
class LoggingBag : public MemoryPropertyBag {
public:
    PropertyValue Read(const std::string& key, const PropertyValue& defaultValue) override {
        reads.push_back(key);
        return MemoryPropertyBag::Read(key, defaultValue);
    }
    void Write(const std::string& key, const PropertyValue& value,
               const PropertyValue& defaultValue) override {
        writes.push_back({key, value, defaultValue});
        MemoryPropertyBag::Write(key, value, defaultValue);
    }
    struct Written {
        std::string key;
        PropertyValue value;
        PropertyValue defaultValue;
    };
    std::vector<std::string> reads;
    std::vector<Written> writes;
};

// The margins, then the button record's fields, then the general record's, in order.
const std::vector<std::string> kRestoreOrder = [] {
    std::vector<std::string> keys = {"hscGrid.LeftMargin", "hscGrid.RightMargin",
                                     "vscGrid.TopMargin", "vscGrid.BottomMargin"};
    for (const char* field :
         {"blnPrintVisible", "blnOKVisible", "blnCancelVisible", "blnHelpVisible", "blnDefaultPos",
          "lngPrintLeft", "lngOKLeft", "lngCancelLeft", "lngHelpLeft"}) {
        keys.push_back(std::string("ButtonProperty.") + field);
    }
    for (const char* field : {"lngTreeViewWidth", "lngTreeViewStyle", "blnFilterVisible",
                              "strFilterCaption", "strFilterLabel", "blnAllowBigSelection",
                              "lngRowHeightMin", "lngColWidthMin", "intScrollBars"}) {
        keys.push_back(std::string("GeneralProperty.") + field);
    }
    return keys;
}();

using Persistence = ControlHarness;

TEST_F(Persistence, AnEmptyBagRestoresTheDefaults) {
    LoggingBag bag;
    RestoreControl(bag);
    EXPECT_EQ(bag.reads, kRestoreOrder);
    EXPECT_EQ(control().ButtonProperty(),
              (gButtonProperty_type{kTrue, kTrue, kTrue, kTrue, kTrue, 3150, 4415, 5680, 6945}));
    EXPECT_EQ(
        control().GeneralProperty(),
        (gGeneralProperty_type{2745, 7, kTrue, "Filter", "Filter Label", kFalse, 1, 350, 1080}));
    EXPECT_TRUE(form().vscGrid.visible());
    ExpectMessages({});
}

TEST_F(Persistence, SavingWritesEveryKeyWithItsDefaultAndDefaultPosFirst) {
    LoggingBag bag;
    RestoreControl(bag);
    control().WriteProperties(bag);
    std::vector<std::string> keys;
    for (const LoggingBag::Written& w : bag.writes) {
        keys.push_back(w.key);
        EXPECT_EQ(w.value, w.defaultValue) << w.key;
    }
    std::vector<std::string> expected(kRestoreOrder.begin() + 4, kRestoreOrder.end());
    std::rotate(expected.begin(), expected.begin() + 4, expected.begin() + 5);
    expected.insert(expected.end(), kRestoreOrder.begin(), kRestoreOrder.begin() + 4);
    EXPECT_EQ(keys, expected);
    EXPECT_TRUE(bag.values().empty());  // values equal to their default are not stored
}

TEST_F(Persistence, TheColumnMinimumOnlyAppliesToColumnsMadeLater) {
    ASSERT_TRUE(LoadDataFile("shell_two_by_two.xml"));
    MemoryPropertyBag bag;
    bag.values()["GeneralProperty.lngColWidthMin"] = std::int64_t{500};
    control().ReadProperties(bag);
    EXPECT_EQ(control().DisplayColWidth(), "1500,1080,1080");
    EXPECT_EQ(control().GeneralProperty().lngColWidthMin, 500);
    ASSERT_TRUE(LoadDataFile("shell_two_by_two.xml"));
    EXPECT_EQ(control().DisplayColWidth(), "1500,500,500");
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
