// SpreadsheetWidget as a host and a user meet it: editing in the line edit, signals,
// properties and pictures.
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QLineEdit>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <fstream>

#include "common/files.h"
#include "control/control_access.h"
#include "qt/bindings/scroll_bar_binding.h"
#include "qt/bindings/unit_num_binding.h"
#include "qt/find_bar.h"
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

// The find bar searched one tree node per slice, as on a document too large to search
// within a frame.
TEST_F(WidgetBehaviour, TheFindBarGoesToTheFirstHitAtOnceAndCountsTheRestBetweenEvents) {
    ASSERT_TRUE(Load("samples/english.xml"));
    const int chHits = static_cast<int>(widget().control().Find("CH").size());
    const int pumpHits = static_cast<int>(widget().control().Find("Pump").size());
    ASSERT_GT(chHits, 3);
    auto* bar = static_cast<FindBar*>(widget().findBar());
    bar->setSliceTime(0);
    const auto enter = [bar](Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QTest::keyClick(bar->textEdit(), Qt::Key_Return, modifiers);  // no event let through
    };
    const FlexGrid& grid = form().msgGridView;
    const TreeView& tree = form().treTreeView;

    KeyClick(Qt::Key_F, Qt::ControlModifier);
    TypeText(QStringLiteral("CH"));
    enter();
    // The first node's hit is gone to before the other nodes are searched.
    EXPECT_TRUE(bar->counting());
    EXPECT_TRUE(bar->countLabel()->text().startsWith(QStringLiteral("1 of at least ")));
    EXPECT_EQ(tree.selectedIndex(), 1);
    EXPECT_EQ(grid.col(), 3);
    EXPECT_TRUE(bar->textEdit()->hasFocus());
    const QRect hit = view().cellRect(1, 3).translated(view().mapTo(&widget(), QPoint()));
    ASSERT_FALSE(hit.isEmpty());
    EXPECT_FALSE(bar->geometry().intersects(hit)) << "the bar covers the hit";
    // Back from the first hit only once the last is known.
    enter(Qt::ShiftModifier);
    EXPECT_EQ(grid.col(), 3);
    QTRY_VERIFY(!bar->counting());
    EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("%1 of %1").arg(chHits));
    EXPECT_EQ(widget().control().CurrentFindHit(), chHits - 1);
    enter();
    EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("1 of %1").arg(chHits));

    // A person who turns to a cell while the hit is still looked for stays there.
    bar->textEdit()->selectAll();
    TypeText(QStringLiteral("Pump"));
    enter();
    EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("Searching\u2026"));
    ClickCell(2, 1);
    QTRY_VERIFY(!bar->counting());
    EXPECT_EQ(tree.selectedIndex(), 1);
    EXPECT_EQ(std::pair(grid.row(), grid.col()), std::pair(2, 1));
    EXPECT_EQ(pumpHits, 1);
    EXPECT_EQ(bar->countLabel()->text(), QStringLiteral("1 hit"));
}

// The control takes its own bars through an empty range and back, and lays them out in
// steps, within one gesture or host call; the Qt bars show only where it leaves them,
// and the host's handler of an event raised on the way finds them already there.
TEST_F(WidgetBehaviour, TheBarsShowWhereTheControlLeavesThemAndCatchUpBeforeAHostEvent) {
    std::vector<std::string> columns;
    for (int c = 1; c <= 30; ++c) {
        std::vector<CellData> cells;
        for (int r = 1; r <= 60; ++r)
            cells.emplace_back(std::to_string(r), true, r != 55 || c != 28);
        columns.push_back(Column(cells));
    }
    // A second node: the gate never shows a cell of the last one.
    ASSERT_TRUE(widget().LoadXML(QString::fromStdString(
        Document(std::vector<std::string>(60, Row("TextBox", "MaxLength=\"20\"")), columns,
                 "ENGLISH", "", Pnode("N2", "K")))));
    const auto barsShowTheModel = [this] {
        bool same = true;
        for (Component* owner :
             {static_cast<Component*>(&form().hscGrid), static_cast<Component*>(&form().vscGrid)}) {
            const ScrollBar& bar =
                owner == &form().hscGrid ? form().hscGrid.bar() : form().vscGrid.bar();
            const QScrollBar* shown =
                static_cast<ScrollBarBinding*>(widget().bindingFor(*owner))->scrollBar();
            same = same && shown->isVisibleTo(&widget()) == (owner->visible() && bar.visible()) &&
                   shown->value() == bar.value() &&
                   shown->maximum() == std::max(bar.min(), bar.max()) &&
                   shown->isEnabled() == (owner->enabled() && bar.enabled());
        }
        return same;
    };
    std::optional<bool> atTheEvent;
    QObject::connect(&widget(), &SpreadsheetWidget::PropertyChanged,
                     [&] { atTheEvent = barsShowTheModel(); });
    UseScrollBars();
    EXPECT_EQ(atTheEvent, std::optional<bool>(true)) << "the host's handler saw stale bars";
    EXPECT_TRUE(barsShowTheModel()) << "after the host's call";
    ButtonStep("OK");
    EXPECT_EQ(messages.back(),
              "critical: Validation Error(s). You must correct all data highlighted in red "
              "before saving.");
    EXPECT_EQ(form().msgGridView.row(), 55);
    EXPECT_TRUE(barsShowTheModel()) << "after OK";
    KeyStep("Home", "ctrl");
    EXPECT_TRUE(barsShowTheModel()) << "after Ctrl+Home";
}

