// SpreadsheetWidget as a host and a user meet it: placement, sizing, focus, keys,
// editing in the line edit, signals, properties and pictures.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QScreen>
#include <QSignalSpy>
#include <QTest>
#include <QTreeWidget>
#include <fstream>
#include <map>

#include "common/files.h"
#include "control/control_access.h"
#include "qt/bindings/unit_num_binding.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

class WidgetBehaviour : public WidgetFixture {
protected:
    // Opens the text editor on the pump tag "CHWP-2" of english.xml.
    void EditPumpTag() {
        ASSERT_TRUE(Load("samples/english.xml"));
        ClickNode("PUMPS");
        ClickCell(1, 2);
    }
};

// The open editor lies exactly over its cell.
TEST_F(WidgetBehaviour, EveryBoundWidgetSitsWhereItsModelSaysInPixels) {
    ASSERT_TRUE(Load("samples/filtered.xml"));
    ClickCell(2, 1);
    const TwipsScale& scale = widget().scale();
    int bound = 0;
    for (Component* child : form().children()) {
        QWidget* shown = widget().widgetFor(*child);
        if (shown == nullptr) continue;
        ++bound;
        SCOPED_TRACE(child->name());
        EXPECT_EQ(shown->geometry(),
                  scale.toPixels(child->left(), child->top(), child->width(), child->height()));
        EXPECT_EQ(shown->isHidden(), !child->visible());
        EXPECT_EQ(shown->isEnabled(), child->enabled());
    }
    EXPECT_EQ(bound, 16);
    ASSERT_TRUE(form().anyEditorVisible());
    for (Component* editor : {static_cast<Component*>(&form().txtTextBoxControl),
                              static_cast<Component*>(&form().cboComboBoxControl),
                              static_cast<Component*>(&form().unitNumControl),
                              static_cast<Component*>(&form().unitDropControl)}) {
        if (!editor->visible()) continue;
        EXPECT_EQ(widget().widgetFor(*editor)->geometry(),
                  view().cellRect(2, 1).translated(view().pos()));
    }
    EXPECT_EQ(widget().widgetFor(form().unitNumForCnv), nullptr);
    EXPECT_EQ(widget().widgetFor(form().control), nullptr);
}

TEST_F(WidgetBehaviour, APasteAtTheCaretLeavesTheCaretAfterThePastedText) {
    EditPumpTag();  // "CHWP-2", all selected
    QGuiApplication::clipboard()->setText(QStringLiteral("X"));
    KeyClick(Qt::Key_Home);
    KeyClick(Qt::Key_V, Qt::ControlModifier);
    TypeText(QStringLiteral("Y"));
    EXPECT_EQ(form().txtTextBoxControl.text(), "XYCHWP-2");
}

TEST_F(WidgetBehaviour, TheNumberFieldsCaretGoesWhereTheMouseClicks) {
    ASSERT_TRUE(Load("samples/english.xml"));
    ClickNode("CHILLERS");
    ClickCell(2, 1);  // 400 tons, all selected
    auto* binding = dynamic_cast<UnitNumBinding*>(widget().bindingFor(form().unitNumControl));
    ASSERT_NE(binding, nullptr);
    QLineEdit* field = binding->numberEdit();
    EXPECT_EQ(field->selectedText(), QStringLiteral("400"));
    EXPECT_EQ(binding->unitLabel()->text(), QStringLiteral("ton"));
    QTest::mouseClick(field, Qt::LeftButton, Qt::NoModifier, QPoint(1, field->height() / 2));
    ProcessEvents();
    EXPECT_EQ(form().unitNumControl.SelLength(), 0);
    TypeText(QStringLiteral("1"));
    EXPECT_EQ(form().unitNumControl.NumberText(), "1400");
    EXPECT_EQ(field->text(), QStringLiteral("1400"));
    EXPECT_EQ(field->cursorPosition(), 1);
}

