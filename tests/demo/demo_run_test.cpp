// The demo host run as a user runs it without a display: the screenshot of a sample,
// the log of a scripted View/Print, the PDF export, Save as,
// and the command lines and steps it refuses. The PNGs are kept under the build folder
// (demo_renders/) for people to look at.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include "common/qt_images.h"

namespace tabulon::testing {
namespace {

struct DemoRun {
    int exitCode = -1;
    QString out;
    QString err;
};

// The words of a command line written with single blanks.
QStringList Words(const char* line) {
    return QString::fromUtf8(line).split(QLatin1Char(' '));
}

// Runs the demo with -platform offscreen before the arguments, or, without
// choosePlatform, with no platform named anywhere and no display.
DemoRun RunDemo(const QStringList& arguments, bool choosePlatform = true) {
    QProcess process;
    // The samples name their pictures relative to the repository root.
    process.setWorkingDirectory(QString::fromUtf8(TABULON_SOURCE_DIR));
    QStringList all = arguments;
    if (choosePlatform) {
        all = Words("-platform offscreen") + arguments;
    } else {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
            environment.remove(QString::fromLatin1(name));
        process.setProcessEnvironment(environment);
    }
    process.start(QString::fromUtf8(TABULON_DEMO_PATH), all);
    DemoRun run;
    if (!process.waitForFinished(60000)) {
        process.kill();
        run.err = QStringLiteral("the demo did not finish");
        return run;
    }
    run.exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    run.out = QString::fromUtf8(process.readAllStandardOutput());
    run.err = QString::fromUtf8(process.readAllStandardError());
    return run;
}

// Runs the demo to a screenshot kept in demo_renders/ and loads it; fails the test
// when either fails.
QImage Screenshot(const QString& name, const QStringList& arguments, bool choosePlatform = true) {
    const QString dir = QString::fromUtf8(TABULON_BINARY_DIR) + QStringLiteral("/demo_renders");
    QDir().mkpath(dir);
    const QString path = dir + QLatin1Char('/') + name + QStringLiteral(".png");
    QFile::remove(path);
    const DemoRun run =
        RunDemo(arguments + QStringList{QStringLiteral("--screenshot"), path}, choosePlatform);
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_EQ(run.out, QString()) << "the log is printed only on request";
    QImage image(path);
    EXPECT_FALSE(image.isNull()) << "no PNG at " << path.toStdString();
    return image;
}

// Without a display the demo renders offscreen by itself. Not blank: tree pictures,
// captions, grid lines, coloured and grey cells give many colours; an empty window has
// a handful.
TEST(DemoRun, ASampleRendersTheWholeWindowWithTheDocumentInIt) {
    const QImage image = Screenshot(QStringLiteral("english"), Words("samples/english.xml"), false);
    EXPECT_EQ(image.size(), QSize(1024, 700));
    EXPECT_GT(DistinctColours(image), 64);
}

TEST(DemoRun, ViewPrintIsLoggedAndItsReportExportsAsPdf) {
    QTemporaryDir dir;
    const QString pdf = dir.filePath(QStringLiteral("report.pdf"));
    const DemoRun run =
        RunDemo(Words("samples/english.xml --print-log --node PUMPS --print --pdf") +
                QStringList{pdf, QStringLiteral("--screenshot"), dir.filePath("shot.png")});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();

    const QStringList log = run.out.split(QLatin1Char('\n'));
    EXPECT_EQ(log.value(0), QStringLiteral("Load samples/english.xml: true"));
    EXPECT_EQ(log.filter(QStringLiteral("PrintClick: 3 columns, 5 rows")).size(), 1);
    EXPECT_TRUE(log.contains(QStringLiteral("Export PDF ") + pdf + QStringLiteral(": written")));
    QFile file(pdf);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.read(5) == "%PDF-");
}

TEST(DemoRun, SaveAsWritesTheXmlPropertyWhichLoadsAgainAsText) {
    QTemporaryDir dir;
    const QString saved = dir.filePath(QStringLiteral("saved.xml"));
    const DemoRun save = RunDemo(Words("samples/metric.xml --save") +
                                 QStringList{saved, "--screenshot", dir.filePath("a.png")});
    ASSERT_EQ(save.exitCode, 0) << save.err.toStdString();

    const DemoRun reload = RunDemo(
        QStringList{"--xml-text", saved, "--print-log", "--screenshot", dir.filePath("b.png")});
    ASSERT_EQ(reload.exitCode, 0) << reload.err.toStdString();
    EXPECT_TRUE(reload.out.startsWith(QStringLiteral("LoadXML saved.xml (")));
    EXPECT_TRUE(reload.out.contains(QStringLiteral(" characters): true\n")))
        << reload.out.toStdString();
}

// Help and usage errors (status 2, with the usage) need no display; a window does. A
// step that cannot be done stops the run with its reason and no screenshot.
TEST(DemoRun, HelpUsageErrorsAndStepsThatCannotBeDone) {
    const DemoRun help = RunDemo(Words("--help"), false);
    EXPECT_EQ(help.exitCode, 0) << help.err.toStdString();
    EXPECT_TRUE(help.out.startsWith(QStringLiteral("usage: tabulon-demo")));
    const DemoRun error = RunDemo(Words("--click 1"), false);
    EXPECT_EQ(error.exitCode, 2);
    EXPECT_TRUE(error.err.contains(QStringLiteral("--click needs a value")));
    EXPECT_TRUE(error.err.contains(QStringLiteral("usage: tabulon-demo")));
    const DemoRun window = RunDemo(Words("samples/english.xml"), false);
    EXPECT_EQ(window.exitCode, 1);
    EXPECT_TRUE(window.err.contains(QStringLiteral("no display"))) << window.err.toStdString();

    QTemporaryDir dir;
    const QString png = dir.filePath(QStringLiteral("never.png"));
    const DemoRun step =
        RunDemo(Words("samples/english.xml --node NO_SUCH_NODE --screenshot") + QStringList{png});
    EXPECT_EQ(step.exitCode, 1);
    EXPECT_TRUE(step.err.contains(QStringLiteral("--node: the tree has no node NO_SUCH_NODE")))
        << step.err.toStdString();
    EXPECT_FALSE(QFile::exists(png));
}

}  // namespace
}  // namespace tabulon::testing
