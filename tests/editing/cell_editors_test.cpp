// Opening, placing and filling the four in-place editors.
#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

class CellEditors : public EditingTest {};

TEST_F(CellEditors, TextBoxSelectsTheWholeCellTextAndUnknownTypesAreReported) {
    Load({Row("TextBox", "MaxLength=\"7\""), Row("TextBox")}, {Column({{"héllo"}, {"x"}})});
    Click(1, 1);
    const TextBox& box = form().txtTextBoxControl;
    EXPECT_EQ(box.text(), "héllo");
    EXPECT_EQ(box.maxLength(), 7);
    EXPECT_EQ(box.selLength(), 5);  // characters, not bytes
    EXPECT_TRUE(box.hasFocus());
    // Kinds are named case-sensitively; a host may rename a row's type at run time.
    ASSERT_EQ(EditorKindNamed("textbox"), EditorKind::None);
    core().doc.arrRowInfo[2].ControlType = EditorKind::None;
    Click(2, 1);  // entering the cell, then the click with no editor open: two attempts
    EXPECT_THAT(VisibleEditors(), IsEmpty());
    ExpectMessages({Information("Invalid control name"), Information("Invalid control name")});
}

TEST_F(CellEditors, ComboBoxListRules) {
    struct Case {
        std::string listValues, cellText;
        std::vector<std::string> items;  // empty: nothing opens
        int listIndex;
    };
    for (const Case& c : std::vector<Case>{
             {"é", "é", {}, -1},  // shorter than two characters
             {"a;;b", "b", {"a", "", "b"}, 2},
             {"Low;High", "low", {"Low", "High"}, -1},  // not listed (case counts)
         }) {
        SCOPED_TRACE(c.listValues);
        Load({Row("ComboBox", "ListValues=\"" + c.listValues + "\"")}, {Column({{c.cellText}})});
        Click(1, 1);
        const ComboBox& box = form().cboComboBoxControl;
        EXPECT_EQ(box.visible(), !c.items.empty());
        EXPECT_EQ(box.items(), c.items);
        EXPECT_EQ(box.listIndex(), c.listIndex);
        PointAtHeader();
    }
}

TEST_F(CellEditors, UnitFaultsKeepTheEditorHidden) {
    struct Case {
        std::string row, cellText, message;  // no message: the editor opens
        int unitCode;                        // of the number box; -1: not checked
    };
    for (const Case& c : std::vector<Case>{
             {Row("UnitDrop", "Unit=\"FT_TO_M\""), "3(yd)",
              "Invalid unit defined with UnitDrop value within XML.", -1},
             {Row("UnitDrop", "Unit=\"NOPE\""), "3", "Invalid UnitDrop units defined in XML.", -1},
             {Row("UnitDrop", "Unit=\"NOPE;FT_TO_M\""), "3(ft)", "", -1},  // NOPE is skipped
             {Row("UnitNum", R"(Unit="FT_TO_M" MinVal="5" MaxVal="1")"), "3",
              "Invalid UnitNum units defined in XML.", 19},
             {Row("UnitNum", "Unit=\"NOPE\""), "3", "", 0},  // opens without a unit
         }) {
        SCOPED_TRACE(c.row);
        Load({c.row}, {Column({{c.cellText}})});
        Click(1, 1);
        ExpectMessages(c.message.empty() ? std::vector<RecordedMessage>{}
                                         : std::vector{Information(c.message)});
        EXPECT_EQ(VisibleEditors().size(), c.message.empty() ? 1u : 0u);
        if (c.unitCode != -1) {
            EXPECT_EQ(form().unitNumControl.UnitCode(), c.unitCode);
        }
        PointAtHeader();
        ClearRecords();
    }
}

}  // namespace
}  // namespace tabulon::testing
