// The ButtonProperty record and the automatic placement of the four buttons.
#include <gtest/gtest.h>

#include "common/control_harness.h"

namespace tabulon {
namespace {

using testing::ControlHarness;

std::array<std::int32_t, 4> Lefts(const Form& f) {
    return {f.cmdPrint.left(), f.cmdOK.left(), f.cmdCancel.left(), f.cmdHelp.left()};
}

// Visibility of Print, OK, Cancel and Help, DefaultPos, and positions 100 to 400.
gButtonProperty_type Record(VariantBool print, VariantBool ok, VariantBool cancel, VariantBool help,
                            VariantBool defaultPos) {
    return {print, ok, cancel, help, defaultPos, 100, 200, 300, 400};
}

using ButtonPlacement = ControlHarness;

TEST_F(ButtonPlacement, VisibleButtonsTakeSlotsFromTheRightAndHiddenOnesKeepTheirPlace) {
    const struct {
        gButtonProperty_type record;
        std::array<std::int32_t, 4> lefts;  // Print, OK, Cancel, Help
    } cases[] = {
        {Record(kTrue, kTrue, kTrue, kTrue, kTrue), {3140, 4405, 5670, 6935}},
        {Record(kTrue, kTrue, kTrue, kFalse, kTrue), {4405, 5670, 6935, 400}},
        {Record(kTrue, kFalse, kTrue, kTrue, kTrue), {4405, 200, 5670, 6935}},
        {Record(kTrue, kTrue, kTrue, kTrue, kFalse), {100, 200, 300, 400}},
    };
    for (const auto& c : cases) {
        control().SetButtonProperty(c.record);
        EXPECT_EQ(Lefts(form()), c.lefts);
    }
    ExpectMessages({});
}

TEST_F(ButtonPlacement, TheLetAppliesTheRecordTellsTheHostAndThenPlacesTheButtons) {
    host.clear();
    control().SetButtonProperty(Record(kTrue, kFalse, kTrue, kTrue, kTrue));
    EXPECT_FALSE(form().cmdOK.visible());
    EXPECT_EQ(host.events(),
              (std::vector<RecordedEvent>{{HostEventKind::PropertyChanged, "ButtonProperty"}}));
    // Where the buttons stand, not what was given.
    EXPECT_EQ(control().ButtonProperty().lngPrintLeft, 4405);
}

}  // namespace
}  // namespace tabulon
