// Why a cell is red: the reason a commit, the document or the host gives, as the
// control reports it (CellProblem), and the count that follows.
#include "editing_fixture.h"

namespace tabulon::testing {
namespace {

const std::string kTons = R"(Unit="TONS_TO_KW" Format="0" MinVal="50" MaxVal="3000")";
const std::string kHeads =
    R"(Unit="FTWG_TO_KPA;PSI_TO_KPA" Format="0.0;0.00" MinVal="0;0" MaxVal="50;20")";

// CellProblem(1, 1) of a one-row document as loaded, or after the user types a text
// into the cell (having picked a unit first where one is named).
TEST_F(EditingTest, ReasonIsWhatTheCheckFoundInTheUnitAndFormatShown) {
    const std::string num = Row("UnitNum", kTons);
    const std::string drop = Row("UnitDrop", kHeads);
    const std::string noFormat = Row("UnitNum", R"(Unit="TONS_TO_KW" MinVal="10" MaxVal="100")");
    const std::string widget = Row("UnitNum", R"(Unit="widget" Format="0.0" MaxVal="10")");
    const std::string crossed = Row("UnitDrop", R"(Unit="FTWG_TO_KPA" MinVal="10" MaxVal="5")");
    const std::string grouped = Row("UnitNum", R"(Unit="TONS_TO_KW" Format="#,##0" MaxVal="3000")");
    const char* noFit = "No value fits: the minimum of 10 ft wg is above the maximum of 5 ft wg";
    const struct {
        std::string row;
        CellData cell;
        const char* system;
        const char* typed;  // nullptr: nothing entered
        const char* unit;
        const char* reason;
    } cases[] = {
        {num, {"400"}, "ENGLISH", "3500", "", "Above the maximum of 3000 ton"},
        {num, {"400"}, "METRIC", "100", "", "Below the minimum of 176 kW"},
        {noFormat, {"40"}, "ENGLISH", "abc", "", "Not a number"},
        {widget, {"4"}, "METRIC", "30", "", "Above the maximum of 25.0 wdg"},
        {drop, {"18.5(ft wg)"}, "ENGLISH", "25", "psi", "Above the maximum of 20.00 psi"},
        {crossed, {"7(ft wg)"}, "ENGLISH", "7", "", noFit},
        {num, {"5000", true, false}, "ENGLISH", "2500", "", ""},  // corrected: no reason
        {num, {"400", true, false}, "ENGLISH", nullptr, "", "Marked invalid in the document"},
        {grouped, {"5000", true, false}, "ENGLISH", nullptr, "", "Above the maximum of 3,000 ton"},
        {drop, {"3(m)", true, false}, "ENGLISH", nullptr, "", "Not one of the listed units"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.row + " " + c.cell.text + " " + c.system);
        NewControl();  // a control takes a document's custom units once
        Load({c.row}, {Column({c.cell})}, c.system, kWidget);
        if (c.typed != nullptr) Edit(1, 1, c.typed, c.unit);
        EXPECT_EQ(control().CellProblem(1, 1), c.reason);
        EXPECT_EQ(Attribute(1, 1, "Valid") == "1", *c.reason == '\0');
        EXPECT_EQ(control().ProblemCount(), *c.reason == '\0' ? 0 : 1);
    }
}

}  // namespace
}  // namespace tabulon::testing
