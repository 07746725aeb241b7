// The same steps through real Qt input events and through the session tool give the
// same control: current cell, cell texts and colours, the document, events and
// message boxes.
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTreeWidget>

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

TEST_F(SessionParity, ChoosingFromThePickListAndEnterCommitsLikeTheSession) {
    const std::string path = LoadCopy("english.xml");
    const std::string click = ClickStep(1, 1);
    auto* combo = qobject_cast<QComboBox*>(widget().widgetFor(form().cboComboBoxControl));
    ASSERT_TRUE(combo->isVisible());
    PickFromPopup(combo, QStringLiteral("Laboratory"));
    EXPECT_EQ(form().cboComboBoxControl.text(), "Laboratory");

    ExpectSameAs(path, Script({click, "pick \"Laboratory\"\n", KeyStep("Enter")}));
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "Laboratory");
}

TEST_F(SessionParity, ChoosingAUnitInTheUnitDropDownMatchesTheSession) {
    const std::string path = LoadCopy("filtered.xml");
    const std::string click = ClickStep(4, 1);
    auto* binding = dynamic_cast<UnitDropBinding*>(widget().bindingFor(form().unitDropControl));
    ASSERT_NE(binding, nullptr);
    ASSERT_TRUE(binding->unitCombo()->isVisible());
    PickFromPopup(binding->unitCombo(), QStringLiteral("bhp"));
    EXPECT_EQ(form().unitDropControl.SelectedUnitText(), "bhp");
    ExpectSameAs(path, Script({click, "pick-unit \"bhp\"\n", KeyStep("Tab")}));
}

// Three Tabs reach the last column and do not wrap; Shift+Tab is swallowed.
TEST_F(SessionParity, TabStopsAtTheLastColumnAndShiftTabDoesNothing) {
    ASSERT_TRUE(Load("samples/english.xml"));
    ExpectSameAs("samples/english.xml",
                 Script({ClickStep(1, 1), KeyStep("Tab"), KeyStep("Tab"), KeyStep("Tab"),
                         KeyStep("Tab"), KeyStep("Tab", "shift")}));
    EXPECT_EQ(form().msgGridView.col(), 3);
}

TEST_F(SessionParity, FilterChoiceShowsTheSameColumns) {
    ASSERT_TRUE(Load("samples/filtered.xml"));
    auto* combo = qobject_cast<QComboBox*>(widget().widgetFor(form().cboFilter));
    ASSERT_TRUE(combo->isVisible());
    PickFromPopup(combo, QStringLiteral("End suction"));

    ExpectSameAs("samples/filtered.xml", "filter \"End suction\"\n");
    EXPECT_EQ(widget().FilterValue(), QStringLiteral("End suction"));
}

// Space on a button clicks it once; Enter on a button moves the grid instead.
TEST_F(SessionParity, ButtonsRaiseTheSameEventsSpaceClicksOnceAndEnterMovesTheGrid) {
    const std::string path = LoadCopy("english.xml");
    std::string steps = Script({ButtonStep("Print"), ButtonStep("Cancel")});
    KeyClick(Qt::Key_Space);  // the Cancel button has the focus now
    steps += "button-key Cancel Space\n" + ButtonStep("Help");
    KeyClick(Qt::Key_Return);
    EXPECT_EQ(form().msgGridView.row(), 2);
    steps += "button-key Help Enter\n" + ButtonStep("OK");

    ExpectSameAs(path, steps);
    ASSERT_EQ(events.size(), 5u);
    EXPECT_EQ(events[1], "CancelClick");
    EXPECT_EQ(events[2], "CancelClick");
    EXPECT_EQ(events[3], "HelpClick");
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
    const std::string chillers = NodeStep("CHILLERS");
    auto* tree = qobject_cast<QTreeWidget*>(widget().widgetFor(form().treTreeView));
    QTreeWidgetItem* project = tree->topLevelItem(0);
    const QRect row = tree->visualItemRect(project);
    // The indicator lies left of the item's own rectangle.
    QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(row.left() - tree->indentation() / 2, row.center().y()));
    ProcessEvents();
    EXPECT_FALSE(project->isExpanded());

    const JsonValue dump = LastDump(
        ExpectSameAs("samples/english.xml", chillers + "collapse PROJECT\ndump tree\n"), "tree");
    for (int i = 1; i <= form().treTreeView.count(); ++i) {
        const JsonValue& node = dump["nodes"][static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(form().treTreeView.node(i).expanded, node["expanded"].boolean) << i;
        EXPECT_EQ(form().treTreeView.selectedIndex() == i, node["selected"].boolean) << i;
    }
}