TEST_F(WidgetBehaviour, AComboShowsItsModelsItemsAndATextOutsideThemAsPlaceholder) {
    ComboBox& filter = form().cboFilter;
    filter.addItem("All");
    filter.addItem("Inline");
    filter.setText("Inline");
    auto* combo = qobject_cast<QComboBox*>(widget().widgetFor(filter));
    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->currentText(), QStringLiteral("Inline"));
    filter.setText("Not listed");
    EXPECT_EQ(combo->currentIndex(), -1);
    EXPECT_EQ(combo->placeholderText(), QStringLiteral("Not listed"));
}

TEST_F(WidgetBehaviour, TheHostChangesTheValidatedColumnUnderAWaitCursor) {
    ASSERT_TRUE(widget().LoadXML(QString::fromStdString(GridDocument(3, 2, true))));
    std::vector<Qt::CursorShape> cursors;
    QObject::connect(&widget(), &SpreadsheetWidget::AppGridEventHandler,
                     [&cursors](xml::Node* element) {
                         const QCursor* cursor = QGuiApplication::overrideCursor();
                         cursors.push_back(cursor == nullptr ? Qt::ArrowCursor : cursor->shape());
                         for (xml::Node value : element->select("CellValues/CellValue[1]")) {
                             value.setText("checked");
                         }
                     });
    ClickCell(1, 1);
    TypeText(QStringLiteral("x"));
    KeyClick(Qt::Key_Tab);
    EXPECT_EQ(cursors, std::vector<Qt::CursorShape>{Qt::WaitCursor});
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "checked");
}

TEST_F(WidgetBehaviour, PropertiesWorkThroughQtsPropertySystem) {
    ASSERT_TRUE(Load("samples/english.xml"));
    const QString xml = widget().XML();
    EXPECT_FALSE(xml.isEmpty());
    EXPECT_EQ(widget().property("XML").toString(), xml);
    EXPECT_TRUE(widget().setProperty("XML", QStringLiteral("<discarded/>")));
    EXPECT_EQ(widget().XML(), xml);

    QSignalSpy changed(&widget(), &SpreadsheetWidget::PropertyChanged);
    auto general = widget().property("GeneralProperty").value<gGeneralProperty_type>();
    general.intScrollBars = 5;
    general.strFilterCaption = "Family";
    EXPECT_TRUE(widget().setProperty("GeneralProperty", QVariant::fromValue(general)));
    ASSERT_EQ(changed.count(), 1);
    EXPECT_EQ(changed.at(0).at(0).toString(), QStringLiteral("GeneralProperty"));
    EXPECT_EQ(widget().GeneralProperty().intScrollBars, 1);
    EXPECT_FALSE(widget().widgetFor(form().hscGrid)->isHidden());
    EXPECT_EQ(qobject_cast<QGroupBox*>(widget().widgetFor(form().fraFilterView))->title(),
              QStringLiteral("Family"));
}

