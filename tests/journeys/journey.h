// Journeys: a session script played on the real widget as the mouse and key events a
// person makes (Play), then run by `tabulon session` on a second copy of the document
// (Finish), which must give the same grid, events, messages and saved file. The
// gestures Play knows, and the events it sends:
//   click R C, node KEY      a left click on the cell's / the tree item's centre
//   type "TEXT"              one key click per character to the focused widget
//   key NAME [MODIFIERS]     one key click (Tab with shift is Backtab, as Qt sends it)
//   paste "TEXT"             TEXT on the clipboard, then Ctrl+V
//   button NAME              a click on the button
//   hscroll/vscroll +1|-1    a click on the bar's arrow
//   hscroll/vscroll =N       a click in the track on N's side of the thumb
//   hdrag/vdrag N            the thumb pressed, moved in steps to where N lies, released
//   wheel ROWS [COLS]        wheel notches (wheelScrollLines() rows each) over the grid's
//                            centre, to whatever widget lies there
// Any other command fails the test.
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
    // The session tool on the second copy: load, hostSetup (the host's calls made after
    // Start), script, then dumps. Expects what Play gave: the grid, the events and
    // messages, and the two saved files equal.
    void Finish(const std::string& script, const std::string& hostSetup = "");

    // The text of the widget's document file as it is now.
    std::string SavedDocument() const;
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
