// What the widget shows of a value that needs correcting, besides its red: the reason
// as a tooltip on the cell and on its editor, the tree's badges, and the grid as a table for
// assistive technology.
#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QGuiApplication>
#include <QHelpEvent>
#include <QLabel>
#include <QTest>
#include <QToolTip>

#include "qt/bindings/tree_problem_badge.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

constexpr const char* kReason = "Above the maximum of 3000 ton";

class ProblemCues : public WidgetFixture {
protected:
    // english.xml with CH-1's capacity (Chillers, cell 2, 1) typed beyond its maximum
    // over the editor's selected text; the editor has moved on to cell 2, 2.
    void SetUp() override {
        ASSERT_TRUE(Load(SampleCopy("english.xml")));
        ClickNode("CHILLERS");
        ClickCell(2, 1);
        TypeText(QStringLiteral("4009"));
        KeyClick(Qt::Key_Tab);
        ASSERT_EQ(widget().control().CellProblem(2, 1), kReason);
    }
};

TEST_F(ProblemCues, TheRedCellAndItsEditorTellTheReason) {
    const QRect cell = view().cellRect(2, 1);
    QHelpEvent help(QEvent::ToolTip, cell.center(), view().mapToGlobal(cell.center()));
    QApplication::sendEvent(&view(), &help);
    EXPECT_EQ(QToolTip::text(), QString::fromUtf8(kReason));

    // The editor over the red cell shows the mark and the reason too.
    ClickCell(2, 1);
    QWidget* editor = widget().widgetFor(form().unitNumControl);
    ASSERT_TRUE(editor->isVisible());
    EXPECT_EQ(editor->toolTip(), QString::fromUtf8(kReason));
    EXPECT_EQ(editor->accessibleName(), QStringLiteral("Capacity, CH-1"));
    EXPECT_EQ(editor->accessibleDescription(),
              QStringLiteral("Unit: ton. ") + QString::fromUtf8(kReason));

    // Cut, it tells its whole text too.
    form().msgGridView.setColWidth(1, 200);
    ProcessEvents();
    ASSERT_TRUE(view().textCut(2, 1));
    const QPoint cut = view().cellRect(2, 1).center();
    QHelpEvent cutHelp(QEvent::ToolTip, cut, view().mapToGlobal(cut));
    QApplication::sendEvent(&view(), &cutHelp);
    EXPECT_EQ(QToolTip::text(), QString::fromUtf8(kReason) + QStringLiteral("\n4009"));
}

// The tree's node counts its problems. A paste that corrects the value is mirrored
// once, when it ends, and completely: the badge goes, the editor that was open is
// hidden and the grid has Qt's focus.
TEST_F(ProblemCues, TreeNodesCountTheirProblemsUntilAPasteCorrectsThem) {
    const QModelIndex chillers = TreeIndex("CHILLERS");
    ASSERT_TRUE(chillers.isValid());
    EXPECT_EQ(chillers.data(kProblemCountRole).toInt(), 1);
    EXPECT_EQ(chillers.data(Qt::ToolTipRole).toString(),
              QStringLiteral("1 value needs correcting"));
    EXPECT_EQ(TreeIndex("PUMPS").data(kProblemCountRole).toInt(), 0);

    QWidget* editor = QApplication::focusWidget();
    ASSERT_NE(editor, nullptr);
    ASSERT_TRUE(editor->isVisible());
    ClickCell(2, 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("400\t450"));
    KeyClick(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form().msgGridView.textMatrix(2, 2), "450");
    EXPECT_EQ(chillers.data(kProblemCountRole).toInt(), 0);
    EXPECT_EQ(chillers.data(Qt::ToolTipRole).toString(), QString());
    EXPECT_FALSE(editor->isVisible());
    EXPECT_EQ(QApplication::focusWidget(), &view());
}

// Through Qt's accessibility API, as a screen reader's bridge reads it.
TEST_F(ProblemCues, AssistiveTechnologySeesTheGridAsATableWithReasons) {
    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view());
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Values"));
    QAccessibleTableInterface* grid = table->tableInterface();
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->rowCount(), 5);
    EXPECT_EQ(grid->columnCount(), 3);
    EXPECT_EQ(grid->columnDescription(0), QStringLiteral("CH-1"));
    QAccessibleInterface* capacity = grid->cellAt(1, 0);
    ASSERT_NE(capacity, nullptr);
    EXPECT_EQ(capacity->role(), QAccessible::Cell);
    EXPECT_EQ(capacity->text(QAccessible::Name), QStringLiteral("4009"));
    EXPECT_EQ(capacity->text(QAccessible::Description),
              QStringLiteral("Unit: ton. ") + QString::fromUtf8(kReason));
    QAccessibleTableCellInterface* place = capacity->tableCellInterface();
    ASSERT_NE(place, nullptr);
    EXPECT_EQ(place->columnHeaderCells().value(0)->text(QAccessible::Name), QStringLiteral("CH-1"));
    EXPECT_EQ(place->rowHeaderCells().value(0)->text(QAccessible::Name),
              QStringLiteral("Capacity"));
    EXPECT_EQ(table->indexOfChild(capacity), 2 * 4 + 1);

    // The grid takes the focus on a disabled cell: that cell is the focused one.
    ClickCell(2, 3);
    ASSERT_TRUE(view().hasFocus());
    EXPECT_EQ(table->focusChild(), grid->cellAt(1, 2));
    EXPECT_TRUE(grid->cellAt(1, 2)->state().focused);
    EXPECT_FALSE(capacity->state().focused);
    EXPECT_EQ(grid->selectedCells(), QList<QAccessibleInterface*>{grid->cellAt(1, 2)});
}

TEST_F(ProblemCues, EveryPartHasANameAndTheButtonsTheirAccessKeys) {
    EXPECT_EQ(widget().widgetFor(form().treTreeView)->accessibleName(),
              QStringLiteral("Categories"));
    EXPECT_EQ(widget().widgetFor(form().cmdOK)->accessibleDescription(),
              QStringLiteral("Shortcut: Alt+O"));
    EXPECT_EQ(widget().widgetFor(form().cmdOK)->property("text").toString(), QStringLiteral("OK"));
    auto* label = qobject_cast<QLabel*>(widget().widgetFor(form().lblFilter));
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(label->buddy(), widget().widgetFor(form().cboFilter));  // names the combo

    // F12 walks the parts; Alt+H presses Help without its caption changing.
    ClickCell(1, 1);
    KeyClick(Qt::Key_F12);
    EXPECT_EQ(QApplication::focusWidget(), widget().widgetFor(form().cmdPrint));
    KeyClick(Qt::Key_H, Qt::AltModifier);
    EXPECT_EQ(events, std::vector<std::string>{"HelpClick"});
}

}  // namespace
}  // namespace tabulon::testing
