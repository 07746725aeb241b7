// tabulon-demo: the demo host. Loads a document into the spreadsheet control, runs
// the command line's steps and either stays open for the user or renders the window
// to a PNG and exits (--screenshot; with -platform offscreen it needs no display).
//
// Exit status: 0 done; 1 a step failed, the screenshot could not be written or there
// is no display for an interactive run; 2 a usage error.
//
// Decisions:
// - The control's design-time settings persist as a form's would: an interactive run
//   restores them from the user's tabulon-demo.ini (an empty store gives the defaults,
//   which show the control's own scroll bars) and writes there what the user changes
//   on a property page (DesignSettings), nothing else and never at exit, so using the
//   window never changes the next start. A --screenshot run restores the defaults and
//   saves nothing, so its picture never depends on the user's settings.
// - The command line is read before anything needs a display: --help and usage errors
//   work without one, and an interactive run without one says so (status 1) instead
//   of aborting.
// - A --screenshot run on a machine with no display ($DISPLAY and
// $WAYLAND_DISPLAY unset) and no platform chosen ($QT_QPA_PLATFORM, -platform) renders
// offscreen by itself instead of failing to open a window.
#include <QApplication>
#include <QSettings>
#include <QTest>
#include <cstdio>
#include <string_view>

#include "demo_options.h"
#include "demo_script.h"
#include "demo_window.h"
#include "event_log.h"
#include "platform/property_bag.h"
#include "qt/qsettings_property_bag.h"
#include "qt/spreadsheet_widget.h"

namespace {

bool RendersOffscreenByItself(int argc, char** argv) {
    if (!qEnvironmentVariableIsEmpty("DISPLAY") ||
        !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
        !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        return false;
    }
    bool screenshot = false;
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        if (argument == "-platform" || argument == "--platform") return false;
        if (argument == "--screenshot") screenshot = true;
    }
    return screenshot;
}

// A display to open windows on: the environment names one, or the command line or
// the environment names a platform (such as offscreen) that needs none.
bool HasDisplay(int argc, char** argv) {
    for (const char* name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"}) {
        if (!qEnvironmentVariableIsEmpty(name)) return true;
    }
    for (int i = 1; i < argc; ++i) {
        const std::string_view argument(argv[i]);
        if (argument == "-platform" || argument == "--platform") return true;
    }
    return false;
}

void PrintError(const QString& text) {
    std::fprintf(stderr, "tabulon-demo: %s\n", text.toLocal8Bit().constData());
}

}  // namespace

int main(int argc, char** argv) {
    using namespace tabulon::demo;
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QString error;
    const std::optional<DemoOptions> options = ParseDemoOptions(WithoutQtOptions(arguments), error);
    if (!options) {
        PrintError(error);
        std::fputs(DemoUsage().toLocal8Bit().constData(), stderr);
        return 2;
    }
    if (options->help) {
        std::fputs(DemoUsage().toLocal8Bit().constData(), stdout);
        return 0;
    }
    if (RendersOffscreenByItself(argc, argv)) qputenv("QT_QPA_PLATFORM", "offscreen");
    if (!HasDisplay(argc, argv)) {
        PrintError(
            QStringLiteral("no display to open the window on: set DISPLAY, or render "
                           "a --screenshot, which needs none"));
        return 1;
    }

    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("tabulon-demo"));
    QApplication::setApplicationDisplayName(QStringLiteral("Tabulon Demo"));

    const bool scripted = !options->screenshot.isEmpty();
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("tabulon"),
                    QStringLiteral("tabulon-demo"));
    tabulon::QSettingsPropertyBag userSettings(store, QStringLiteral("control"));
    tabulon::MemoryPropertyBag defaults;
    tabulon::PropertyBag& settings =
        scripted ? static_cast<tabulon::PropertyBag&>(defaults) : userSettings;
    DemoWindow window(&settings);
    window.setInteractive(!scripted);
    window.log().setEcho(options->printLog);
    window.resize(options->size);
    window.show();
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
    SettleEvents();

    if (!options->document.isEmpty()) window.openDocument(options->document);
    if (!options->xmlTextFile.isEmpty()) window.openXmlTextFile(options->xmlTextFile);
    SettleEvents();

    DemoScript script(window);
    const QString failure = script.run(options->steps);
    if (!failure.isEmpty()) {
        PrintError(failure);
        if (scripted) return 1;
    }
    if (!scripted) return QApplication::exec();

    QWidget* target = script.screenshotTarget();
    SettleEvents();
    if (!target->grab().save(options->screenshot, "PNG")) {
        PrintError(QStringLiteral("cannot write ") + options->screenshot);
        return 1;
    }
    return 0;
}
