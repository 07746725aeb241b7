// The saving gate answers at once while it knows the document valid; after every way a
// value's Valid flag can change (a commit, a paste, a fill, a delete, undo and redo, the
// host's mark, another unit, a Metric document, another document loaded) it must give
// what a fresh control holding the same text gives.
#include <functional>

#include "editing_fixture.h"

namespace tabulon::testing {
namespace {

const std::string kTons =
    Row("UnitNum", R"(Unit="TONS_TO_KW" Format="0" MinVal="50" MaxVal="3000")");
const std::string kFewTons =
    Row("UnitNum", R"(Unit="TONS_TO_KW" Format="0" MinVal="50" MaxVal="450")");
const std::string kHeads = Row(
    "UnitDrop", R"(Unit="FTWG_TO_KPA;PSI_TO_KPA" Format="0.0;0.00" MinVal="0;0" MaxVal="50;20")");

// Rows: tons up to 3000 (1), tons up to 450 (2), a text the host checks (3), a head in
// two units (4). Two columns, every value valid unless the last of row 2 is marked.
std::string TwoColumns(const std::string& unitSystem, bool lastMarked = false) {
    const auto column = [lastMarked](const char* first, bool last) {
        return Column({{first},
                       {"300", true, !(last && lastMarked)},
                       {"a", true, true, true},
                       {"18.5(ft wg)"}});
    };
    return Document({kTons, kFewTons, Row("TextBox"), kHeads},
                    {column("400", false), column("500", true)}, unitSystem, "", Pnode("N2", "K2"));
}

// What the gate did: View/Print raised, or refused with the invalid cell shown.
struct Outcome {
    bool printed = false;
    std::vector<RecordedMessage> messages;
    int node = 0, row = 0, col = 0;
    bool operator==(const Outcome&) const = default;
};

void PrintTo(const Outcome& o, std::ostream* os) {
    *os << (o.printed ? "printed" : "refused") << " at node " << o.node << " (" << o.row << ", "
        << o.col << ") with " << o.messages.size() << " message(s)";
}

class GateAfterEdits;

struct GateCase {
    const char* name;
    const char* unitSystem;
    std::function<void(GateAfterEdits&)> steps;
    bool validAfter;
};

void PrintTo(const GateCase& c, std::ostream* os) {
    *os << c.name;
}

class GateAfterEdits : public EditingTest, public ::testing::WithParamInterface<GateCase> {
public:
    // The gate: View/Print pressed.
    Outcome Gate() {
        ClearRecords();
        form().cmdPrint.userClick();
        if (!host.eventsOf(HostEventKind::PrintClick).empty()) return {true, sink.messages()};
        return {false, sink.messages(), form().treTreeView.selectedIndex(), grid().row(),
                grid().col()};
    }
    // The host marks row 1 of the column it is handed invalid.
    void HostMarksRowOne() {
        host.onAppGridEventHandler = [](xml::Node& gridValue) {
            gridValue.select("CellValues/CellValue[1]")[0].setAttribute("Valid", "0");
        };
    }
    // An invalid value at (1, 1), made valid again (by a new edit, or by undo), the
    // gate passed, then the invalid value brought back by undo (or by redo).
    void BringBack(bool byRedo) {
        Edit(1, 1, "5000");
        if (byRedo) {
            control().Undo();
        } else {
            Edit(1, 1, "400");
        }
        Gate();
        if (byRedo) {
            control().Redo();
        } else {
            control().Undo();
        }
    }
    using EditingTest::control;
    using EditingTest::Edit;
    using EditingTest::LoadText;
};

TEST_P(GateAfterEdits, TheGateAgreesWithAFreshControl) {
    const GateCase& c = GetParam();
    ASSERT_TRUE(LoadText(TwoColumns(c.unitSystem)));
    ASSERT_TRUE(Gate().printed);  // known valid from here
    c.steps(*this);
    const Outcome after = Gate();
    EXPECT_EQ(after.printed, c.validAfter);

    const std::string text = control().XML();
    NewControl();
    ASSERT_TRUE(LoadText(text));
    EXPECT_EQ(after, Gate());
}

using T = GateAfterEdits;

INSTANTIATE_TEST_SUITE_P(
    Paths, GateAfterEdits,
    ::testing::Values(
        GateCase{"CommitAboveTheMaximum", "ENGLISH", [](T& g) { g.Edit(2, 2, "5000"); }, false},
        GateCase{"CommitBelowTheMetricMinimum", "METRIC", [](T& g) { g.Edit(1, 1, "100"); }, false},
        GateCase{"CorrectedAfterTheGate", "ENGLISH",
                 [](T& g) {
                     g.Edit(1, 1, "5000");
                     g.Gate();
                     g.Edit(1, 1, "400");
                 },
                 true},
        GateCase{"PasteAboveTheMaximum", "ENGLISH",
                 [](T& g) {
                     g.control().SelectCells(2, 1, 2, 1);
                     g.control().PasteCells("400\t9000");
                 },
                 false},
        GateCase{"DeleteInAColumnTheHostMarks", "ENGLISH",
                 [](T& g) {
                     g.HostMarksRowOne();
                     g.control().SelectCells(3, 2, 3, 2);
                     g.control().ClearCells();
                 },
                 false},
        GateCase{"UndoBringsBackAnInvalidValue", "ENGLISH", [](T& g) { g.BringBack(false); },
                 false},
        GateCase{"RedoBringsBackAnInvalidValue", "ENGLISH", [](T& g) { g.BringBack(true); }, false},
        GateCase{"UndoOfTheHostsMark", "ENGLISH",
                 [](T& g) {
                     g.HostMarksRowOne();
                     g.Edit(3, 2, "b");
                     g.Gate();
                     g.control().Undo();
                     g.Gate();
                     g.control().Redo();
                 },
                 false},
        GateCase{"AnotherDocumentLoaded", "ENGLISH",
                 [](T& g) { g.LoadText(TwoColumns("ENGLISH", true)); }, false}),
    [](const ::testing::TestParamInfo<GateCase>& param) { return std::string(param.param.name); });

}  // namespace
}  // namespace tabulon::testing
