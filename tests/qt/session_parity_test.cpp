// The same steps through real Qt input events and through the session tool give the
// same control: current cell, cell texts and colours, the document, events and
// message boxes.
#include <QApplication>
#include <QComboBox>
#include <QScrollBar>
#include <QTest>
#include <QTreeWidget>

#include "qt/bindings/scroll_bar_binding.h"
#include "qt/bindings/unit_box_binding.h"
#include "qt/bindings/unit_drop_binding.h"
#include "qt/find_bar.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

class SessionParity : public WidgetFixture {
protected:
    // Loads a copy of a sample into the widget and returns its path.
    std::string LoadCopy(const std::string& sample) {
        const std::string path = SampleCopy(sample);
        EXPECT_TRUE(Load(path));
        return path;
    }
    // Runs the session tool on document with steps, then dumps the grid and reads the
    // document, and expects the same outcome as the widget's; returns the run.
    SessionRun ExpectSameAs(const std::string& document, const std::string& steps) {
        const SessionRun run = RunSteps("load \"" + document + "\"\n" + steps + "dump grid\nxml\n");
        ExpectSameOutcome(run);
        return run;
    }
};

TEST_F(SessionParity, LayoutOfEveryChildMatchesTheSessionAtTheSameSize) {
    const JsonValue layout = LastDump(RunSteps("dump layout\n"), "layout");
    ASSERT_TRUE(layout.has("treTreeView"));
    for (Component* child : form().children()) {
        const JsonValue& expected = layout[child->name()];
        if (!expected.has("left")) continue;
        SCOPED_TRACE(child->name());
        EXPECT_EQ(child->left(), Int(expected["left"]));
        EXPECT_EQ(child->top(), Int(expected["top"]));
        EXPECT_EQ(child->width(), Int(expected["width"]));
        EXPECT_EQ(child->height(), Int(expected["height"]));
        EXPECT_EQ(child->visible(), expected["visible"].boolean);
    }
}

TEST_F(SessionParity, TypingIntoAValidatedCellThenTabRaisesTheSameAppGridEvent) {
    const std::string path = LoadCopy("english.xml");
    ClickNode("PUMPS");
    ClickCell(1, 1);
    TypeText(QStringLiteral("P9"));
    KeyClick(Qt::Key_Tab);

    ExpectSameAs(path, "node PUMPS\nclick 1 1\ntype \"P9\"\nkey Tab\n");
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "P9");
    ASSERT_EQ(events.size(), 1u);
    EXPECT_EQ(events[0].rfind("AppGridEventHandler ", 0), 0u);
}

TEST_F(SessionParity, ChoosingFromThePickListAndEnterCommitsLikeTheSession) {
    const std::string path = LoadCopy("english.xml");
    ClickCell(1, 1);
    auto* combo = qobject_cast<QComboBox*>(widget().widgetFor(form().cboComboBoxControl));
    ASSERT_TRUE(combo->isVisible());
    PickFromPopup(combo, QStringLiteral("Laboratory"));
    EXPECT_EQ(form().cboComboBoxControl.text(), "Laboratory");
    KeyClick(Qt::Key_Return);

    ExpectSameAs(path, "click 1 1\npick \"Laboratory\"\nkey Enter\n");
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "Laboratory");
}

TEST_F(SessionParity, OutOfRangeNumberTurnsTheCellRedLikeTheSession) {
    const std::string path = LoadCopy("english.xml");
    ClickCell(2, 1);
    std::string steps = "click 2 1\n";
    for (int i = 0; i < 6; ++i) {
        KeyClick(Qt::Key_Backspace);
        steps += "key Backspace\n";
    }
    TypeText(QStringLiteral("600000"));
    KeyClick(Qt::Key_Tab);

    ExpectSameAs(path, steps + "type \"600000\"\nkey Tab\n");
    EXPECT_NE(form().msgGridView.cellBackColor(2, 1), FlexGrid::kBackColor);
}

TEST_F(SessionParity, ChoosingAUnitInTheUnitDropDownMatchesTheSession) {
    const std::string path = LoadCopy("filtered.xml");
    ClickCell(4, 1);
    auto* binding = dynamic_cast<UnitDropBinding*>(widget().bindingFor(form().unitDropControl));
    ASSERT_NE(binding, nullptr);
    ASSERT_TRUE(binding->unitCombo()->isVisible());
    PickFromPopup(binding->unitCombo(), QStringLiteral("bhp"));
    EXPECT_EQ(form().unitDropControl.SelectedUnitText(), "bhp");
    KeyClick(Qt::Key_Tab);

    ExpectSameAs(path, "click 4 1\npick-unit \"bhp\"\nkey Tab\n");
}

