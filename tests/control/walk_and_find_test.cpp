// Going to the values that need correcting, finding text across the tree, and the
// access keys, as a host calls them and as a person presses them.
#include <gmock/gmock.h>

#include "common/control_harness.h"
#include "common/documents.h"
#include "platform/key_codes.h"

namespace tabulon::testing {
namespace {

using ::testing::ElementsAre;

constexpr int kF9 = keys::FunctionKey(9);
constexpr int kF12 = keys::FunctionKey(12);

std::string Values(std::string_view key, std::string_view filterValue,
                   const std::vector<CellData>& cells) {
    std::string xml = CellValues(key, cells);
    return xml.replace(xml.find('>'), 1, R"( FilterValue=")" + std::string(filterValue) + R"(">)");
}

// Nodes A (filtered: column 1 "X", column 2 "Y"), B and C, the last, over one layout of
// a text row and a number row. Invalid, in the gate's order: B (2, 1), C (1, 1), A
// (1, 2); an orphan key no node names holds one more.
std::string ThreeNodes() {
    const std::string rows = Row("TextBox") + Row("UnitNum", R"(MinVal="0" MaxVal="10")");
    const std::string columns =
        R"(<ColumnHeader HName="Item"/><ColumnHeader HName="One"/><ColumnHeader HName="Two"/>)";
    const std::string first = "<GridValue>" + Values("A", "X", {{"pump a"}, {"1"}}) +
                              CellValues("B", {{"Pump b"}, {"99", true, false}}) +
                              CellValues("ORPHAN", {{"x", true, false}}) +
                              CellValues("C", {{"c", true, false}, {"3"}}) + "</GridValue>";
    const std::string second = "<GridValue>" + Values("A", "Y", {{"a2", true, false}, {"2"}}) +
                               CellValues("B", {{"b2"}, {"2"}}) + CellValues("C", {{"c2"}, {"2"}}) +
                               "</GridValue>";
    return Doc(Pnode("A", "A", "Filter=\"1\"") + Pnode("B", "B") + Pnode("C", "C"),
               Header("H", columns, rows), first + second);
}

class WalkAndFind : public ControlHarness {
protected:
    void SetUp() override {
        ASSERT_TRUE(LoadText(ThreeNodes()));
        ClearRecords();
    }
    // Where the control shows the user now: node key, row and column.
    std::string Here() {
        const TreeView& tree = form().treTreeView;
        const FlexGrid& grid = form().msgGridView;
        return tree.node(tree.selectedIndex()).key + " " + std::to_string(grid.row()) + "," +
               std::to_string(grid.col());
    }
    void Key(int keyCode, int shift = 0) { control().UserKeyStroke(keyCode, 0, shift); }
};

TEST_F(WalkAndFind, AProblemInAColumnTheFilterHidesShowsAllAgain) {
    ASSERT_TRUE(form().cboFilter.userPick("X"));
    ASSERT_EQ(form().msgGridView.colWidth(2), 0);
    control().PreviousProblem();  // back from A (1, 1): wraps to A (1, 2)
    EXPECT_EQ(Here(), "A 1,2");
    EXPECT_EQ(control().FilterValue(), "All");
    EXPECT_GT(form().msgGridView.colWidth(2), 0);
}

TEST_F(WalkAndFind, TheOpenEditorIsCommittedBeforeTheWalkGoesOn) {
    ASSERT_TRUE(control().NextProblem());
    form().unitNumControl.UserSetText("5");
    ASSERT_TRUE(control().NextProblem());
    EXPECT_EQ(Here(), "C 1,1");
    EXPECT_EQ(control().ProblemCount(), 3);
    EXPECT_EQ(core().doc.objXMLDoc->root().select("//CellValues[@GridValueKey='B']/*[2]")[0].text(),
              "5");
}

TEST_F(ControlHarness, FindSeesValuesAsShownInAMetricDocument) {
    const std::string row =
        Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0" MinVal="0;0" MaxVal="10;24")");
    ASSERT_TRUE(LoadText(Document({row, Row("UnitNum", R"(Unit="INCH_TO_MM" Format="0")")},
                                  {Column({{"5(in)"}, {"2"}})}, "METRIC")));
    EXPECT_EQ(control().Find("127(mm)", {.wholeCell = true}).size(), 1u);
    EXPECT_THAT(control().Find("127(MM)", {.matchCase = true, .wholeCell = true}),
                ::testing::IsEmpty());
    EXPECT_EQ(control().Find("51", {.wholeCell = true}).size(), 1u);
    EXPECT_THAT(control().Find("(in)"), ::testing::IsEmpty());
}

// Find a node at a time, as the find bar makes it on a large document.
TEST_F(WalkAndFind, FindMadeANodeAtATimeKeepsFindsHitsAndWrapsOnlyOnceDone) {
    const std::vector<FindHit> all = control().Find("2");
    ASSERT_EQ(all.size(), 6u);  // two in each node
    for (const int nodes : {1, 2}) {
        control().StartFind("2");
        EXPECT_FALSE(control().FindComplete());
        int steps = 1;
        while (!control().ContinueFind(nodes))
            ++steps;
        EXPECT_EQ(steps, nodes == 1 ? 3 : 2);
        EXPECT_EQ(control().FindHits(), all);
    }

    control().StartFind("2");
    EXPECT_FALSE(control().FindPrevious());  // nothing found yet
    control().ContinueFind(1);
    EXPECT_FALSE(control().FindPrevious());  // the last hit is not known yet
    ASSERT_TRUE(control().FindNext());
    ASSERT_TRUE(control().FindNext());
    EXPECT_EQ(Here(), "A 2,2");
    EXPECT_FALSE(control().FindNext());  // B is not searched yet: no wrapping round
    EXPECT_EQ(control().CurrentFindHit(), 1);
    EXPECT_TRUE(control().ContinueFind(100));
    ASSERT_TRUE(control().FindNext());
    EXPECT_EQ(Here(), "B 1,2");

    // A load drops the search under way with every handle into the old document.
    control().StartFind("2");
    control().ContinueFind(1);
    ASSERT_TRUE(LoadText(ThreeNodes()));
    EXPECT_TRUE(control().FindComplete());
    EXPECT_TRUE(control().ContinueFind(1));
    EXPECT_THAT(control().FindHits(), ::testing::IsEmpty());
}

// The access keys act at key-down: the data area's key-up handler, which swallows
// every key-up there, never sees them.
TEST_F(WalkAndFind, AccessKeysActBeforeTheKeyUpHandler) {
    form().msgGridView.setFocus();
    Key(kF9);
    EXPECT_EQ(Here(), "B 2,1");
    Key(kF9, kShiftBit);
    EXPECT_EQ(Here(), "A 1,2");

    std::vector<std::string> visited;
    for (int i = 0; i < 7; ++i) {
        Key(kF12);
        visited.push_back(form().focus.focused()->name());
    }
    // Into the grid: the current cell's editor opens, as on a click.
    EXPECT_THAT(visited, ElementsAre("cmdPrint", "cmdOK", "cmdCancel", "cmdHelp", "treTreeView",
                                     "cboFilter", "txtTextBoxControl"));
    Key(kF12, kShiftBit);
    EXPECT_EQ(form().focus.focused()->name(), "cboFilter");

    int findRequests = 0;
    Key('F', kCtrlBit);  // no front end asked for it: not the control's key
    core().find.onRequested = [&] { ++findRequests; };
    Key('F', kCtrlBit);
    EXPECT_EQ(findRequests, 1);

    Key('O', kAltBit);
    ExpectMessages({Critical(
        "Validation Error(s). You must correct all data highlighted in red before saving.")});
}

}  // namespace
}  // namespace tabulon::testing
