// FindBar: the widget's find bar, laid over the top-right corner of the grid, left of
// the control's own vertical bar (it takes no room from the control's layout). Ctrl+F opens it with
// its text selected; Enter (or Next) goes to the next hit and Shift+Enter (or Previous) to the
// previous one, searching again first when the text or an option changed since the last search; the
// label counts the hits ("2 of 14", "No hits"); Escape or Close hides it and the focus goes back
// where the control has it. The search and the jumps are the control's own
// (Generic_SP_Control::Find, GoToFindHit), so the bar shows nothing the session cannot do.
//
// The bar keeps Qt's focus while it is open and used: a jump opens the hit's editor in
// the control, and the bar takes the focus back from it.
#pragma once

#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
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
    // Places the bar at the grid's top-right corner.
    void place();

public Q_SLOTS:
    void next();
    void previous();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void step(bool forward);
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
};

}  // namespace tabulon
