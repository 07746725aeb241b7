// A person edits numbers with a unit using the caret, the selection and paste, is
// refused OK for a value out of range and puts it right by typing.
#include <string>
#include <vector>

#include "journeys/journey.h"

namespace tabulon::testing {
namespace {

std::string UnitNumberDocument() {
    const std::vector<std::string> rows = {
        Row("UnitNum", R"(Unit="FT_TO_M" Format="0.00" MinVal="-50" MaxVal="500")"),
        Row("UnitNum", R"(Unit="TONS_TO_KW" Format="0" MinVal="50" MaxVal="3000")"),
        Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0" MinVal="0;0" )"
                        R"(MaxVal="100;1200")"),
    };
    const std::vector<CellData> cells = {{"75.18"}, {"400"}, {"12.5(ft)"}};
    // A second node: OK's search for the node of a red cell never looks at the last one.
    return Document(rows, {Column(cells), Column(cells)}, "ENGLISH", "",
                    R"(<Pnode Name="N2" KeyValue="N2" GridHeaderKey="H" GridValueKey="K" )"
                    R"(Filter="0"/>)");
}

class Editing : public JourneyFixture {};

TEST_F(Editing, UnitNumbersWithCaretSelectionAndPasteThenARefusedOkPutRight) {
    Start(UnitNumberDocument());
    const std::string script = ScriptFile("unit_numbers.session");
    Play(script);
    const FlexGrid& grid = form().msgGridView;
    EXPECT_EQ(grid.textMatrix(1, 1), "-15.00");
    EXPECT_EQ(grid.textMatrix(2, 1), "1235");
    EXPECT_EQ(grid.textMatrix(3, 1), "15.0(ft)");
    EXPECT_EQ(grid.textMatrix(2, 2), "700");
    EXPECT_EQ(grid.textMatrix(1, 2), "3.00");
    EXPECT_EQ(messages, std::vector<std::string>{"critical: Validation Error(s). You must correct "
                                                 "all data highlighted in red before saving."});
    Finish(script);  // the events too
}

}  // namespace
}  // namespace tabulon::testing
