// Opening, placing and filling the four in-place editors.
#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

class CellEditors : public EditingTest {};

// One row of each editor type, in the order of the form's editors.
const std::vector<std::string> kEveryType = {Row("TextBox"), Row("ComboBox", "ListValues=\"a;b\""),
                                             Row("UnitNum", "Unit=\"FT_TO_M\""),
                                             Row("UnitDrop", "Unit=\"FT_TO_M\"")};
const std::vector<std::string> kEveryTypeValues = {Column({{"a"}, {"a"}, {"1"}, {"1(ft)"}})};

TEST_F(CellEditors, DisabledCellOpensNothingAndGridKeepsFocus) {
    Load({Row("TextBox")}, {Column({{"a", false}}), Column({{"b"}})});
    Click(1, 2);
    ASSERT_THAT(VisibleEditors(), ElementsAre("txtTextBoxControl"));
    Click(1, 1);
    EXPECT_THAT(VisibleEditors(), IsEmpty());
    EXPECT_TRUE(grid().hasFocus());
}

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

TEST_F(CellEditors, ClickOnCurrentCellReopensOnlyWhenNoEditorIsVisible) {
    Load({Row("TextBox")}, {Column({{"x"}})});
    Click(1, 1);  // already current: only the grid's Click runs
    Paste("typed");
    Click(1, 1);
    EXPECT_EQ(form().txtTextBoxControl.text(), "typed");  // not filled again
    PointAtHeader();
    Click(1, 1);
    EXPECT_THAT(VisibleEditors(), ElementsAre("txtTextBoxControl"));
}

TEST_F(CellEditors, ColumnsNarrowerThanTwoGetNoEditor) {
    Load(kEveryType, kEveryTypeValues);
    for (const int width : {1, 2}) {
        grid().setColWidth(1, width);
        for (int r = 1; r <= 4; ++r) {
            Click(r, 1);
            EXPECT_EQ(VisibleEditors().size(), width == 2 ? 1u : 0u) << width << " row " << r;
            PointAtHeader();
        }
    }
}

TEST_F(CellEditors, EditorsCoverTheCellAndStopAtTheScrollBars) {
    Load(kEveryType, kEveryTypeValues);
    const Component* editors[] = {&form().txtTextBoxControl, &form().cboComboBoxControl,
                                  &form().unitNumControl, &form().unitDropControl};
    for (const bool bars : {false, true}) {
        form().vscGrid.setVisible(bars);
        form().hscGrid.setVisible(bars);
        for (int r = 1; r <= 4; ++r) {
            SCOPED_TRACE(std::to_string(bars) + " row " + std::to_string(r));
            const std::int32_t left = grid().left() + grid().colPos(1);
            const std::int32_t top = grid().top() + grid().rowPos(r);
            form().vscGrid.setLeft(left + 500);
            form().hscGrid.setTop(top + 100);
            const Component& editor = *editors[r - 1];
            const bool cellHeight = r == 1 || r == 3;  // the text box and the number box
            const std::int32_t height = cellHeight ? grid().rowHeight(r) : editor.height();
            Click(r, 1);
            EXPECT_EQ(editor.left(), left);
            EXPECT_EQ(editor.top(), top);
            EXPECT_EQ(editor.width(), bars ? 500 : grid().colWidth(1));
            EXPECT_EQ(editor.height(), bars && cellHeight ? 100 : height);
            PointAtHeader();
        }
    }
}

TEST_F(CellEditors, UnitDropReadsNumberAndUnitFromTheCell) {
    struct Case {
        std::string cellText, unit, number;
    };
    for (const Case& c : std::vector<Case>{{"12.50(ft)", "ft", "12.5"},
                                           {"12.50 (in)", "in", "13"},  // blank tolerated
                                           {"12.50", "", "13"},         // the last unit's format
                                           {"", "", ""}}) {
        SCOPED_TRACE(c.cellText);
        Load({Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0" MaxVal="10;20")")},
             {Column({{c.cellText}})});
        grid().setColWidth(1, 1081);
        Click(1, 1);
        const UnitDropBox& box = form().unitDropControl;
        EXPECT_EQ(box.UnitLabels(), (std::vector<std::string>{"ft", "in"}));
        EXPECT_EQ(box.Units()[1].maximum, 20);
        EXPECT_EQ(box.SelectedUnitText(), c.unit);
        EXPECT_EQ(box.NumberText(), c.number);
        EXPECT_EQ(box.NumberWidth(), 540);  // 540.5 rounded half to even
        EXPECT_EQ(box.UnitWidth(), 541);
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
