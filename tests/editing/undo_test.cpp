// Undo and redo as the user and the host see them: Escape, the keys and the modified
// flag. The editor's own undo going first is checked with real
// keys (tests/qt/session_parity_test.cpp), the document and grid given back on random
// edits (the soak test and the gesture fuzzer, tests/reliability), block edits in
// block_edit_test.cpp.
#include "editing/editing_fixture.h"
#include "platform/key_codes.h"
#include "view/editor_value.h"

namespace tabulon::testing {
namespace {

const std::string kCapacity = Row("UnitNum", R"(Unit="FT_TO_M" Format="0.00" MaxVal="100")");

class Undo : public EditingTest {
protected:
    // A key stroke with Ctrl (and Shift) held, as the widget and the session send it.
    void CtrlKey(char letter, bool shift = false) {
        control().UserKeyStroke(letter, letter - 'A' + 1, kCtrlBit | (shift ? kShiftBit : 0));
    }
    void Escape() { control().UserKeyStroke(keys::kEscape, keys::kEscape, 0); }
};

// In each editor kind, its own undo and redo, then Escape: the value it opened with
// comes back and the commit that follows leaves the English document as it was.
TEST_F(Undo, OwnUndoRedoAndEscapeInEveryEditorKind) {
    Load({Row("TextBox"), Row("ComboBox", R"(ListValues="x;y")"), kCapacity,
          Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0")")},
         {Column({{"a"}, {"x"}, {"12.50"}, {"3.0(ft)"}})});
    const std::string loaded = control().XML();
    for (int row = 1; row <= 4; ++row) {
        SCOPED_TRACE(row);
        Click(row, 1);
        const EditorValue opened = VisibleEditorValue(form());
        if (row == 2) {
            ASSERT_TRUE(form().cboComboBoxControl.userPick("y"));
        }
        if (row == 4) {
            ASSERT_TRUE(form().unitDropControl.UserPickUnit("in"));
        }
        if (row != 2) Paste("99");
        const EditorValue changed = VisibleEditorValue(form());
        EXPECT_NE(changed, opened);
        CtrlKey('Z');  // the editor's own undo and redo
        EXPECT_EQ(VisibleEditorValue(form()), opened);
        CtrlKey('Y');
        EXPECT_EQ(VisibleEditorValue(form()), changed);
        Escape();
        EXPECT_EQ(VisibleEditorValue(form()), opened);
        if (row == 1) {
            EXPECT_EQ(form().txtTextBoxControl.selLength(), 1);  // typing replaces it again
        }
        if (row == 3) {
            EXPECT_EQ(form().unitNumControl.SelLength(), 5);
        }
        PointAtHeader();
    }
    EXPECT_EQ(control().XML(), loaded);
}

// The control's key-up handler swallows every key-up while the selection is in the
// data area; the editing keys act before it, wherever the focus is in the control.
TEST_F(Undo, KeysActWithTheGridTreeOrButtonFocused) {
    Load({Row("TextBox")}, {Column({{"a"}})});
    for (Component* focus : std::vector<Component*>{&grid(), &form().treTreeView, &form().cmdOK}) {
        SCOPED_TRACE(focus->name());
        Edit(1, 1, "b");
        focus->setFocus();
        ASSERT_GE(grid().colSel(), 1);
        CtrlKey('Z');
        EXPECT_EQ(Stored(1, 1), "a");
        focus->setFocus();
        CtrlKey('Y');
        EXPECT_EQ(Stored(1, 1), "b");
        ASSERT_TRUE(control().Undo());
    }
    EXPECT_THAT(host.events(), IsEmpty());
}

// Edits, undo and redo are checked through the session; here the saved state.
TEST_F(Undo, ModifiedFollowsTheSavedState) {
    Load({Row("TextBox")}, {Column({{"a"}})});
    Edit(1, 1, "a");  // written, but the document is as it was
    EXPECT_FALSE(control().IsModified());
    Edit(1, 1, "b");
    form().cmdOK.userClick();  // OKClick for a LoadXML document: saved
    EXPECT_FALSE(control().IsModified());
    control().Undo();
    EXPECT_TRUE(control().IsModified());
    Edit(1, 1, "c");  // the saved state can no longer be reached
    EXPECT_TRUE(control().IsModified());
    control().Undo();
    EXPECT_TRUE(control().IsModified());

    // A file: OK saves it; a save that fails leaves the flag set.
    ASSERT_TRUE(LoadPath(TempFile("doc.xml", Document({Row("TextBox")}, {Column({{"a"}})}))));
    Edit(1, 1, "b");
    form().cmdOK.userClick();
    EXPECT_FALSE(control().IsModified());
    Edit(1, 1, "c");
    core().doc.strXMLPath = (TempDir() / "missing" / "doc.xml").string();
    form().cmdOK.userClick();
    EXPECT_TRUE(control().IsModified());
}

// What each value cell shows: text, colours and the note of a red cell.
std::vector<std::string> GridLook(const FlexGrid& grid) {
    std::vector<std::string> look;
    for (int r = 1; r < grid.rows(); ++r) {
        for (int c = 1; c < grid.cols(); ++c) {
            look.push_back(grid.textMatrix(r, c) + "|" + std::to_string(grid.cellForeColor(r, c)) +
                           "|" + std::to_string(grid.cellBackColor(r, c)) + "|" +
                           grid.cellNote(r, c));
        }
    }
    return look;
}

// After every undo and redo in a Metric document the grid looks as a fresh load of the
// document then shows it: converted units, red cells with their notes, and a column
// where a second CellValues of the same key covers the first's cells.
TEST_F(Undo, EachStepShowsWhatAFreshLoadShows) {
    const std::string drop = Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0")");
    Load({Row("TextBox"), kCapacity, drop},
         {Column({{"a"}, {"12.50"}, {"3.0(ft)"}}),
          Column({{"b"}, {"20"}, {"4(in)"}}, CellValues("K", {{"c"}, {"30"}}))},
         "METRIC");
    Edit(2, 1, "150");  // past MaxVal: red
    Edit(3, 2, "7", "mm");
    Edit(1, 2, "q");  // the covering CellValues
    Edit(2, 2, "12");
    std::vector<std::pair<std::string, std::vector<std::string>>> seen;
    const auto step = [&](bool undo) {
        ASSERT_TRUE(undo ? control().Undo() : control().Redo());
        seen.emplace_back(control().XML(), GridLook(grid()));
    };
    for (const bool undo : {true, true, true, true, false, false, false, true, false, false})
        step(undo);
    ExpectMessages({});
    for (const auto& [xml, look] : seen) {
        NewControl();
        ASSERT_TRUE(LoadText(xml));
        EXPECT_EQ(GridLook(grid()), look) << xml;
    }
}

// A unit fault ends the Metric display pass and leaves the cells after it in English.
// An undo in that column shows them as the column's own pass leaves them, and says so
// again, rather than converting only the cell it gives back.
TEST_F(Undo, AfterAUnitFaultTheColumnIsShownAsItsPassLeavesIt) {
    const std::string drop = Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0")");
    ASSERT_TRUE(
        LoadText(Document({drop, kCapacity}, {Column({{"3.0(yd)"}, {"12.50"}})}, "METRIC")));
    const std::vector<RecordedMessage> fault = sink.messages();
    ASSERT_EQ(fault.size(), 1U);
    ASSERT_EQ(Shown(2, 1), "12.50");  // after the fault: not converted
    Edit(2, 1, "1");
    ClearRecords();
    ASSERT_TRUE(control().Undo());
    EXPECT_EQ(Shown(2, 1), "12.50");
    ExpectMessages(fault);
}

}  // namespace
}  // namespace tabulon::testing
