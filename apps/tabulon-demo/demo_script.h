// DemoScript: runs the command line's steps on a shown DemoWindow as a user would,
// with real Qt input events (mouse clicks on the tree node and the grid cell, key
// clicks into the focused widget, a click on View/Print), then the host actions
// (property page, PDF export, save).
//
// Decisions:
// - A step that cannot be done (no node with that key, a cell that is not in view,
//   nothing has the focus, a hidden View/Print button, an export or save that fails)
//   stops the script with a one-line reason; the steps before it stay done.
// - The window to render is the property page opened last, or the main window when
//   no page was opened.
#pragma once

#include <QPointer>
#include <QString>
#include <vector>

#include "demo_options.h"

class QWidget;

namespace tabulon::demo {

class DemoWindow;

class DemoScript {
public:
    explicit DemoScript(DemoWindow& window) : window_(window) {}

    // Runs steps in order; "" when all were done, else why the failing one was not.
    QString run(const std::vector<DemoStep>& steps);

    // What --screenshot renders (see the decisions).
    QWidget* screenshotTarget() const;

private:
    QString runStep(const DemoStep& step);
    QString clickNode(const QString& key);
    QString clickCell(int row, int column);
    QString type(const QString& text);
    QString clickPrint();

    DemoWindow& window_;
    QPointer<QWidget> page_;
};

// Lets queued work (focus put right, layouts) run.
void SettleEvents();

}  // namespace tabulon::demo
