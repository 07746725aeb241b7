// The demo window used interactively, in process: a View/Print opens the preview of
// its report once the control's handler is done, and quitting with unsaved changes
// asks first.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <algorithm>
#include <functional>

#include "common/files.h"
#include "control/control_access.h"
#include "demo_script.h"
#include "demo_window.h"
#include "event_log.h"
#include "qt/spreadsheet_widget.h"
#include "report_preview.h"

namespace tabulon::demo {
namespace {

class DemoWindowTest : public ::testing::Test {
protected:
    DemoWindowTest() {
        QDir::setCurrent(QString::fromUtf8(TABULON_SOURCE_DIR));
        window.resize(1024, 700);
        window.show();
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    // Runs closer on the first modal window that opens within a few seconds, then
    // closes that window if closer left it open: a modal window nobody closes would
    // hang the test.
    static void WhenModalOpens(std::function<void(QWidget*)> closer) {
        auto* poll = new QTimer(qApp);
        auto* deadline = new QElapsedTimer;
        deadline->start();
        QObject::connect(poll, &QTimer::timeout, [poll, deadline, closer] {
            QWidget* modal = QApplication::activeModalWidget();
            if (modal == nullptr && deadline->elapsed() < 5000) return;
            poll->stop();
            poll->deleteLater();
            delete deadline;
            if (modal == nullptr) return;
            const QPointer<QWidget> opened(modal);
            closer(modal);
            if (opened != nullptr && opened->isVisible()) opened->close();
        });
        poll->start(10);
    }

    QString LogText() const { return window.log().toPlainText(); }
    QMenu* Menu(const QString& title) {
        for (QAction* action : window.menuBar()->actions()) {
            if (action->text() == title) return action->menu();
        }
        ADD_FAILURE() << "no menu " << title.toStdString();
        return nullptr;
    }

    DemoWindow window;
};

TEST_F(DemoWindowTest, ViewPrintOpensThePreviewOfItsReportAfterTheEvent) {
    ASSERT_TRUE(window.openDocument(QStringLiteral("samples/english.xml")));
    DemoScript script(window);
    int tableRows = 0;
    WhenModalOpens([&tableRows](QWidget* modal) {
        if (auto* preview = qobject_cast<ReportPreviewDialog*>(modal)) {
            tableRows = preview->document().toPlainText().count(QLatin1Char('\n'));
            preview->reject();
        }
    });

    ASSERT_EQ(script.run(
                  {{DemoStep::Kind::Node, {QStringLiteral("PUMPS")}}, {DemoStep::Kind::Print, {}}}),
              QString());
    SettleEvents();

    EXPECT_TRUE(LogText().contains(QStringLiteral("PrintClick: 3 columns, 5 rows")));
    EXPECT_GT(tableRows, 5) << "the preview did not open with the report";
    EXPECT_FALSE(window.lastReport().isEmpty());
}

// File > Export the grids as a workbook writes one worksheet per node; a target that
// cannot be written is logged with the reason and leaves nothing.
TEST_F(DemoWindowTest, TheGridsExportAsAWorkbook) {
    ASSERT_TRUE(window.openDocument(QStringLiteral("samples/metric.xml")));
    const QList<QAction*> file = window.menuBar()->actions().front()->menu()->actions();
    EXPECT_TRUE(std::any_of(file.begin(), file.end(), [](const QAction* action) {
        return action->text().contains(QStringLiteral(".xlsx"));
    }));
    const QTemporaryDir dir;
    EXPECT_EQ(window.exportXlsx(dir.filePath(QStringLiteral("grids.xlsx"))), 4);
    EXPECT_TRUE(QFile::exists(dir.filePath(QStringLiteral("grids.xlsx"))));
    const QString missing = dir.filePath(QStringLiteral("no/grids.xlsx"));
    EXPECT_EQ(window.exportXlsx(missing), -1);
    EXPECT_TRUE(
        LogText().contains(QStringLiteral("Export workbook ") + missing + QStringLiteral(": ")))
        << LogText().toStdString();
    EXPECT_FALSE(QFile::exists(missing));
}

// Each document gets a fresh control, so custom units a first document declared do not
// make a second one fail; a load that is true although the user saw an error says why.
TEST_F(DemoWindowTest, EachDocumentOpensInAFreshControlAndTheLogExplainsAnErrorShown) {
    window.setInteractive(false);
    const QString units = QStringLiteral("tests/data/shell_custom_units.xml");
    ASSERT_TRUE(window.openDocument(units));
    const SpreadsheetWidget* first = &window.spreadsheet();
    ASSERT_TRUE(window.openDocument(units));
    EXPECT_NE(&window.spreadsheet(), first);
    EXPECT_EQ(FormOf(window.spreadsheet().control()).treTreeView.count(), 1);
    EXPECT_FALSE(LogText().contains(QStringLiteral("critical"))) << LogText().toStdString();

    const testing::TempDir dir;
    const QString clash = QString::fromStdString(
        dir.write("clash.xml", testing::Replaced(testing::ReadFileBytes(units.toStdString()),
                                                 "TONDAY_TO_KGS\"", "FT_TO_M\"")));  // built in
    ASSERT_TRUE(window.openDocument(clash));
    EXPECT_TRUE(LogText().contains(QStringLiteral("Load ") + clash +
                                   QStringLiteral(": true (the document is valid, but the control "
                                                  "reported \"Unexpected Error - 1032\"")))
        << LogText().toStdString();
}

// The title shows "*" while the document has unsaved changes; quitting then asks first,
// and the Edit menu's Undo takes the change back. Protective editing is on in the demo.
TEST_F(DemoWindowTest, UnsavedChangesMarkTheTitleAndQuittingAsksFirst) {
    ASSERT_TRUE(window.openXmlTextFile(QStringLiteral("samples/english.xml")));
    EXPECT_TRUE(window.spreadsheet().ProtectiveEditing());
    EXPECT_TRUE(window.windowTitle().startsWith(QStringLiteral("english.xml[*]")));
    EXPECT_FALSE(window.isWindowModified());
    DemoScript script(window);
    ASSERT_EQ(script.run({{DemoStep::Kind::Node, {QStringLiteral("PUMPS")}},
                          {DemoStep::Kind::Click, {QStringLiteral("1"), QStringLiteral("1")}},
                          {DemoStep::Kind::Type, {QStringLiteral("P9")}},
                          {DemoStep::Kind::Click, {QStringLiteral("2"), QStringLiteral("1")}}}),
              QString());
    EXPECT_TRUE(window.isWindowModified());

    QString asked;
    WhenModalOpens([&asked](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            asked = box->text();
            box->button(QMessageBox::Cancel)->click();
        }
    });
    EXPECT_FALSE(window.close());
    EXPECT_EQ(asked, QStringLiteral("english.xml has changes that are not saved."));
    EXPECT_TRUE(window.isVisible());

