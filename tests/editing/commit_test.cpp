// Writing the editor's value into the grid and the document, and the host's
// validation round trip.
#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

class CommitCellEdit : public EditingTest {};

TEST_F(CommitCellEdit, NegativeBelowMinimumBecomesZero) {
    struct Case {
        std::string minVal, typed, shown, valid;
    };
    for (const Case& c :
         std::vector<Case>{{"0", "-5", "0.00", "1"},     // zero, not the minimum
                           {"-10", "-5", "-5.00", "1"},  // not below the minimum: kept
                           {"5", "-3", "0.00", "0"},     // zero may still be out of range
                           {"0", "150", "150.00", "0"}}) {
        SCOPED_TRACE(c.minVal + " / " + c.typed);
        Load({Row("UnitNum",
                  R"(Unit="FT_TO_M" Format="0.00" MaxVal="100" MinVal=")" + c.minVal + "\"")},
             {Column({{"1", true, c.valid == "1"}})});
        Edit(1, 1, c.typed);
        EXPECT_EQ(Shown(1, 1), c.shown);
        EXPECT_EQ(Stored(1, 1), c.shown);
        EXPECT_EQ(Attribute(1, 1, "Valid"), c.valid);
        EXPECT_EQ(grid().cellBackColor(1, 1), c.valid == "1" ? kWhite : kRed);
    }
}

TEST_F(CommitCellEdit, UnitDropWritesNumberThenUnitWithoutBlank) {
    struct Case {
        std::string cellText, typed, shown;
    };
    for (const Case& c : std::vector<Case>{{"5(ft)", "", "0.0(ft)"},  // zero in the unit's format
                                           {"5(in)", "7", "7(in)"},
                                           {"", "", ""},
                                           {"5", "7.25", "7.3"}}) {  // no unit: the row's format
        SCOPED_TRACE(c.cellText + " / " + c.typed);
        Load({Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0")")},
             {Column({{c.cellText}})});
        Edit(1, 1, c.typed);
        EXPECT_EQ(Shown(1, 1), c.shown);
        EXPECT_EQ(Stored(1, 1), c.shown);
    }
}

// The user's switch of unit keeps the quantity; the commit then judges the number by
// the limits of the unit picked.
TEST_F(CommitCellEdit, ASwitchOfUnitKeepsTheQuantityAndTheNewUnitsLimitsApply) {
    struct Case {
        std::string maxVal, stored, valid;
    };
    for (const Case& c :
         std::vector<Case>{{"100;1000", "870(MBH)", "1"}, {"100;800", "870(MBH)", "0"}}) {
        SCOPED_TRACE(c.maxVal);
        Load({Row("UnitDrop",
                  R"(Unit="TONS_TO_KW;MBH_TO_KW" Format="0.0;0" MaxVal=")" + c.maxVal + "\"")},
             {Column({{"72.5(ton)"}})});
        Click(1, 1);
        ASSERT_TRUE(form().unitDropControl.UserPickUnit("MBH"));
        EXPECT_EQ(form().unitDropControl.NumberText(), "870");
        PointAtHeader();
        EXPECT_EQ(Stored(1, 1), "870(MBH)");
        EXPECT_EQ(Attribute(1, 1, "Valid"), c.valid);
    }
}

TEST_F(CommitCellEdit, HostValidatesOnlyCommittedCellsThatAskForIt) {
    Load({Row("TextBox"), Row("TextBox")}, {Column({{"a", true, true, true}, {"b"}})});
    Click(2, 1);
    Paste("no host");
    Click(1, 1);  // commits row 2, which does not ask
    EXPECT_THAT(host.events(), IsEmpty());
    Paste("z");
    PointAtHeader();
    PointAtHeader();  // nothing open: nothing committed, no second event
    const std::vector<RecordedEvent>& events = host.events();
    ASSERT_EQ(events.size(), 3u);
    EXPECT_EQ(events[0], (RecordedEvent{HostEventKind::WaitCursor, "1"}));
    EXPECT_EQ(events[1].kind, HostEventKind::AppGridEventHandler);
    EXPECT_THAT(events[1].text, ::testing::StartsWith("<GridValue>"));
    EXPECT_THAT(events[1].text, ::testing::HasSubstr(">z</CellValue>"));
    EXPECT_EQ(events[2], (RecordedEvent{HostEventKind::WaitCursor, "0"}));
}

TEST_F(CommitCellEdit, AHostThatFailsGetsItsCursorBackAndTheCommitReportsTheFailure) {
    Load({Row("TextBox")}, {Column({{"a", true, true, true}})});
    host.onAppGridEventHandler = [](xml::Node&) { throw std::runtime_error("host failed"); };
    Edit(1, 1, "z");
    EXPECT_EQ(host.eventsOf(HostEventKind::WaitCursor),
              (std::vector<RecordedEvent>{{HostEventKind::WaitCursor, "1"},
                                          {HostEventKind::WaitCursor, "0"}}));
    ExpectMessages({Critical("Unexpected Error - 1010")});
    EXPECT_EQ(Stored(1, 1), "z");  // the value was written before the host ran
}

}  // namespace
}  // namespace tabulon::testing
