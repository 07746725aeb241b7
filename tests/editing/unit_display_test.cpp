// The Metric display pass over a filled grid.
#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

class ConvertGridUnits : public EditingTest {};

const std::string kFeet = Row("UnitNum", R"(Unit="FT_TO_M" Format="0.000")");
const std::string kFeetOrInches = Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.00;0")");

TEST_F(ConvertGridUnits, MetricDocumentShowsUnitRowsConverted) {
    const std::vector<std::array<std::string, 3>> cases = {
        // row, stored, shown
        {kFeet, "10", "3.048"},
        {Row("UnitNum", R"(Format="0.0")"), "10", "10.0"},  // no unit: not converted
        {kFeetOrInches, "10(in)", "254(mm)"},
        {kFeetOrInches, "3(m)", "0.91(m)"},  // stored in feet whichever label it carries
        {kFeetOrInches, "10", "10"},         // no "(": untouched
        {Row("UnitDrop", R"(Unit="wdg" Format="0.0")"), "4(widget)", "10.0(wdg)"}};
    std::vector<std::string> rows;
    std::vector<CellData> cells;
    for (const auto& [row, stored, shown] : cases) {
        rows.push_back(row);
        cells.emplace_back(stored);
    }
    Load(rows, {Column(cells)}, "METRIC", kWidget);
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const int r = static_cast<int>(i) + 1;
        EXPECT_EQ(Shown(r, 1), cases[i][2]) << cases[i][0];
        EXPECT_EQ(Stored(r, 1), cases[i][1]);  // the document is not converted
    }
}

TEST_F(ConvertGridUnits, UnitFaultEndsThePassWithItsMessage) {
    for (const auto& [row, stored, message] : std::vector<std::array<std::string, 3>>{
             {Row("UnitNum", "Unit=\"NOPE\""), "10", "Invalid UnitNum units defined in XML."},
             {Row("UnitDrop", "Unit=\"NOPE;FT_TO_M\""), "1(ft)",
              "Metric conversion is not possible because invalid UnitDrop units defined in XML."},
             {Row("UnitDrop", "Unit=\"FT_TO_M\""), "1(yd)",
              "Metric conversion is not possible because invalid unit defined with UnitDrop "
              "value within XML."}}) {
        ASSERT_TRUE(LoadText(
            Document({kFeet, row, kFeet}, {Column({{"10"}, {stored}, {"10"}})}, "METRIC")));
        ExpectMessages({Information(message)});
        EXPECT_EQ(Shown(1, 1), "3.048");   // before the fault: converted
        EXPECT_EQ(Shown(3, 1), "10.000");  // after it: as filled
        ClearRecords();
    }
}

}  // namespace
}  // namespace tabulon::testing
