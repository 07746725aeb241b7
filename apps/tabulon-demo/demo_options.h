// The demo host's command line: a document to load, a short script of gestures and
// host actions run in the order given, and where to render the window.
//
//   tabulon-demo [DOCUMENT] [--xml-text FILE] [STEP ...] [--screenshot FILE]
//                [--size WxH] [--print-log]
//
// Steps: --node KEY, --click R C, --type TEXT, --print, --page general|buttons,
// --pdf FILE, --save FILE. Qt's own options (-platform offscreen ...) are QApplication's;
// the demo reads its own before QApplication exists (WithoutQtOptions), so that --help
// and usage errors need no display.
//
// Decisions:
// - DOCUMENT goes through Load, --xml-text FILE through LoadXML (the file's text);
//   when both are given, Load runs first.
// - Numbers (R, C, the size) are decimal integers, at least 0 (the size at least 1).
// - Anything else (an unknown option, a missing or bad value, a second document) is
//   a usage error; nothing is run then.
#pragma once

#include <QSize>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace tabulon::demo {

struct DemoStep {
    enum class Kind {
        Node,   // click the tree node with key args[0]
        Click,  // click grid cell args[0], args[1]
        Type,   // type args[0] into the widget with the focus
        Print,  // click the control's View/Print button
        Page,   // open the property page args[0] ("general" or "buttons")
        Pdf,    // export the last View/Print report as PDF to args[0]
        Save,   // write the control's XML property to args[0]
    };
    Kind kind;
    QStringList args;

    bool operator==(const DemoStep&) const = default;
};

struct DemoOptions {
    static constexpr QSize kDefaultSize{1024, 700};

    QString document;     // loaded with Load; empty: none
    QString xmlTextFile;  // its text loaded with LoadXML; empty: none
    QString screenshot;   // render here after the steps and exit; empty: stay open
    QSize size = kDefaultSize;
    bool printLog = false;  // copy every log line to standard output
    bool help = false;
    std::vector<DemoStep> steps;
};

// Parses the arguments after the program name. On a usage error returns nothing and
// sets error to one line saying what is wrong.
std::optional<DemoOptions> ParseDemoOptions(const QStringList& arguments, QString& error);

// The arguments without Qt's own command-line options (one or two dashes; "-style=x"
// or "-style x"): -platform, -platformpluginpath, -platformtheme, -plugin,
// -qwindowgeometry, -qwindowicon, -qwindowtitle, -session, -display, -geometry,
// -style, -stylesheet, -qmljsdebugger take a value; -reverse, -widgetcount, -nograb,
// -dograb, -sync do not.
QStringList WithoutQtOptions(const QStringList& arguments);

// The usage text printed for --help and after a usage error.
QString DemoUsage();

}  // namespace tabulon::demo