TEST_F(SessionParity, TabEnterAndTheirReverseMoveLikeTheSession) {
    ASSERT_TRUE(Load("samples/english.xml"));
    ClickCell(1, 1);
    KeyClick(Qt::Key_Tab);
    KeyClick(Qt::Key_Tab);
    KeyClick(Qt::Key_Tab);  // last column: no wrap
    KeyClick(Qt::Key_Return);
    KeyClick(Qt::Key_Tab, Qt::ControlModifier);
    KeyClick(Qt::Key_Backtab, Qt::ShiftModifier);  // swallowed, does nothing
    KeyClick(Qt::Key_F8);
    KeyClick(Qt::Key_F5);

    ExpectSameAs("samples/english.xml",
                 "click 1 1\nkey Tab\nkey Tab\nkey Tab\nkey Enter\nkey Tab ctrl\n"
                 "key Tab shift\nkey F8\nkey F5\n");
    EXPECT_EQ(form().msgGridView.row(), 3);
    EXPECT_EQ(form().msgGridView.col(), 1);
}

TEST_F(SessionParity, FilterChoiceShowsTheSameColumns) {
    ASSERT_TRUE(Load("samples/filtered.xml"));
    auto* combo = qobject_cast<QComboBox*>(widget().widgetFor(form().cboFilter));
    ASSERT_TRUE(combo->isVisible());
    PickFromPopup(combo, QStringLiteral("End suction"));

    ExpectSameAs("samples/filtered.xml", "filter \"End suction\"\n");
    EXPECT_EQ(widget().FilterValue(), QStringLiteral("End suction"));
}

TEST_F(SessionParity, ButtonsRaiseTheSameEventsAndSpaceClicksOnce) {
    const std::string path = LoadCopy("english.xml");
    ClickButton(form().cmdPrint);
    ClickButton(form().cmdCancel);
    KeyClick(Qt::Key_Space);  // the Cancel button has the focus now
    ClickButton(form().cmdHelp);
    ClickButton(form().cmdOK);

    ExpectSameAs(path,
                 "button Print\nbutton Cancel\nbutton-key Cancel Space\nbutton Help\nbutton OK\n");
    ASSERT_EQ(events.size(), 5u);
    EXPECT_EQ(events[1], "CancelClick");
    EXPECT_EQ(events[2], "CancelClick");
}

TEST_F(SessionParity, EnterOnAButtonMovesTheGridInsteadOfClickingIt) {
    ASSERT_TRUE(Load("samples/english.xml"));
    ClickButton(form().cmdHelp);
    KeyClick(Qt::Key_Return);

    ExpectSameAs("samples/english.xml", "button Help\nbutton-key Help Enter\n");
    EXPECT_EQ(events, std::vector<std::string>{"HelpClick"});
    EXPECT_EQ(form().msgGridView.row(), 2);
}

TEST_F(SessionParity, ScrollBarClicksCommitTheEditorAndMoveTheGridLikeTheSession) {
    UseScrollBars();
    ASSERT_TRUE(Load("samples/filtered.xml"));
    ClickCell(1, 1);
    KeyClick(Qt::Key_End);  // the number opens selected: to its end
    KeyClick(Qt::Key_Backspace);
    TypeText(QStringLiteral("9"));
    QScrollBar* bar =
        dynamic_cast<ScrollBarBinding*>(widget().bindingFor(form().hscGrid))->scrollBar();
    ASSERT_TRUE(bar->isVisible() && bar->isEnabled());
    // The right arrow, then the track right of the thumb.
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      QPoint(bar->width() - 3, bar->height() / 2));
    ProcessEvents();
    const int afterArrow = form().msgGridView.leftCol();
    QTest::mouseClick(bar, Qt::LeftButton, Qt::NoModifier,
                      QPoint(bar->width() - bar->height() - 4, bar->height() / 2));
    ProcessEvents();

    const SessionRun run = RunSteps(
        "set-general intScrollBars=1\nload samples/filtered.xml\nclick 1 1\nkey End\nkey "
        "Backspace\n"
        "type \"9\"\nhscroll +1\nhscroll =" +
        std::to_string(form().hscGrid.bar().value()) + "\ndump grid\nxml\ndump scrollbars\n");
    ExpectSameOutcome(run);
    EXPECT_EQ(afterArrow, 2);
    // The bar took the focus before it moved: the open editor was committed.
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "189");
    EXPECT_FALSE(form().anyEditorVisible());
    const JsonValue bars = LastDump(run, "scrollbars");
    EXPECT_EQ(form().hscGrid.bar().value(), Int(bars["hscGrid"]["value"]));
    EXPECT_EQ(form().hscGrid.bar().max(), Int(bars["hscGrid"]["max"]));
    EXPECT_EQ(bar->value(), form().hscGrid.bar().value());
}

