// The demo window used interactively, in process: a View/Print opens the preview of
// its report once the control's handler is done, message boxes are shown as well as
// logged, and the Properties menu opens the pages modally.
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QMenuBar>
#include <QMessageBox>
#include <QPointer>
#include <QTest>
#include <QTimer>
#include <functional>

#include "demo_script.h"
#include "demo_window.h"
#include "event_log.h"
#include "qt/pages/property_page_dialog.h"
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

TEST_F(DemoWindowTest, AMessageBoxIsShownAndLogged) {
    QString shown;
    WhenModalOpens([&shown](QWidget* modal) {
        if (auto* box = qobject_cast<QMessageBox*>(modal)) {
            shown = box->text();
            box->accept();
        }
    });

    EXPECT_FALSE(window.openXmlText(QStringLiteral("<not-a-document/>"), QStringLiteral("text")));

    EXPECT_FALSE(shown.isEmpty());
    EXPECT_TRUE(LogText().contains(QStringLiteral("critical: ") + shown.section('\n', 0, 0)))
        << LogText().toStdString();
}

TEST_F(DemoWindowTest, ThePropertiesMenuOpensEachPageModally) {
    QMenu* properties = nullptr;
    for (QAction* action : window.menuBar()->actions()) {
        if (action->text() == QStringLiteral("&Properties")) properties = action->menu();
    }
    ASSERT_NE(properties, nullptr);
    ASSERT_EQ(properties->actions().size(), 2);

    QStringList opened;
    for (QAction* action : properties->actions()) {
        WhenModalOpens([&opened](QWidget* modal) {
            if (auto* dialog = qobject_cast<PropertyPageDialog*>(modal)) {
                opened.append(dialog->windowTitle());
                dialog->reject();
            }
        });
        action->trigger();
    }
    EXPECT_EQ(opened, QStringList({QStringLiteral("General"), QStringLiteral("Advanced")}));
}

}  // namespace
}  // namespace tabulon::demo
