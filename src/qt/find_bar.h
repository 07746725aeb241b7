// FindBar: the widget's find bar, laid over the top-right corner of the grid (the
// bottom-right one when the current cell is under it), left of the control's own
// vertical bar (it takes no room from the control's layout). Ctrl+F opens it with
// its text selected; Enter (or Next) goes to the next hit and Shift+Enter (or Previous) to the
// previous one, searching again first when the text or an option changed since the last search; the
// label counts the hits ("2 of 14", "No hits"); Escape or Close hides it and the focus goes back
// where the control has it. The search and the jumps are the control's own
// (Generic_SP_Control::StartFind, ContinueFind, FindNext), so the bar shows nothing the session
// cannot do.
//
// A large document is searched a slice at a time (sliceTime, 6 ms by default) so that the bar
// never holds the event loop for a frame: Enter searches until the hit to go to is found or
// the slice is spent, goes there, and the rest is searched in slices between events while the
// label says "2 of at least 14" ("Searching…" before the first hit). A step to a hit not found
// yet is made as soon as it is. Escape stops the counting; the next step goes on with it.
//
// The bar keeps Qt's focus while it is open and used: a jump opens the hit's editor in
// the control, and the bar takes the focus back from it.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <QToolButton>

namespace tabulon {

class BindingHost;
class SpreadsheetWidget;

class FindBar : public QFrame {
    Q_OBJECT

public:
    FindBar(SpreadsheetWidget& widget, BindingHost& host);

    QLineEdit* textEdit() const { return text_; }
    QCheckBox* matchCase() const { return matchCase_; }
    QCheckBox* wholeCell() const { return wholeCell_; }
    QLabel* countLabel() const { return count_; }

    // Shows the bar over the grid, text selected and focused.
    void open();
    // Hides the bar; the focus goes back to the control's focused component.
    void dismiss();
    // Places the bar at the grid's top-right corner, or its bottom-right one when the
    // current cell would be under it.
    void place();
    // The longest the bar searches before it lets events through; 0 searches one tree
    // node at a time.
    void setSliceTime(int milliseconds) { sliceMs_ = milliseconds; }
    // True while the bar is still counting hits between events.
    bool counting() const;

public Q_SLOTS:
    void next();
    void previous();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    enum class Step { None, Next, Previous };
    void step(bool forward);
    // Searches for one slice, makes the step asked for once its hit is found, and goes
    // on later while any node is left.
    void search();
    bool tryStep();
    void showCount();

    SpreadsheetWidget& widget_;
    BindingHost& host_;
    QLineEdit* text_;
    QCheckBox* matchCase_;
    QCheckBox* wholeCell_;
    QLabel* count_;
    QString searched_;
    bool searchedMatchCase_ = false;
    bool searchedWholeCell_ = false;
    bool searchedOnce_ = false;
    Step wanted_ = Step::None;
    int sliceMs_ = 6;
    QTimer* slices_;
};

}  // namespace tabulon
