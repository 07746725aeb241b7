// Protective editing: off by default, the control does as designed; on, it keeps the
// data the user did not touch in the four places where the design changes or drops
// it. Each test runs the same gestures with the switch off, then on.
#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

class ProtectiveEditing : public EditingTest {
protected:
    template <class... More>
    void LoadWith(bool protective, const std::vector<std::string>& rows,
                  const std::vector<std::string>& columns, More&&... more) {
        control().SetProtectiveEditing(protective);
        Load(rows, columns, std::forward<More>(more)...);
    }
};

// As designed, leaving a Metric cell stores the rounded display value converted back.
TEST_F(ProtectiveEditing, LeavingAnUnchangedEditorWritesNothing) {
    const std::string tons = Row("UnitNum", R"(Unit="TONS_TO_KW" Format="0" MaxVal="100")");
    EXPECT_FALSE(control().ProtectiveEditing());  // off by default
    for (const bool protective : {false, true}) {
        SCOPED_TRACE(protective);
        LoadWith(protective, {tons, tons}, {Column({{"2400", true, true, true}, {"5"}})}, "METRIC");
        const std::string loaded = control().XML();
        Click(1, 1);
        Click(2, 1);  // leaves (1, 1) unchanged
        if (protective) {
            EXPECT_EQ(control().XML(), loaded);
            EXPECT_THAT(host.events(), IsEmpty());
        } else {
            EXPECT_EQ(Stored(1, 1), "2399.8729486");
            EXPECT_EQ(Attribute(1, 1, "Valid"), "0");  // above MaxVal: now red
            EXPECT_EQ(host.eventsOf(HostEventKind::AppGridEventHandler).size(), 1u);
        }
        Paste("2");  // a changed value is written either way
        PointAtHeader();
        EXPECT_EQ(Stored(2, 1), "0.5686903");
    }
}

// A malformed UnitDrop value makes the column fill fail and empties every value cell.
TEST_F(ProtectiveEditing, NoEditorOpensOnCellsAFailedFillEmptied) {
    const std::string drop = Row("UnitDrop", R"(Unit="FT_TO_M")");
    for (const bool protective : {false, true}) {
        SCOPED_TRACE(protective);
        control().SetProtectiveEditing(protective);
        ASSERT_TRUE(LoadText(Document({Row("TextBox"), drop}, {Column({{"good"}, {"12("}})})));
        ExpectMessages({Critical("Unexpected Error - 1035")});
        ClearRecords();
        ASSERT_EQ(Shown(1, 1), "");
        Click(1, 1);
        form().cmdOK.userClick();
        EXPECT_EQ(Stored(1, 1), protective ? "good" : "");
        EXPECT_THAT(VisibleEditors(), IsEmpty());
    }
}

// As designed, selecting a node hides the editor and the typed value is gone.
TEST_F(ProtectiveEditing, ClickingAnotherNodeCommitsTheOpenEditorFirst) {
    for (const bool protective : {false, true}) {
        SCOPED_TRACE(protective);
        LoadWith(protective, {Row("TextBox")}, {Column({{"a"}}, CellValues("K2", {{"x"}}))},
                 "ENGLISH", "", Pnode("N2", "K2"));
        Click(1, 1);
        Paste("typed");
        form().treTreeView.userClickNode(2);
        EXPECT_EQ(Shown(1, 1), "x");
        form().treTreeView.userClickNode(1);
        EXPECT_EQ(Shown(1, 1), protective ? "typed" : "a");
    }
}

// As designed, a Metric UnitDrop commit stores the English number under the Metric
// label shown; shown in English later, it reads as that many of the Metric unit.
TEST_F(ProtectiveEditing, MetricUnitDropValuesAreStoredWithTheirEnglishUnit) {
    const std::string heat = Row("UnitDrop", R"(Unit="MBH_TO_KW" Format="0.0")");
    for (const bool protective : {false, true}) {
        SCOPED_TRACE(protective);
        LoadWith(protective, {heat}, {Column({{"1000(MBH)"}})}, "METRIC");
        Edit(1, 1, "1477");
        EXPECT_EQ(Shown(1, 1), "1477.0(kW)");
        EXPECT_EQ(Stored(1, 1), protective ? "5039.7331921(MBH)" : "5039.7331921(kW)");
        // The stored text reads back the same in the Metric view.
        ASSERT_TRUE(LoadText(control().XML()));
        EXPECT_EQ(Shown(1, 1), "1477.0(kW)");
    }
}

}  // namespace
}  // namespace tabulon::testing
