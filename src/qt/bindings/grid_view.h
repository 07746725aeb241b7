// GridView: the control's grid (a FlexGrid model) as a custom-painted widget.
//
// It paints only the cells in view: the fixed rows and columns, then the scrollable
// ones from TopRow/LeftCol until the widget's edge, each with its back and fore
// colour, its alignment code and its grid lines, the selection and a focus rectangle
// on the current cell. Every coordinate is a whole device-independent pixel taken
// from the model's twips edges, so lines stay one pixel wide and crisp at every
// whole-number device pixel ratio.
//
// Gestures, all into the model: a left press -> userMouseMove then userClick on the
// cell under the pointer (only the mouse move when the pointer is outside every row
// or column, and for the other buttons); pointer moves, pressed or not ->
// userMouseMove with the buttons held and the shift state; the wheel -> a user
// scroll of the model (QApplication::wheelScrollLines() rows per notch, one column per
// notch of a horizontal wheel).
//
// Decisions on what the model does not say:
// - The area past the last row and column is the classic flex grid's dark grey. It is
//   painted only where no cell lies (every cell paints its whole rectangle in an opaque
//   colour), or everywhere first when the palette's highlight is see-through.
// - Grid lines: light grey between scrollable cells, dark grey around fixed cells,
//   drawn along each cell's right and bottom edge inside the cell.
// - Alignment "general" (9): text that is wholly a number goes right, other text
//   left; both centred vertically.
// - Selected cells other than the current one use the palette's highlight colours;
//   the current cell of the scrollable area always carries the dotted focus rectangle.
// - Text sits 2 pixels inside the cell, on one line, cut at the cell's edge.
// - Plain ASCII cell texts are laid out once and kept, up to kTextCacheSize of them per
//   view (the store is emptied when full or when the font changes); they are painted
//   pixel for pixel as QPainter::drawText paints them. Other texts are laid out on
//   every paint.
#pragma once

#include <QFont>
#include <QHash>
#include <QStaticText>
#include <QWidget>
#include <utility>
#include <vector>

#include "platform/flex_grid.h"
#include "qt/bindings/binding_host.h"

namespace tabulon {

class GridView : public QWidget {
    Q_OBJECT

public:
    static constexpr Rgb kBackgroundColor = 0x808080;
    static constexpr Rgb kGridLineColor = 0xC0C0C0;
    static constexpr Rgb kFixedGridLineColor = 0x808080;
    static constexpr int kTextPadding = 2;
    static constexpr qsizetype kTextCacheSize = 4096;

    GridView(BindingHost& host, FlexGrid& grid, QWidget* parent);

    // The rows and columns in view, in painting order (fixed ones first).
    std::vector<int> rowsInView() const;
    std::vector<int> colsInView() const;
    // The cell's rectangle in widget pixels; empty when the cell is not in view or
    // the indices are out of range.
    QRect cellRect(int row, int col) const;
    // The row / column in view under a widget coordinate; -1 outside every one.
    int rowAt(int y) const;
    int colAt(int x) const;

    // The alignment used for a cell's text (see decisions).
    static Qt::Alignment TextAlignment(CellAlignment alignment, const std::string& text);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool rowInView(int row) const;
    bool colInView(int col) const;
    QRect unclippedCellRect(int row, int col) const;
    void paintCell(QPainter& painter, int row, int col, const QRect& rect) const;
    void paintText(QPainter& painter, const QRect& rect, Qt::Alignment alignment,
                   const std::string& text) const;
    void paintFocusRect(QPainter& painter) const;
    std::vector<std::pair<int, int>> coveredSpans(const std::vector<int>& indices,
                                                  bool columns) const;
    void paintBackground(QPainter& painter, const QRect& area, const std::vector<int>& rows,
                         const std::vector<int>& cols) const;
    bool selected(int row, int col) const;
    void pointerAt(const QPoint& position, Qt::MouseButtons buttons,
                   Qt::KeyboardModifiers modifiers, bool click);

    BindingHost& host_;
    FlexGrid& grid_;
    // Laid-out cell texts by text, all in textCacheFont_.
    mutable QHash<QString, QStaticText> textCache_;
    mutable QFont textCacheFont_;
    QPoint wheelRemainder_;
};

}  // namespace tabulon
