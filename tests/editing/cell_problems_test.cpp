// Why a cell is red: the reason a commit, the document or the host gives, as the
// control reports it (CellProblem), and the counts and tree marks that follow edits.
#include <optional>

#include "editing_fixture.h"

namespace tabulon::testing {
namespace {

const std::string kWidget = R"(<CustomUnit EUnit="widget" MUnit="wdg" EToMFactor="2.5"/>)";
const std::string kTons = R"(Unit="TONS_TO_KW" Format="0" MinVal="50" MaxVal="3000")";
const std::string kHeads =
    R"(Unit="FTWG_TO_KPA;PSI_TO_KPA" Format="0.0;0.00" MinVal="0;0" MaxVal="50;20")";

// What the user enters into cell (1, 1): a pasted text, after picking a unit when one
// is named.
struct Entry {
    std::string text;
    std::string unit;
};

struct ReasonCase {
    const char* name;
    std::string row;             // the RowHeader of the one row
    CellData cell;               // the value of cell (1, 1)
    std::string unitSystem;      // ENGLISH or METRIC
    std::optional<Entry> entry;  // none: the document's value as loaded
    std::string reason;          // CellProblem(1, 1) afterwards
};

void PrintTo(const ReasonCase& c, std::ostream* os) {
    *os << c.name;
}

Entry Enter(std::string text, std::string unit = {}) {
    return {std::move(text), std::move(unit)};
}

std::string CaseName(const ::testing::TestParamInfo<ReasonCase>& param) {
    return param.param.name;
}

class CellReasons : public EditingTest, public ::testing::WithParamInterface<ReasonCase> {};

TEST_P(CellReasons, ReasonIsWhatTheCheckFoundInTheUnitAndFormatShown) {
    const ReasonCase& c = GetParam();
    Load({c.row}, {Column({c.cell})}, c.unitSystem, kWidget);
    if (c.entry) {
        Click(1, 1);
        if (!c.entry->unit.empty()) form().unitDropControl.UserPickUnit(c.entry->unit);
        Paste(c.entry->text);
        PointAtHeader();
    }
    EXPECT_EQ(control().CellProblem(1, 1), c.reason);
    EXPECT_EQ(Attribute(1, 1, "Valid") == "1", c.reason.empty());
    EXPECT_EQ(control().ProblemCount(), c.reason.empty() ? 0 : 1);
}

INSTANTIATE_TEST_SUITE_P(
    Reasons, CellReasons,
    ::testing::Values(
        ReasonCase{"UnitNumAboveMaximum",
                   Row("UnitNum", kTons),
                   {"400"},
                   "ENGLISH",
                   Enter("3500"),
                   "Above the maximum of 3000 ton"},
        ReasonCase{"UnitNumBelowMinimumInMetric",
                   Row("UnitNum", kTons),
                   {"400"},
                   "METRIC",
                   Enter("100"),
                   "Below the minimum of 176 kW"},
        ReasonCase{"TextWithoutNumber",
                   Row("UnitNum", R"(Unit="TONS_TO_KW" MinVal="10" MaxVal="100")"),
                   {"40"},
                   "ENGLISH",
                   Enter("abc"),
                   "Not a number"},
        ReasonCase{"CustomUnitInMetric",
                   Row("UnitNum", R"(Unit="widget" Format="0.0" MinVal="0" MaxVal="10")"),
                   {"4"},
                   "METRIC",
                   Enter("30"),
                   "Above the maximum of 25.0 wdg"},
        ReasonCase{"UnitDropFirstUnit",
                   Row("UnitDrop", kHeads),
                   {"18.5(ft wg)"},
                   "ENGLISH",
                   Enter("60"),
                   "Above the maximum of 50.0 ft wg"},
        ReasonCase{"UnitDropSecondUnit",
                   Row("UnitDrop", kHeads),
                   {"18.5(ft wg)"},
                   "ENGLISH",
                   Enter("25", "psi"),
                   "Above the maximum of 20.00 psi"},
        ReasonCase{"UnitDropSecondUnitInMetric",
                   Row("UnitDrop",
                       R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0" MinVal="0;0" MaxVal="10;24")"),
                   {"5(in)"},
                   "METRIC",
                   Enter("700"),
                   "Above the maximum of 610 mm"},
        ReasonCase{"UnitWhoseLimitsExcludeEverything",
                   Row("UnitDrop", R"(Unit="FTWG_TO_KPA" Format="0" MinVal="10" MaxVal="5")"),
                   {"7(ft wg)"},
                   "ENGLISH",
                   Enter("7"),
                   "No value fits: the minimum of 10 ft wg is above the maximum of 5 ft wg"},
        ReasonCase{"ACorrectedValueHasNoReason",
                   Row("UnitNum", kTons),
                   {"5000", true, false},
                   "ENGLISH",
                   Enter("2500"),
                   ""},
        ReasonCase{"DocumentMarkInRange",
                   Row("UnitNum", kTons),
                   {"400", true, false},
                   "ENGLISH",
                   {},
                   "Marked invalid in the document"},
        ReasonCase{"DocumentMarkBeyondRangeInMetric",
                   Row("UnitNum", kTons),
                   {"5000", true, false},
                   "METRIC",
                   {},
                   "Above the maximum of 10551 kW"},
        ReasonCase{"DocumentMarkBeyondRangeGrouped",
                   Row("UnitNum", R"(Unit="TONS_TO_KW" Format="#,##0" MinVal="50" MaxVal="3000")"),
                   {"5000", true, false},
                   "ENGLISH",
                   {},
                   "Above the maximum of 3,000 ton"},
        ReasonCase{"DocumentMarkWithUnitNotListed",
                   Row("UnitDrop", kHeads),
                   {"3(m)", true, false},
                   "ENGLISH",
                   {},
                   "Not one of the listed units"},
        ReasonCase{"DocumentMarkOnText",
                   Row("TextBox"),
                   {"x", true, false},
                   "ENGLISH",
                   {},
                   "Marked invalid in the document"}),
    CaseName);

TEST_F(EditingTest, TheHostsMarkIsItsReasonAndAValueItLeftKeepsItsOwn) {
    Load({Row("TextBox"), Row("UnitNum", kTons)},
         {Column({{"a", true, true, true}, {"5000", true, false}})});
    host.onAppGridEventHandler = [](xml::Node& gridValue) {
        gridValue.select("CellValues/CellValue[1]")[0].setAttribute("Valid", "0");
    };
    Click(1, 1);
    Paste("b");
    PointAtHeader();
    EXPECT_EQ(control().CellProblem(1, 1), "Marked invalid by the host");
    EXPECT_EQ(control().CellProblem(2, 1), "Above the maximum of 3000 ton");
    EXPECT_EQ(control().ProblemCount(), 2);
    EXPECT_EQ(form().treTreeView.node(1).problems, 2);
}

// Undo and redo put flags back, the host's mark included: counts, marks and reasons
// follow them.
TEST_F(EditingTest, CountsAndReasonsFollowUndoAndRedo) {
    Load({Row("TextBox"), Row("UnitNum", kTons)}, {Column({{"a", true, true, true}, {"400"}})});
    host.onAppGridEventHandler = [](xml::Node& gridValue) {
        gridValue.select("CellValues/CellValue[1]")[0].setAttribute("Valid", "0");
    };
    Click(2, 1);
    Paste("5000");
    PointAtHeader();
    Click(1, 1);
    Paste("b");
    PointAtHeader();
    ASSERT_EQ(control().ProblemCount(), 2);

    ASSERT_TRUE(control().Undo());
    EXPECT_EQ(control().ProblemCount(), 1);
    EXPECT_EQ(control().CellProblem(1, 1), "");
    ASSERT_TRUE(control().Undo());
    EXPECT_EQ(control().ProblemCount(), 0);
    EXPECT_EQ(form().treTreeView.node(1).problems, 0);
    EXPECT_EQ(control().CellProblem(2, 1), "");

    ASSERT_TRUE(control().Redo());
    ASSERT_TRUE(control().Redo());
    EXPECT_EQ(control().ProblemCount(), 2);
    EXPECT_EQ(form().treTreeView.node(1).problems, 2);
    EXPECT_EQ(control().CellProblem(2, 1), "Above the maximum of 3000 ton");
    EXPECT_EQ(control().CellProblem(1, 1), "Marked invalid in the document");
}

// Two nodes over the same layout; counts follow each commit and each host change, and a
// node shown again brings back the reason this session found.
TEST_F(EditingTest, CountsAndTreeMarksFollowCommitsAndReasonsSurviveLeavingTheNode) {
    const std::string second =
        R"(<Pnode Name="N2" KeyValue="N2" GridHeaderKey="H" GridValueKey="K2" Filter="0"/>)";
    const std::string row = Row("UnitNum", kTons);
    Load({row, row},
         {Column({{"400"}, {"9000", true, false}},
                 CellValues("K2", {{"9000", true, false}, {"9000", true, false}}))},
         "ENGLISH", "", second);
    const TreeView& tree = form().treTreeView;
    EXPECT_EQ(control().ProblemCount(), 3);
    EXPECT_EQ(tree.node(1).problems, 1);
    EXPECT_EQ(tree.node(2).problems, 2);

    Click(1, 1);
    Paste("20");  // below the minimum of 50
    PointAtHeader();
    Click(2, 1);
    Paste("100");
    PointAtHeader();
    EXPECT_EQ(control().ProblemCount(), 3);
    EXPECT_EQ(tree.node(1).problems, 1);

    form().treTreeView.userClickNode(2);
    form().treTreeView.userClickNode(1);
    EXPECT_EQ(control().CellProblem(1, 1), "Below the minimum of 50 ton");
    EXPECT_EQ(control().CellProblem(2, 1), "");

    ASSERT_TRUE(LoadText(Document({row}, {Column({{"1"}})})));
    EXPECT_EQ(control().ProblemCount(), 0);
    EXPECT_EQ(control().CellProblem(1, 1), "");
}

}  // namespace
}  // namespace tabulon::testing
