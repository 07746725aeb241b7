// The same gestures through real Qt input events and through the session tool give
// the same control: layout, tree, current cell, cell texts and colours, the document,
// events and message boxes.
#include <QApplication>
#include <QComboBox>
#include <QTest>
#include <QTreeView>

#include "qt/bindings/unit_box_binding.h"
#include "qt/bindings/unit_drop_binding.h"
#include "qt/find_bar.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

class SessionParity;

// A gesture sent to the widget that has loaded sample; returns the same steps for the
// session.
struct Gesture {
    const char* name;
    const char* sample;
    std::string (SessionParity::*play)();
};

void PrintTo(const Gesture& gesture, std::ostream* out) {
    *out << gesture.name;
}

class SessionParity : public WidgetFixture, public ::testing::WithParamInterface<Gesture> {
public:
    std::string PickList() {
        const std::string click = ClickCell(1, 1);
        auto* combo = qobject_cast<QComboBox*>(widget().widgetFor(form().cboComboBoxControl));
        PickFromPopup(combo, QStringLiteral("Laboratory"));
        EXPECT_EQ(form().cboComboBoxControl.text(), "Laboratory");
        return Script({click, "pick \"Laboratory\"\n", KeyStep("Enter")});
    }

    std::string UnitDropDown() {
        const std::string click = ClickCell(4, 1);
        auto* binding = dynamic_cast<UnitDropBinding*>(widget().bindingFor(form().unitDropControl));
        PickFromPopup(binding->unitCombo(), QStringLiteral("bhp"));
        EXPECT_EQ(form().unitDropControl.SelectedUnitText(), "bhp");
        return Script({click, "pick-unit \"bhp\"\n", KeyStep("Tab")});
    }

    // Three Tabs reach the last column and do not wrap; Shift+Tab is swallowed.
    std::string TabStopsAtTheLastColumn() {
        const std::string steps = Script({ClickCell(1, 1), KeyStep("Tab"), KeyStep("Tab"),
                                          KeyStep("Tab"), KeyStep("Tab"), KeyStep("Tab", "shift")});
        EXPECT_EQ(form().msgGridView.col(), 3);
        return steps;
    }

    std::string Filter() {
        PickFromPopup(qobject_cast<QComboBox*>(widget().widgetFor(form().cboFilter)),
                      QStringLiteral("End suction"));
        EXPECT_EQ(widget().FilterValue(), QStringLiteral("End suction"));
        return "filter \"End suction\"\n";
    }

    // Space on a button clicks it once; Enter on a button moves the grid instead.
    std::string Buttons() {
        std::string steps = Script({ButtonStep("Print"), ButtonStep("Cancel")});
        KeyClick(Qt::Key_Space);  // the Cancel button has the focus now
        steps += "button-key Cancel Space\n" + ButtonStep("Help");
        KeyClick(Qt::Key_Return);
        EXPECT_EQ(form().msgGridView.row(), 2);
        steps += "button-key Help Enter\n" + ButtonStep("OK");
        EXPECT_EQ(events.size(), 5u);
        return steps;
    }

    std::string SplitterDrag() {
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
        EXPECT_GT(form().treTreeView.width(), 2745);
        return "drag-splitter " + std::to_string(widget().scale().toTwipsX(30)) + "\n";
    }