TEST_F(SessionParity, ArrowKeyInTheTreeSelectsTheNextNodeLikeClickingIt) {
    ASSERT_TRUE(Load("samples/english.xml"));
    const std::string node = NodeStep("PROJECT");
    KeyClick(Qt::Key_Down);
    EXPECT_EQ(form().treTreeView.selectedIndex(), form().treTreeView.indexOf("AHU"));

    ExpectSameAs("samples/english.xml", node + "node AHU\n");
}

// The editor's own undo first, Escape, then the document's undo and redo: Ctrl+Z,
// Ctrl+Y and Ctrl+Shift+Z from the line edit and from the grid.
TEST_F(SessionParity, UndoRedoAndEscapeKeysMatchTheSession) {
    const std::string path = LoadCopy("english.xml");
    // Ctrl+Z first takes the typing back, the document stays; Tab commits and the host
    // checks the tag; after Escape, Ctrl+Z undoes the commit with cell (1, 1) current.
    std::string steps = Script({NodeStep("PUMPS"), ClickStep(1, 1), TypeStep("P9"),
                                KeyStep("z", "ctrl"), TypeStep("P7"), KeyStep("Tab"), TypeStep("x"),
                                KeyStep("Escape"), KeyStep("z", "ctrl")});
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "CHWP-1");
    EXPECT_TRUE(widget().widgetFor(form().msgGridView)->hasFocus());
    steps += KeyStep("y", "ctrl");
    steps += KeyStep("z", "ctrl+shift");  // nothing more to redo

    ExpectSameAs(path, steps);
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "P7");
    EXPECT_EQ(events.size(), 1u);  // undo and redo do not ask the host again
}

// A capacity made too large, then F9 from another node to correct it, then the find
// bar to a column caption: the keyboard alone, as the session does it.
TEST_F(SessionParity, F9AndTheFindBarTakeTheUserToCellsLikeTheSession) {
    const std::string path = LoadCopy("english.xml");
    std::string steps =
        Script({NodeStep("CHILLERS"), ClickStep(2, 1), KeyStep("Backspace"), KeyStep("Backspace"),
                KeyStep("Backspace"), TypeStep("4000"), KeyStep("Tab"), NodeStep("PROJECT"),
                ClickStep(1, 1), KeyStep("F9")});
    EXPECT_EQ(
        QApplication::focusWidget(),
        static_cast<UnitBoxBinding*>(widget().bindingFor(form().unitNumControl))->numberEdit());
    for (int i = 0; i < 4; ++i)
        steps += KeyStep("Backspace");
    steps += Script({TypeStep("2500"), KeyStep("Tab"), KeyStep("F9")});  // F9: nothing left
    KeyClick(Qt::Key_F, Qt::ControlModifier);
    auto* bar = static_cast<FindBar*>(widget().findBar());
    ASSERT_TRUE(bar->isVisible());
    TypeText(QStringLiteral("CH-3"));
    KeyClick(Qt::Key_Return);
    EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("1 of 1"));
    KeyClick(Qt::Key_Escape);
    EXPECT_FALSE(bar->isVisible());

    ExpectSameAs(path, steps + "find \"CH-3\"\nfind-next\n");
    EXPECT_EQ(form().msgGridView.col(), 3);
    EXPECT_EQ(widget().control().ProblemCount(), 0);
}

TEST_F(SessionParity, ABrokenDocumentShowsTheSameMessages) {
    EXPECT_FALSE(widget().LoadXML(QStringLiteral("<xml><bad")));
    EXPECT_EQ(messages, SessionMessages(RunSteps("loadxml-text \"<xml><bad\"\n")));
    EXPECT_FALSE(messages.empty());
}

}  // namespace
}  // namespace tabulon::testing