// The edit state's signals come once the gesture is over, one per change; the undo
// keys reach the control before a shortcut of the host. A paste into the editor takes
// the clipboard's first line.
TEST_F(WidgetBehaviour, PasteUndoAndTheEditStateSignals) {
    QAction hostUndo(QStringLiteral("Host undo"), &widget());
    hostUndo.setShortcut(QKeySequence::Undo);
    widget().addAction(&hostUndo);
    QSignalSpy hostShortcut(&hostUndo, &QAction::triggered);
    EditPumpTag();
    QSignalSpy canUndo(&widget(), &SpreadsheetWidget::canUndoChanged);
    QSignalSpy canRedo(&widget(), &SpreadsheetWidget::canRedoChanged);
    QSignalSpy modified(&widget(), &SpreadsheetWidget::modifiedChanged);
    TypeText(QStringLiteral("P8"));
    EXPECT_EQ(canUndo.count(), 1);  // the editor's own change can be undone
    EXPECT_EQ(modified.count(), 0);
    KeyClick(Qt::Key_Return);
    EXPECT_EQ(canUndo.count(), 1);
    ASSERT_EQ(modified.count(), 1);
    EXPECT_TRUE(modified.at(0).at(0).toBool());
    EXPECT_TRUE(widget().property("modified").toBool());

    KeyClick(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(hostShortcut.count(), 0);
    EXPECT_FALSE(widget().isModified());
    EXPECT_EQ(canRedo.count(), 1);
    EXPECT_TRUE(widget().Redo());
    EXPECT_TRUE(widget().isModified());
    widget().setModified(false);  // a host that saved XML itself
    EXPECT_EQ(modified.count(), 4);
    EXPECT_FALSE(modified.at(3).at(0).toBool());

    EXPECT_FALSE(widget().property("ProtectiveEditing").toBool());
    EXPECT_TRUE(widget().setProperty("ProtectiveEditing", true));
    EXPECT_TRUE(widget().control().ProtectiveEditing());

    ClickCell(1, 2);
    QGuiApplication::clipboard()->setText(QStringLiteral("P-77\nsecond line"));
    KeyClick(Qt::Key_V, Qt::ControlModifier);
    KeyClick(Qt::Key_Tab);
    EXPECT_EQ(form().msgGridView.textMatrix(1, 2), "P-77");
}

TEST_F(WidgetBehaviour, ARefusedSaveSignalsItsReasonAfterTheMessage) {
    const std::string path = SampleCopy("english.xml");
    ASSERT_TRUE(Load(path));
    EXPECT_EQ(widget().property("MaxDocumentBytes").toULongLong(), 1ULL << 30);
    // Another program rewrites the file after the load.
    std::ofstream(path, std::ios::app) << "<!-- theirs -->";
    QSignalSpy failed(&widget(), &SpreadsheetWidget::SaveFailed);
    const std::size_t before = messages.size();
    QObject::connect(&widget(), &SpreadsheetWidget::SaveFailed, [&] {
        ASSERT_EQ(messages.size(), before + 1) << "the reason comes after the message";
        EXPECT_EQ(messages.back(), "critical: Unable the save the XML file.");
    });
    ButtonStep("OK");
    ASSERT_EQ(failed.count(), 1);
    const QString reason = failed.at(0).at(0).toString();
    EXPECT_TRUE(reason.contains(QStringLiteral("changed by another program")))
        << reason.toStdString();
    EXPECT_EQ(widget().property("LastSaveError").toString(), reason);
    EXPECT_TRUE(ReadFileBytes(path).ends_with("<!-- theirs -->"));
}

// The items are only touched where they differ from the model: each change must still
// show, a click changes no picture, and a node expanded twice stays expanded.
TEST_F(WidgetBehaviour, TreeItemsShowEveryNodeAndFollowEveryExpansion) {
    ASSERT_TRUE(Load("samples/english.xml"));
    auto* tree = qobject_cast<QTreeWidget*>(widget().widgetFor(form().treTreeView));
    TreeView& model = form().treTreeView;
    const auto item = [tree](int index) {
        for (QTreeWidgetItemIterator it(tree); *it != nullptr; ++it) {
            if ((*it)->data(0, Qt::UserRole).toInt() == index) return *it;
        }
        return static_cast<QTreeWidgetItem*>(nullptr);
    };
    EXPECT_EQ(tree->currentItem()->text(0), QStringLiteral("Riverside MOB"));
    int parents = 0;
    for (int i = 1; i <= model.count(); ++i) {
        ASSERT_NE(item(i), nullptr) << i;
        EXPECT_EQ(item(i)->text(0).toStdString(), model.node(i).text);
        if (item(i)->childCount() == 0) continue;
        ++parents;
        for (const bool expanded : {!model.node(i).expanded, model.node(i).expanded, true, true}) {
            model.setExpanded(i, expanded);
            EXPECT_EQ(item(i)->isExpanded(), expanded) << i;
        }
        const qint64 picture = item(i)->icon(0).cacheKey();
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->visualItemRect(item(i)).center());
        EXPECT_EQ(model.selectedIndex(), i);
        EXPECT_EQ(item(i)->icon(0).cacheKey(), picture) << i;
        EXPECT_EQ(item(i)->icon(0).isNull(), model.node(i).image == 0) << i;
    }
    EXPECT_GT(parents, 1);
}

