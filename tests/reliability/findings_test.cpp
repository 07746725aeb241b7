// Faults the soak, the fuzzers and the sanitizers found, each pinned where it was fixed.
#include <cstdlib>
#include <memory>

#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

// A host that keeps its control in a static destroys it during process exit, after
// the thread's own clean-up has freed the conversion table; the control then
// releases the table a second time.
[[noreturn]] void HoldAControlInAStaticAndExit() {
    static RecordingSink sink;
    static RecordingHost host;
    static std::unique_ptr<Generic_SP_Control> held;
    held = std::make_unique<Generic_SP_Control>(sink, host);
    held->InitProperties();
    held->Show();
    held->LoadXML(ReadFileBytes(std::filesystem::path(TABULON_SOURCE_DIR) / "samples/metric.xml"));
    std::exit(0);
}

TEST(ProcessExitDeathTest, ControlHeldInAStaticOutlivesTheThreadsConversionTable) {
    EXPECT_EXIT(HoldAControlInAStaticAndExit(), ::testing::ExitedWithCode(0), "");
}

class Finding : public EditingTest {};

// View/Print commits the open editor but leaves it open, and the commit lets go of the
// control's registrar: the next commit of that editor still converts to English.
TEST_F(Finding, MetricValueTypedAfterViewPrintReachesTheDocument) {
    Load({Row("UnitNum", R"(Unit="FT_TO_M" Format="0.00" MinVal="0" MaxVal="100")")},
         {Column({{"10"}})}, "METRIC");
    Click(1, 1);
    Paste("2");
    form().cmdPrint.userClick();
    EXPECT_EQ(Stored(1, 1), "6.5616798");
    ASSERT_TRUE(form().unitNumControl.visible());
    form().unitNumControl.setFocus();
    Paste("3");
    PointAtHeader();
    ExpectMessages({});
    EXPECT_EQ(Shown(1, 1), "3.00");
    EXPECT_EQ(Stored(1, 1), "9.8425197");
}

// The fill cuts the closing character of a UnitDrop text, whatever its length in bytes.
TEST_F(Finding, UnitDropTextLosesItsLastCharacterNotItsLastByte) {
    Load({Row("UnitDrop", R"(Unit="SQFT_TO_SQM")"), Row("UnitDrop", R"(Unit="F_TO_C")")},
         {Column({{"12(m²"}, {"7(°"}})});
    EXPECT_EQ(Shown(1, 1), "12(m)");
    EXPECT_EQ(Shown(2, 1), "7()");
}

}  // namespace
}  // namespace tabulon::testing