    ASSERT_NE(Menu(QStringLiteral("&Edit")), nullptr);
    QAction* undo = Menu(QStringLiteral("&Edit"))->actions().value(0);
    ASSERT_NE(undo, nullptr);
    ASSERT_TRUE(undo->isEnabled());
    undo->trigger();
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.close());  // nothing to lose: no question
}

// The count beside the status line follows each correction and each document; the
// toolbar's Next problem reaches a value of the last tree node.
TEST_F(DemoWindowTest, TheStatusLineCountsTheCellsThatNeedCorrecting) {
    window.setInteractive(false);
    const auto* count = window.findChild<QLabel*>(QStringLiteral("problemCount"));
    ASSERT_NE(count, nullptr);
    ASSERT_TRUE(window.openDocument(QStringLiteral("docs/examples/needs-correcting.xml")));
    EXPECT_EQ(count->text(), QStringLiteral("2 cells need correcting"));

    auto* bar = window.findChild<QToolBar*>(QStringLiteral("problems"));
    ASSERT_NE(bar, nullptr);
    bar->actions().at(1)->trigger();  // Next problem
    const Form& form = FormOf(window.spreadsheet().control());
    EXPECT_EQ(form.treTreeView.node(form.treTreeView.selectedIndex()).key, "STANDBY");
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("15"));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(count->text(), QStringLiteral("1 cell needs correcting"));

    ASSERT_TRUE(window.openDocument(QStringLiteral("samples/english.xml")));
    EXPECT_EQ(count->text(), QString());
}

}  // namespace
}  // namespace tabulon::demo