// Repainting more than a gesture changed costs every gesture on a big document: a Tab
// paints neither the tree nor the buttons, a resize the tree's rows once. The grid
// repaints only the cells a move changed: what the screen shows after each gesture is
// a full repaint, outside the widgets over it (editor, scroll bars).
TEST_F(WidgetBehaviour, GesturesRepaintOnlyWhatTheyChangeAndTheScreenShowsAFullRepaint) {
    struct PaintCounter : QObject {
        std::map<QObject*, int> paints;
        bool eventFilter(QObject* watched, QEvent* event) override {
            if (event->type() == QEvent::Paint) ++paints[watched];
            return false;
        }
    } counter;
    UseScrollBars();
    ASSERT_TRUE(Load("samples/english.xml"));
    QWidget* tree = qobject_cast<QTreeWidget*>(widget().widgetFor(form().treTreeView))->viewport();
    const auto expectWhole = [&](const char* after) {
        const QImage screen =
            widget().screen()->grabWindow(widget().winId()).toImage().copy(view().geometry());
        const QImage whole = view().grab().toImage().convertToFormat(screen.format());
        QRegion compared(view().rect());
        for (QWidget* above : widget().findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
            if (above != &view() && above->isVisible())
                compared -= QRect(above->geometry().topLeft() - view().pos(), above->size());
        }
        int differing = 0;
        for (const QRect& rect : compared) {
            for (int y = rect.top(); y <= rect.bottom(); ++y) {
                for (int x = rect.left(); x <= rect.right(); ++x)
                    differing += screen.pixel(x, y) != whole.pixel(x, y) ? 1 : 0;
            }
        }
        EXPECT_EQ(differing, 0) << "after " << after;
    };
    ClickCell(3, 1);
    expectWhole("a click");
    QApplication::instance()->installEventFilter(&counter);
    KeyClick(Qt::Key_Tab);
    QApplication::instance()->removeEventFilter(&counter);
    EXPECT_EQ(form().msgGridView.col(), 2);
    EXPECT_GE(counter.paints[&view()], 1);
    EXPECT_EQ(counter.paints[tree], 0);
    EXPECT_EQ(counter.paints[widget().widgetFor(form().cmdOK)], 0);
    expectWhole("Tab");
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Return}) {
        KeyClick(key);
        expectWhole(key == Qt::Key_Tab ? "Tab" : "Enter");
    }
    QTest::mouseClick(&view(), Qt::LeftButton, Qt::ShiftModifier, CellCentre(2, 1));
    ProcessEvents();
    expectWhole("Shift+click");
    ClickCell(1, 2);
    expectWhole("a click after a selection");
    TypeText("x");
    KeyClick(Qt::Key_Return);
    KeyClick(Qt::Key_Z, Qt::ControlModifier);
    expectWhole("an undo");

    counter.paints.clear();
    QApplication::instance()->installEventFilter(&counter);
    widget().resize(kWidthPixels + 100, kHeightPixels);
    ProcessEvents();
    QApplication::instance()->removeEventFilter(&counter);
    EXPECT_EQ(counter.paints[tree], 1);
}

TEST_F(WidgetBehaviour, APictureQtCannotDecodeFailsTheLoad) {
    const auto withPicture = [](const std::string& path) {
        return QString::fromStdString(Replaced(GridDocument(2, 1), "KeyValue=\"N1\"",
                                               "KeyValue=\"N1\" ImageName=\"" + path + "\""));
    };
    // A file that exists but is no picture.
    EXPECT_FALSE(widget().LoadXML(withPicture("samples/english.xml")));
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages[0], "critical: Unexpected Error - 1026");
    messages.clear();
    EXPECT_TRUE(widget().LoadXML(withPicture("samples/icons/pump.png")));
    EXPECT_TRUE(messages.empty());
}

}  // namespace
}  // namespace tabulon::testing