// The area past the last row and column is dark grey, and only that area: every
// cell keeps its own colour, whatever the shape of the grid.
TEST_F(WidgetBehaviour, TheGridIsDarkGreyWhereNoCellLiesAndOnlyThere) {
    for (const auto& [rows, cols] : {std::pair{3, 2}, std::pair{1, 1}, std::pair{40, 1}}) {
        ASSERT_TRUE(widget().LoadXML(QString::fromStdString(GridDocument(rows, cols))));
        ProcessEvents();
        const QImage painted = view().grab().toImage();
        std::vector<QRect> cells;
        for (const int row : view().rowsInView()) {
            for (const int col : view().colsInView())
                cells.push_back(view().cellRect(row, col));
        }
        int wrong = 0;
        for (int y = 0; y < view().height(); y += 5) {
            for (int x = 0; x < view().width(); x += 5) {
                // A fixed cell's grid line, along its right and bottom edge, is that grey.
                const auto within = [x, y](const QRect& r) {
                    return r.adjusted(0, 0, -1, -1).contains(x, y);
                };
                const auto onLine = [&](const QRect& r) { return r.contains(x, y) && !within(r); };
                if (std::any_of(cells.begin(), cells.end(), onLine)) continue;
                const bool inCell = std::any_of(cells.begin(), cells.end(), within);
                const bool grey = painted.pixel(x, y) == QColor(0x80, 0x80, 0x80).rgb();
                if (grey == inCell) ++wrong;
            }
        }
        EXPECT_EQ(wrong, 0) << rows << " x " << cols;
    }
}

// Every cell shows its own colour (grey where it cannot be edited, red where its value
// is invalid), tinted where it is selected, and its grid lines along its right and
// bottom edge: dark on the fixed cells, light on the others.
TEST_F(WidgetBehaviour, EveryCellShowsItsColourItsSelectionAndItsGridLines) {
    std::vector<std::string> columns;
    for (int c = 1; c <= 4; ++c) {
        std::vector<CellData> cells;
        for (int r = 1; r <= 8; ++r)
            cells.emplace_back(std::to_string(r * c), (r + c) % 3 != 0, (r * c) % 4 != 1);
        columns.push_back(Column(cells));
    }
    ASSERT_TRUE(widget().LoadXML(
        QString::fromStdString(Document(std::vector<std::string>(8, Row("TextBox")), columns))));
    ProcessEvents();
    ClickCell(2, 1);
    QTest::keyClick(widget().focusWidget(), Qt::Key_Escape);
    QTest::mouseClick(&view(), Qt::LeftButton, Qt::ShiftModifier, CellCentre(5, 3));
    ProcessEvents();
    const FlexGrid& grid = form().msgGridView;
    ASSERT_EQ(grid.rowSel(), 5);
    ASSERT_EQ(grid.colSel(), 3);

    const QImage painted = view().grab().toImage();
    const auto tinted = [this](QColor back) {
        QImage pixel(1, 1, QImage::Format_RGB32);
        pixel.fill(back);
        QPainter painter(&pixel);
        painter.fillRect(0, 0, 1, 1, GridView::SelectionTint(view().palette()));
        painter.end();
        return pixel.pixel(0, 0);
    };
    int selected = 0;
    for (const int row : view().rowsInView()) {
        for (const int col : view().colsInView()) {
            const QRect rect = view().cellRect(row, col);
            const bool fixed = row < grid.fixedRows() || col < grid.fixedCols();
            const QColor back = QColor::fromRgb(static_cast<QRgb>(grid.cellBackColor(row, col)));
            const bool inSelection = !fixed && row >= 2 && row <= 5 && col >= 1 && col <= 3;
            selected += inSelection;
            // Beside the text, below the problem mark and the current cell's focus frame.
            const QPoint ground(rect.left() + 1, rect.bottom() - 1);
            if (row != grid.row() || col != grid.col()) {
                EXPECT_EQ(painted.pixel(ground), inSelection ? tinted(back) : back.rgb())
                    << row << ", " << col;
            }
            const QRgb line = fixed ? 0xFF808080 : 0xFFC0C0C0;
            EXPECT_EQ(painted.pixel(rect.right(), rect.center().y()), line) << row << ", " << col;
            EXPECT_EQ(painted.pixel(rect.center().x(), rect.bottom()), line) << row << ", " << col;
        }
    }
    EXPECT_EQ(selected, 12);
}

}  // namespace
}  // namespace tabulon::testing
