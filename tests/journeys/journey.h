// Journeys: a session script played on the real widget as the mouse and key events a
// person makes (Play: clicks on cells, tree items, buttons and scroll-bar parts, key
// clicks, Ctrl+V pastes, thumb drags and wheel notches over the grid's centre), then
// run by `tabulon session` on a second copy of the document (Finish), which must give
// the same grid, events, messages and saved file. Any other command fails the test.
#pragma once

#include <QScrollBar>
#include <string>

#include "qt/widget_fixture.h"

namespace tabulon::testing {

class JourneyFixture : public WidgetFixture {
protected:
    // Writes documentText to two files, loads one into the widget (Load, so OK saves
    // back to it) and keeps the other for the session.
    void Start(const std::string& documentText);
    // Runs every command of script with real events.
    void Play(const std::string& script);
    // The session tool on the second copy: load, hostSetup (the host's calls after
    // Start), script. Expects Play's grid, events and messages, and equal saved files.
    void Finish(const std::string& script, const std::string& hostSetup = "");

    // A script file of tests/journeys/.
    static std::string ScriptFile(const std::string& name);

private:
    void Run(const std::string& command);
    QScrollBar* Bar(bool horizontal);
    void ClickBar(QScrollBar* bar, int part);
    void DragThumb(QScrollBar* bar, int value);
    void Wheel(int rows, int cols);

    std::string widgetPath_;
    std::string sessionPath_;
};

}  // namespace tabulon::testing