    // The indicator lies left of the item's own rectangle: collapsed, then expanded.
    std::string CollapseAndExpandByIndicator() {
        const std::string chillers = ClickNode("CHILLERS");
        QTreeView& tree = treeView();
        const QModelIndex project = tree.model()->index(0, 0);
        const QRect row = tree.visualRect(project);
        const QPoint indicator(row.left() - tree.indentation() / 2, row.center().y());
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, indicator);
        ProcessEvents();
        EXPECT_FALSE(tree.isExpanded(project));
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::NoModifier, indicator);
        ProcessEvents();
        EXPECT_TRUE(tree.isExpanded(project));
        return chillers + "collapse PROJECT\nexpand PROJECT\n";
    }

    std::string ArrowKeyInTheTree() {
        const std::string node = ClickNode("PROJECT");
        KeyClick(Qt::Key_Down);
        return node + "node AHU\n";
    }

    // Ctrl+Z first takes the typing back, the document stays; Tab commits and the host
    // checks the tag; after Escape, Ctrl+Z undoes the commit with cell (1, 1) current;
    // then Ctrl+Y redoes it and Ctrl+Shift+Z finds nothing more to redo.
    std::string UndoRedoAndEscape() {
        std::string steps = Script({ClickNode("PUMPS"), ClickCell(1, 1), TypeStep("P9"),
                                    KeyStep("z", "ctrl"), TypeStep("P7"), KeyStep("Tab"),
                                    TypeStep("x"), KeyStep("Escape"), KeyStep("z", "ctrl")});
        EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "CHWP-1");
        EXPECT_TRUE(widget().widgetFor(form().msgGridView)->hasFocus());
        steps += Script({KeyStep("y", "ctrl"), KeyStep("z", "ctrl+shift")});
        EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "P7");
        EXPECT_EQ(events.size(), 1u);  // undo and redo do not ask the host again
        return steps;
    }

    // A capacity made too large, then F9 from another node to correct it, then the find
    // bar to a column caption: the keyboard alone.
    std::string F9AndTheFindBar() {
        std::string steps =
            Script({ClickNode("CHILLERS"), ClickCell(2, 1), KeyStep("Backspace"),
                    KeyStep("Backspace"), KeyStep("Backspace"), TypeStep("4000"), KeyStep("Tab"),
                    ClickNode("PROJECT"), ClickCell(1, 1), KeyStep("F9")});
        EXPECT_EQ(
            QApplication::focusWidget(),
            static_cast<UnitBoxBinding*>(widget().bindingFor(form().unitNumControl))->numberEdit());
        for (int i = 0; i < 4; ++i)
            steps += KeyStep("Backspace");
        steps += Script({TypeStep("2500"), KeyStep("Tab"), KeyStep("F9")});  // nothing left
        KeyClick(Qt::Key_F, Qt::ControlModifier);
        auto* bar = static_cast<FindBar*>(widget().findBar());
        EXPECT_TRUE(bar->isVisible());
        TypeText(QStringLiteral("CH-3"));
        KeyClick(Qt::Key_Return);
        EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("1 of 1"));
        KeyClick(Qt::Key_Escape);
        EXPECT_FALSE(bar->isVisible());
        EXPECT_EQ(form().msgGridView.col(), 3);
        EXPECT_EQ(widget().control().ProblemCount(), 0);
        return steps + "find \"CH-3\"\nfind-next\n";
    }
};

TEST_P(SessionParity, TheGestureLeavesTheControlAsTheSessionDoes) {
    const std::string path = SampleCopy(GetParam().sample);
    ASSERT_TRUE(Load(path));
    const std::string steps = (this->*GetParam().play)();
    const SessionRun run =
        RunSteps("load \"" + path + "\"\n" + steps + "dump layout\ndump tree\ndump grid\nxml\n");
    ExpectSameOutcome(run);

    const JsonValue layout = LastDump(run, "layout");
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
    const JsonValue tree = LastDump(run, "tree");
    const TreeView& model = form().treTreeView;
    ASSERT_EQ(tree["nodes"].items.size(), static_cast<std::size_t>(model.count()));
    for (int i = 1; i <= model.count(); ++i) {
        const JsonValue& node = tree["nodes"][static_cast<std::size_t>(i - 1)];
        EXPECT_EQ(model.node(i).expanded, node["expanded"].boolean) << i;
        EXPECT_EQ(model.selectedIndex() == i, node["selected"].boolean) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Gestures, SessionParity,
    ::testing::Values(Gesture{"PickList", "english.xml", &SessionParity::PickList},
                      Gesture{"UnitDropDown", "filtered.xml", &SessionParity::UnitDropDown},
                      Gesture{"Tab", "english.xml", &SessionParity::TabStopsAtTheLastColumn},
                      Gesture{"Filter", "filtered.xml", &SessionParity::Filter},
                      Gesture{"Buttons", "english.xml", &SessionParity::Buttons},
                      Gesture{"Splitter", "english.xml", &SessionParity::SplitterDrag},
                      Gesture{"CollapseExpand", "english.xml",
                              &SessionParity::CollapseAndExpandByIndicator},
                      Gesture{"TreeArrow", "english.xml", &SessionParity::ArrowKeyInTheTree},
                      Gesture{"Undo", "english.xml", &SessionParity::UndoRedoAndEscape},
                      Gesture{"F9AndFind", "english.xml", &SessionParity::F9AndTheFindBar}),
    [](const ::testing::TestParamInfo<Gesture>& gesture) {
        return std::string(gesture.param.name);
    });

TEST_F(WidgetFixture, ABrokenDocumentShowsTheSameMessagesAsTheSession) {
    EXPECT_FALSE(widget().LoadXML(QStringLiteral("<xml><bad")));
    EXPECT_EQ(messages, SessionMessages(RunSteps("loadxml-text \"<xml><bad\"\n")));
    EXPECT_FALSE(messages.empty());
}

}  // namespace
}  // namespace tabulon::testing