TEST_F(SessionParity, SplitterDragWidensTheTreeLikeTheSession) {
    ASSERT_TRUE(Load("samples/english.xml"));
    QWidget* splitter = widget().widgetFor(form().imgSplitter);
    const QPoint start = splitter->mapToGlobal(QPoint(splitter->width() / 2, 100));
    // The splitter moves under the pointer: every position is taken from the screen.
    const auto at = [splitter, start](int dx) {
        return splitter->mapFromGlobal(start + QPoint(dx, 0));
    };
    QTest::mousePress(splitter, Qt::LeftButton, Qt::NoModifier, at(0));
    QTest::mouseMove(splitter, at(20));
    QTest::mouseMove(splitter, at(30));
    QTest::mouseRelease(splitter, Qt::LeftButton, Qt::NoModifier, at(30));
    ProcessEvents();
    const std::int32_t dx = widget().scale().toTwipsX(30);

    const JsonValue layout =
        LastDump(ExpectSameAs("samples/english.xml",
                              "drag-splitter " + std::to_string(dx) + "\ndump layout\n"),
                 "layout");
    EXPECT_EQ(form().treTreeView.width(), Int(layout["treTreeView"]["width"]));
    EXPECT_EQ(form().msgGridView.left(), Int(layout["msgGridView"]["left"]));
    EXPECT_GT(form().treTreeView.width(), 2745);
}

TEST_F(SessionParity, CollapsingAParentByItsIndicatorMovesTheSelectionLikeTheSession) {
    ASSERT_TRUE(Load("samples/english.xml"));
    ClickNode("CHILLERS");
    auto* tree = qobject_cast<QTreeWidget*>(widget().widgetFor(form().treTreeView));
    QTreeWidgetItem* project = tree->topLevelItem(0);
    const QRect row = tree->visualItemRect(project);
    // The indicator lies left of the item's own rectangle.
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(row.left() - tree->indentation() / 2, row.center().y()));
    ProcessEvents();
    EXPECT_FALSE(project->isExpanded());

    const JsonValue dump = LastDump(
        ExpectSameAs("samples/english.xml", "node CHILLERS\ncollapse PROJECT\ndump tree\n"),
        "tree");
    for (int i = 1; i <= form().treTreeView.count(); ++i) {
        const JsonValue& node = dump["nodes"][static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(form().treTreeView.node(i).expanded, node["expanded"].boolean) << i;
        EXPECT_EQ(form().treTreeView.selectedIndex() == i, node["selected"].boolean) << i;
    }
}

TEST_F(SessionParity, ArrowKeyInTheTreeSelectsTheNextNodeLikeClickingIt) {
    ASSERT_TRUE(Load("samples/english.xml"));
    ClickNode("PROJECT");
    KeyClick(Qt::Key_Down);
    EXPECT_EQ(form().treTreeView.selectedIndex(), form().treTreeView.indexOf("AHU"));

    ExpectSameAs("samples/english.xml", "node PROJECT\nnode AHU\n");
}

TEST_F(SessionParity, EditingAMetricNumberStoresItLikeTheSession) {
    const std::string path = LoadCopy("metric.xml");
    ClickCell(1, 1);
    KeyClick(Qt::Key_Backspace);
    TypeText(QStringLiteral("5"));
    KeyClick(Qt::Key_Enter);

    ExpectSameAs(path, "click 1 1\nkey Backspace\ntype \"5\"\nkey Enter\n");
    EXPECT_EQ(form().msgGridView.row(), 2);
}

// The editor's own undo first, Escape, then the document's undo and redo: Ctrl+Z,
// Ctrl+Y and Ctrl+Shift+Z from the line edit and from the grid.
TEST_F(SessionParity, UndoRedoAndEscapeKeysMatchTheSession) {
    const std::string path = LoadCopy("english.xml");
    ClickNode("PUMPS");
    ClickCell(1, 1);
    TypeText(QStringLiteral("P9"));
    KeyClick(Qt::Key_Z, Qt::ControlModifier);  // the typing goes, the document stays
    TypeText(QStringLiteral("P7"));
    KeyClick(Qt::Key_Tab);  // committed; the host checks the tag
    TypeText(QStringLiteral("x"));
    KeyClick(Qt::Key_Escape);
    KeyClick(Qt::Key_Z, Qt::ControlModifier);  // the commit undone, cell (1, 1) current
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "CHWP-1");
    EXPECT_TRUE(widget().widgetFor(form().msgGridView)->hasFocus());
    KeyClick(Qt::Key_Y, Qt::ControlModifier);
    KeyClick(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);  // nothing more to redo

    ExpectSameAs(path,
                 "node PUMPS\nclick 1 1\ntype \"P9\"\nkey z ctrl\ntype \"P7\"\nkey Tab\n"
                 "type \"x\"\nkey Escape\nkey z ctrl\nkey y ctrl\nkey z ctrl+shift\n");
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "P7");
    EXPECT_EQ(events.size(), 1u);  // undo and redo do not ask the host again
}

