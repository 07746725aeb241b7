// Subject: a window a gesture runs on, the control or the stock anchor, seen the same
// way so that one piece of code sends the same real Qt events to both. Rows and
// columns are numbered as in the control's grid: row 0 and column 0 are the headers,
// data from 1.
#pragma once

#include <QComboBox>
#include <QModelIndex>
#include <QPushButton>
#include <QRect>
#include <QScrollBar>
#include <QTreeView>
#include <QWidget>
#include <string>

namespace tabulon::bench {

class Subject {
public:
    virtual ~Subject() = default;

    virtual QWidget& window() = 0;

    // --- the grid
    // Where cells are clicked and the wheel turns.
    virtual QWidget& cellArea() = 0;
    // A data cell's rectangle in cellArea(); empty when not in view.
    virtual QRect cellRect(int row, int col) = 0;
    // The text a cell shows.
    virtual QString cellText(int row, int col) = 0;
    virtual int rows() = 0;  // header row included
    virtual int cols() = 0;  // header column included
    virtual int currentRow() = 0;
    virtual int currentCol() = 0;
    // The first data row / column in view.
    virtual int topRow() = 0;
    virtual int leftCol() = 0;
    // An editor is open and has Qt's focus.
    virtual bool editing() = 0;
    // Enter commits and moves down a row (the control); else it commits and closes.
    virtual bool enterMovesDown() = 0;
    // Where the right border of a data column's header is grabbed, in borderArea().
    virtual QWidget& borderArea() = 0;
    virtual QPoint columnBorder(int col) = 0;
    virtual int columnWidth(int col) = 0;  // pixels
    // Whether the grid can scroll on in that direction (1 forward, -1 back).
    virtual bool canScroll(Qt::Orientation orientation, int direction) = 0;
    // The grid's own vertical or horizontal scroll bar.
    virtual QScrollBar& scrollBar(Qt::Orientation orientation) = 0;
    // Scrolls to the first row and column and opens no editor (set-up, not timed).
    virtual void scrollHome() = 0;

    // --- around the grid
    virtual QTreeView& tree() = 0;
    // The tree's index of the control's tree node (1-based index); invalid when none.
    virtual QModelIndex nodeIndex(int index) = 0;
    virtual int selectedNode() = 0;
    virtual QComboBox& filter() = 0;
    // The View/Print and OK buttons; null where the subject has none.
    virtual QPushButton* printButton() = 0;
    virtual QPushButton* okButton() = 0;
    // Events and message boxes so far.
    virtual int printClicks() = 0;
    virtual int okClicks() = 0;
    virtual int messages() = 0;
    virtual QString lastMessage() = 0;
};

}  // namespace tabulon::bench
