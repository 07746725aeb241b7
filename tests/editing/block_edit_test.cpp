// Ranges, copy, paste, fill and clear as the user and the host see them: the cells,
// the document, colours, the host's validation, the undo step and the skip report.
#include "editing/editing_fixture.h"
#include "platform/key_codes.h"

namespace tabulon::testing {
namespace {

// One row of each editor kind.
const std::vector<std::string> kRows = {
    Row("TextBox", R"(MaxLength="5")"), Row("ComboBox", R"(ListValues="a;b;")"),
    Row("UnitNum", R"(Unit="FT_TO_M" Format="0.00" MinVal="0" MaxVal="100")"),
    Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0" MinVal="0;0" MaxVal="100;1000")")};
const std::string kColumn = Column({{"x"}, {"a"}, {"1"}, {"1.0(ft)"}});

class Blocks : public EditingTest {
protected:
    void LoadKinds(std::string_view system = "ENGLISH", int columns = 2) {
        Load(kRows, std::vector<std::string>(static_cast<std::size_t>(columns), kColumn), system);
    }
    void Key(int code, int shift, int ascii = 0) { control().UserKeyStroke(code, ascii, shift); }
    void Ctrl(char letter) { Key(letter, kCtrlBit, letter - 'A' + 1); }
    std::vector<std::string> RowTexts(int row) {
        std::vector<std::string> texts;
        for (int col = 0; col < grid().cols(); ++col)
            texts.push_back(Shown(row, col));
        return texts;
    }
    std::vector<int> Selection() {
        return {grid().row(), grid().col(), grid().rowSel(), grid().colSel()};
    }
};

TEST_F(Blocks, CopyGivesShownCellsAsTextAndHtmlWithoutHiddenColumns) {
    LoadKinds("ENGLISH", 3);
    grid().setColWidth(2, 0);  // filtered out
    Click(3, 1);
    grid().userExtendSelection(4, 3);
    Ctrl('C');
    const auto& clip = static_cast<const MemoryClipboard&>(control().clipboard()).content();
    EXPECT_EQ(clip.text, "1.00\t1.00\r\n1.0(ft)\t1.0(ft)");
    EXPECT_EQ(clip.html,
              "<html><head><meta charset=\"utf-8\"></head><body><table><tr><td>1.00</td>"
              "<td>1.00</td></tr><tr><td>1.0(ft)</td><td>1.0(ft)</td></tr></table></body></html>");
    EXPECT_EQ(control().CopyCells(1, 1, 1, 1, true).text, "Name\tC\r\nR\tx");
}

// What the session and journey tests of pasting leave out: the range of a number, a
// grouped number, an empty text, a number with no unit and a Metric label.
TEST_F(Blocks, EachPastedValueTakesTheRouteOfTyping) {
    const struct {
        const char* system;
        int row;
        const char* value;
        const char* shown;   // the cell afterwards
        const char* stored;  // the CellValue text afterwards
        Rgb color;
        const char* reason;  // in the report; "" when written as it came
    } cases[] = {{"ENGLISH", 2, "\n", "", "", kWhite, ""},  // an empty cell copied
                 {"ENGLISH", 3, "1,234", "1234.00", "1234.00", kRed, ""},
                 {"ENGLISH", 3, "-3", "1.00", "1.00", kWhite, "the cell does not take this number"},
                 {"ENGLISH", 3, "\n", "1.00", "1.00", kWhite, "a number is required"},
                 {"ENGLISH", 4, "7", "7.0(ft)", "7.0(ft)", kWhite, ""},
                 {"METRIC", 4, "3.048(m)", "3.0(m)", "9.8425197(m)", kWhite, ""}};
    for (const auto& c : cases) {
        SCOPED_TRACE(std::string(c.system) + " " + c.value);
        ClearRecords();
        LoadKinds(c.system);
        Click(c.row, 1);
        PointAtHeader();  // the cell's own commit first, as the user leaving it
        const std::string before = Stored(c.row, 1);
        ClearRecords();
        const BlockEditReport report = control().PasteCells(c.value);
        EXPECT_EQ(Shown(c.row, 1), c.shown);
        EXPECT_EQ(Stored(c.row, 1), c.stored);
        EXPECT_EQ(grid().cellBackColor(c.row, 1), c.color);
        EXPECT_EQ(report.written, c.stored != before ? 1 : 0);
        ASSERT_EQ(report.skipped.size(), *c.reason == '\0' ? 0u : 1u);
        if (*c.reason != '\0') {
            EXPECT_EQ(report.skipped[0].reason, c.reason);
            ASSERT_EQ(sink.messages().size(), 1u);
            EXPECT_THAT(sink.messages()[0].text, ::testing::HasSubstr(c.reason));
        }
    }
}

TEST_F(Blocks, BlockPasteIsOneUndoStepWithTheHostAskedOncePerColumn) {
    Load({Row("TextBox"), Row("TextBox"), Row("TextBox")},
         {Column({{"a", true, true, true}, {"b", true, true, true}, {"c", false}}),
          Column({{"d"}, {"e"}, {"f"}})});
    const std::string loaded = control().XML();
    Click(1, 1);
    PointAtHeader();  // the grid has the focus, (1, 1) current
    ClearRecords();
    const BlockEditReport report = control().PasteCells("1\t4\n2\t5\n3\t6\n7\t8\n");
    EXPECT_EQ(report.written, 5);
    EXPECT_EQ(report.beyondGrid, 2);  // the fourth row lies past the grid
    ASSERT_EQ(report.skipped.size(), 1u);
    EXPECT_EQ(report.skipped[0], (SkippedCell{3, 1, "3", "disabled"}));
    EXPECT_EQ(host.eventsOf(HostEventKind::AppGridEventHandler).size(), 1u);
    EXPECT_EQ(RowTexts(1), (std::vector<std::string>{"R", "1", "4"}));
    EXPECT_EQ(Selection(), (std::vector<int>{1, 1, 3, 2}));
    ExpectMessages({{MessageIcon::Information,
                     "5 cell(s) pasted, 1 skipped:\nR, C: \"3\" disabled\n"
                     "2 value(s) lay beyond the grid"}});

    ASSERT_TRUE(control().Undo());
    EXPECT_EQ(control().XML(), loaded);
    EXPECT_EQ(RowTexts(1), (std::vector<std::string>{"R", "a", "d"}));
    EXPECT_FALSE(control().CanUndo());
}

TEST_F(Blocks, FillDownRightAndDeleteFollowTheRules) {
    Load({Row("TextBox"), Row("TextBox"), Row("ComboBox", R"(ListValues="a;b")"),
          Row("UnitNum", R"(Unit="FT_TO_M" Format="0.0")")},
         {Column({{"top"}, {"x"}, {"a"}, {"2"}}), Column({{"right"}, {"y"}, {"b"}, {"3"}})});
    Click(1, 1);
    grid().userExtendSelection(2, 2);
    Ctrl('D');
    EXPECT_EQ(RowTexts(2), (std::vector<std::string>{"R", "top", "right"}));
    Click(4, 1);
    grid().userExtendSelection(4, 2);
    Ctrl('R');
    EXPECT_EQ(RowTexts(4), (std::vector<std::string>{"R", "2.0", "2.0"}));

    Click(1, 1);
    grid().userExtendSelection(4, 2);
    const std::string before = control().XML();
    Key(keys::kDelete, 0);
    EXPECT_EQ(RowTexts(1), (std::vector<std::string>{"R", "", ""}));
    EXPECT_EQ(RowTexts(3), (std::vector<std::string>{"R", "a", "b"}));      // "" is not listed
    EXPECT_EQ(RowTexts(4), (std::vector<std::string>{"R", "2.0", "2.0"}));  // a number stays
    ASSERT_TRUE(control().Undo());
    EXPECT_EQ(control().XML(), before);
}

}  // namespace
}  // namespace tabulon::testing