// A capacity made too large, then F9 from another node to correct it, then the find
// bar to a column caption: the keyboard alone, as the session does it.
TEST_F(SessionParity, F9AndTheFindBarTakeTheUserToCellsLikeTheSession) {
    const std::string path = LoadCopy("english.xml");
    ClickNode("CHILLERS");
    ClickCell(2, 1);
    for (int i = 0; i < 3; ++i)
        KeyClick(Qt::Key_Backspace);
    TypeText(QStringLiteral("4000"));
    KeyClick(Qt::Key_Tab);
    ClickNode("PROJECT");
    ClickCell(1, 1);
    KeyClick(Qt::Key_F9);
    EXPECT_EQ(
        QApplication::focusWidget(),
        static_cast<UnitBoxBinding*>(widget().bindingFor(form().unitNumControl))->numberEdit());
    for (int i = 0; i < 4; ++i)
        KeyClick(Qt::Key_Backspace);
    TypeText(QStringLiteral("2500"));
    KeyClick(Qt::Key_Tab);
    KeyClick(Qt::Key_F9);  // nothing left to correct
    KeyClick(Qt::Key_F, Qt::ControlModifier);
    auto* bar = static_cast<FindBar*>(widget().findBar());
    ASSERT_TRUE(bar->isVisible());
    TypeText(QStringLiteral("CH-3"));
    KeyClick(Qt::Key_Return);
    EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("1 of 1"));
    KeyClick(Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());

    ExpectSameAs(path,
                 "node CHILLERS\nclick 2 1\nkey Backspace\nkey Backspace\nkey Backspace\n"
                 "type \"4000\"\nkey Tab\nnode PROJECT\nclick 1 1\nkey F9\nkey Backspace\n"
                 "key Backspace\nkey Backspace\nkey Backspace\ntype \"2500\"\nkey Tab\nkey F9\n"
                 "find \"CH-3\"\nfind-next\n");
    EXPECT_EQ(form().msgGridView.col(), 3);
    EXPECT_EQ(widget().control().ProblemCount(), 0);
}

// OK refuses twice: first for a value of the last tree node, which it does not show
// (F9 goes there), then for one it shows with the keyboard on the grid, where typing
// goes straight into the red cell; the third OK saves.
TEST_F(SessionParity, AfterOKRefusesTheKeyboardReachesEachRedCellLikeTheSession) {
    const std::string example = ReadFileBytes(std::filesystem::path(TABULON_SOURCE_DIR) /
                                              "docs/examples/needs-correcting.xml");
    TempDir dir;
    const std::string path = dir.write("widget.xml", example);
    ASSERT_TRUE(Load(path));
    ClickButton(form().cmdOK);
    EXPECT_EQ(form().treTreeView.node(form().treTreeView.selectedIndex()).key, "PLANT");
    KeyClick(Qt::Key_F9);
    EXPECT_EQ(form().treTreeView.node(form().treTreeView.selectedIndex()).key, "STANDBY");
    TypeText(QStringLiteral("15"));
    KeyClick(Qt::Key_Tab);
    ClickButton(form().cmdOK);
    ASSERT_EQ(widget().control().CellProblem(3, 2), "Above the maximum of 3000 ton");
    EXPECT_EQ(QApplication::focusWidget(), widget().widgetFor(form().msgGridView));
    TypeText(QStringLiteral("2500"));
    KeyClick(Qt::Key_Tab);
    ClickButton(form().cmdOK);

    const std::string refused =
        "critical: Validation Error(s). You must correct all data highlighted in red before "
        "saving.";
    EXPECT_EQ(messages, (std::vector<std::string>{refused, refused}));
    EXPECT_EQ(events, std::vector<std::string>{"OKClick"});
    EXPECT_EQ(widget().control().ProblemCount(), 0);
    ExpectSameAs(dir.write("session.xml", example),
                 "button OK\nkey F9\ntype \"15\"\nkey Tab\nbutton OK\ntype \"2500\"\nkey Tab\n"
                 "button OK\n");
    EXPECT_EQ(ReadFileBytes(path), widget().XML().toStdString());
}

TEST_F(SessionParity, ABrokenDocumentShowsTheSameMessages) {
    EXPECT_FALSE(widget().LoadXML(QStringLiteral("<xml><bad")));
    EXPECT_EQ(messages, SessionMessages(RunSteps("loadxml-text \"<xml><bad\"\n")));
    EXPECT_FALSE(messages.empty());
}

}  // namespace
}  // namespace tabulon::testing
