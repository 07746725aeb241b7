#include "view/grid_fill.h"

#include <gmock/gmock.h>

#include "view_fixture.h"

namespace tabulon::testing {
namespace {

using ::testing::ElementsAre;

std::string Values(std::string_view key, std::string_view cells, std::string_view extra = "") {
    return "<CellValues GridValueKey=\"" + std::string(key) + "\" " + std::string(extra) + ">" +
           std::string(cells) + "</CellValues>";
}

const std::string kLayout =
    Header("H",
           R"(<ColumnHeader HName="Item" Width="1500"/><ColumnHeader HName="A"/>
       <ColumnHeader HName="B" Width="900"/>)",
           R"(<RowHeader HName="Text" ControlType="TextBox" MaxLength="12"/>
       <RowHeader HName="Pick" ControlType="ComboBox" Height="100" ListValues="a;b"/>
       <RowHeader HName="Num" ControlType="UnitNum" Height="500" Format="0.00" Unit="FT_TO_M"/>
       <RowHeader HName="Drop" ControlType="UnitDrop"/>)");

using GridFill = ViewTest;

TEST_F(GridFill, LayoutComesFromTheGridHeader) {
    grid().setRowHeightMin(0);
    ASSERT_TRUE(LoadText(
        Doc(Pnode("n1", "V1"), kLayout, "<GridValue>" + Values("V1", Cell("t")) + "</GridValue>")));
    ASSERT_EQ(grid().rows(), 5);
    EXPECT_EQ(grid().fixedRows(), 1);
    EXPECT_EQ(grid().fixedCols(), 1);
    EXPECT_THAT(RowTexts(0), ElementsAre("Item", "A", "B"));
    const std::int32_t heights[] = {320, 350, 500, 350};  // minimums 320 / 350
    for (int r = 1; r <= 4; ++r)
        EXPECT_EQ(grid().rowHeight(r), heights[r - 1]) << r;
    // The filter's "All" shows every column at its ColumnHeader width.
    EXPECT_THAT(ColWidths(), ElementsAre(1500, 1080, 900));
}

TEST_F(GridFill, CellTextFollowsTheRowsControlType) {
    const struct {
        const char* type;
        const char* format;
        std::string cell;
        const char* shown;
    } cases[] = {
        {"UnitNum", "0.00", Cell("12.5"), "12.50"},
        {"UnitNum", "0.00", Cell("abc"), "0.00"},
        {"UnitDrop", "", Cell("3(ft)"), "3(ft)"},
        {"UnitDrop", "", Cell("3(ft)x"), "3(ft))"},
        {"UnitDrop", "", Cell("42"), "42"},
        {"TextBox", "0.00", Cell(" a b "), " a b "},
        {"TextBox", "", "<CellValue Enabled=\"1\" Valid=\"1\" ApplicationValidation=\"0\"/>", ""}};
    std::string rows;
    std::string cells;
    for (const auto& c : cases) {
        rows += std::string("<RowHeader HName=\"r\" ControlType=\"") + c.type + "\" Format=\"" +
                c.format + "\"/>";
        cells += c.cell;
    }
    ASSERT_TRUE(
        LoadText(Doc(Pnode("n1", "V1"),
                     Header("H", R"(<ColumnHeader HName="I"/><ColumnHeader HName="A"/>)", rows),
                     "<GridValue>" + Values("V1", cells) + "</GridValue>")));
    ExpectMessages({});
    for (int r = 1; r <= static_cast<int>(std::size(cases)); ++r) {
        const auto& c = cases[r - 1];
        SCOPED_TRACE(c.cell);
        EXPECT_EQ(grid().textMatrix(r, 1), c.shown);
        const bool unitRow = std::string_view(c.type).starts_with("Unit");
        EXPECT_EQ(grid().cellAlignment(r, 1),
                  unitRow ? CellAlignment::RightTop : CellAlignment::LeftTop);
    }
}

TEST_F(GridFill, AnUnknownHeaderKeyEmptiesTheGridAndDisablesTheFilter) {
    ASSERT_TRUE(LoadText(Doc(Pnode("n1", "V1") + Pnode("n2", "V1", R"(Filter="0")", "Nope"),
                             kLayout, "<GridValue>" + Values("V1", Cell("a")) + "</GridValue>")));
    form().cboFilter.setText("Type A");
    ClickNode("n2");
    ExpectMessages({Information("Grid header key 'Nope' not found in XML.")});
    EXPECT_EQ(grid().rows(), 0);
    EXPECT_EQ(grid().cols(), 0);
    EXPECT_FALSE(form().cboFilter.enabled());
    EXPECT_EQ(form().cboFilter.text(), "All");
}

TEST_F(GridFill, ValuesBeyondTheLastColumnAreSkippedWithOneMessage) {
    const std::string layout = Header("H", R"(<ColumnHeader HName="I"/><ColumnHeader HName="A"/>)",
                                      R"(<RowHeader HName="R" ControlType="TextBox"/>)");
    std::string values;
    for (const char* text : {"one", "two", "three"}) {
        values += "<GridValue>" + Values("V1", Cell(text)) + "</GridValue>";
    }
    ASSERT_TRUE(LoadText(Doc(Pnode("n1", "V1"), layout, values)));
    ExpectMessages({Information("Less column defined in 'ColumnHeaders' element")});
    EXPECT_THAT(RowTexts(1), ElementsAre("R", "one"));
}

TEST_F(GridFill, AMissingValueKeyClearsEveryValueCell) {
    ASSERT_TRUE(
        LoadText(Doc(Pnode("n1", "V1") + Pnode("n2", "V9"), kLayout,
                     "<GridValue>" + Values("V1", Cell("a")) + "</GridValue><GridValue>" +
                         Values("V1", Cell("b")) + Values("V9", Cell("c")) + "</GridValue>")));
    ClickNode("n2");
    ExpectMessages({Information("Grid value key 'V9' not found in XML")});
    EXPECT_THAT(RowTexts(1), ElementsAre("Text", "", ""));
}

}  // namespace
}  // namespace tabulon::testing
