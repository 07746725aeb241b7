// GridView: the control's grid (a FlexGrid model) as a custom-painted widget.
//
// It paints only the cells in view that the repaint's region touches: the fixed rows
// and columns, then the scrollable ones from TopRow/LeftCol until the widget's edge,
// each with its back and fore colour, its alignment code and its grid lines, the
// selection and a focus rectangle on the current cell. Every coordinate is a whole
// device-independent pixel taken from the model's twips edges (the scrollable rows
// and columns counted from the first scrollable one, grid_view_pixels.cpp), so lines
// stay one pixel wide and crisp at every whole-number device pixel ratio.
//
// Gestures, all into the model: a left press -> userMouseMove then userClick on the
// cell under the pointer (only the mouse move when the pointer is outside every row
// or column, on a column header's border, and for the other buttons), or, with Shift
// alone on a scrollable cell, userExtendSelection instead of the click; pointer moves,
// pressed or not -> userMouseMove with the buttons held and the shift state, and while
// the left button pressed on a scrollable cell is held (a drag) userExtendSelection
// to the cell under the pointer (fixed cells are ignored by the model); the
// wheel -> the control's UserWheel (QApplication::wheelScrollLines() rows per notch,
// one column per notch of a horizontal wheel), which scrolls the grid and lets the
// scroll bars follow; dragging or double-clicking a column header's border ->
// userResizeCol (ColumnBorderDrag).
//
// A text that does not fit its cell is shown cut visibly, never silently (CellText),
// and a tooltip over such a cell shows the whole text; so does one over a cell whose
// text runs past the view's edge.
//
// A cell whose note says why its value is invalid carries the problem mark
// (problem_mark.h) and shows the note as its tooltip, above the whole text when that
// is cut too. Assistive technology sees the view as a table (grid_accessibility.h).
//
// Decisions on what the model does not say:
// - The area past the last row and column is the classic flex grid's dark grey. It is
//   painted only where no cell lies (every cell paints its whole rectangle in an opaque
//   colour first).
// - Grid lines: light grey between scrollable cells, dark grey around fixed cells,
//   drawn along each cell's right and bottom edge inside the cell.
// - Alignment "general" (9): text that is wholly a number goes right, other text
//   left; both centred vertically.
// - Selected cells other than the current one are tinted with the palette's highlight
//   colour at kSelectionAlpha over their own colour, so a red cell stays visibly red;
//   the text keeps its colour. The current cell of the scrollable area always carries
//   the dotted focus rectangle.
// - Text sits 2 pixels inside the cell (and 1 before its grid line), on one line.
#pragma once

#include <QString>
#include <QWidget>
#include <optional>
#include <utility>
#include <vector>

#include "platform/flex_grid.h"
#include "qt/bindings/binding_host.h"
#include "qt/bindings/cell_text.h"
#include "qt/bindings/column_border_drag.h"

namespace tabulon {

class GridView : public QWidget {
    Q_OBJECT

public:
    static constexpr Rgb kBackgroundColor = 0x808080;
    static constexpr Rgb kGridLineColor = 0xC0C0C0;
    static constexpr Rgb kFixedGridLineColor = 0x808080;
    static constexpr int kTextPadding = 2;
    static constexpr int kSelectionAlpha = 96;

    GridView(BindingHost& host, FlexGrid& grid, QWidget* parent);

    const FlexGrid& grid() const { return grid_; }
    const Generic_SP_Control& control() const { return host_.control(); }

    // The rows and columns in view, in painting order (fixed ones first).
    std::vector<int> rowsInView() const;
    std::vector<int> colsInView() const;
    // The cell's rectangle in widget pixels; empty when the cell is not in view or
    // the indices are out of range.
    QRect cellRect(int row, int col) const;
    // The pixel row (column) of a height (width) in twips from the grid's top (left),
    // by the rows and columns as they lie now (grid_view_pixels.cpp).
    int rowEdge(std::int64_t y) const;
    int colEdge(std::int64_t x) const;
    // The row / column in view under a widget coordinate; -1 outside every one.
    int rowAt(int y) const;
    int colAt(int x) const;

    // The alignment used for a cell's text (see decisions).
    static Qt::Alignment TextAlignment(CellAlignment alignment, const std::string& text);
    // What a selected cell is painted over with.
    static QColor SelectionTint(const QPalette& palette);

    // Repaints the whole view, or one cell; a cell's repaint asked for while the whole
    // view's is pending is already part of it (a grid filled afresh changes every cell,
    // and working out each one's rectangle cost a tenth of a node change).
    void updateAll();
    void updateCell(int row, int col);
    // Repaints what a move of the current cell or a change of the selection changed:
    // the cell left and the cell entered when neither selection holds more than the
    // current cell (a Tab, Enter, a click), else the whole view.
    void updateCurrent();
    // Repaints what a change of TopRow or LeftCol changed: the pixels that stay in view
    // are moved and only what comes into view is painted, when the move is along one
    // axis and nothing else waits to be painted in full; else the whole view.
    void updateScroll();

    // What the cell shows of its text: the text itself, or its cut form when it does
    // not fit (CellText). Empty for a cell out of view.
    QString shownText(int row, int col) const;
    // Whether the cell's text is not wholly seen: cut to fit, or running past the
    // view's edge. Such a cell offers its whole text as a tooltip.
    bool textCut(int row, int col) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    bool rowInView(int row) const;
    bool colInView(int col) const;
    QRect unclippedCellRect(int row, int col) const;
    // Along the columns (cols) or the rows: a position and extent in twips, and twips
    // in pixels.
    std::int64_t axisPos(bool cols, int index) const;
    std::int64_t axisExtent(bool cols, int index) const;
    int axisToPixels(bool cols, std::int64_t twips) const;
    // A cell's problem mark and text, over its colour and grid lines.
    void paintCell(QPainter& painter, int row, int col, const QRect& rect) const;
    // Where a cell's text is laid out: its padded rectangle when the text is wholly
    // seen there; else the part of that rectangle that is seen (the view's right edge
    // and the control's own vertical bar, laid over the grid, end it), where the text
    // is shown whole when it fits and cut (CellText) when not.
    QRect textArea(const GridCell& cell, const QRect& cellRect) const;
    // The first pixel column, at the height of rect, that is not seen.
    int seenRight(const QRect& rect) const;
    // Where the control's vertical bar lies over the view; none while it is hidden.
    std::optional<QRect> coveringBar() const;
    void paintFocusRect(QPainter& painter) const;
    // A row or column in view and the pixels [first, end) it covers along its axis: a
    // cell's left and right edges depend on its column only, its top and bottom on its
    // row.
    struct Span {
        int index, first, end;
    };
    std::vector<Span> spansInView(bool columns) const;
    // The row (column) in view under a pixel; -1 outside every one.
    int indexAt(bool cols, int pixel) const;
    // How an axis lies in pixels now, worked out once for all the edges a use needs:
    // the twips of the fixed rows (columns) and of those scrolled out before the view,
    // and both in pixels.
    struct AxisPixels {
        bool cols = false;
        bool scrollable = false;
        std::int64_t fixed = 0, before = 0;
        int fixedPixels = 0, beforePixels = 0;
    };
    AxisPixels axisPixels(bool cols) const;
    int edge(const AxisPixels& axis, std::int64_t twips) const;
    Span spanOf(const AxisPixels& axis, int index) const;
    static std::vector<std::pair<int, int>> CoveredSpans(const std::vector<Span>& spans);
    // The colours and grid lines of the cells of these rows and columns.
    void paintCellGrounds(QPainter& painter, const std::vector<Span>& rows,
                          const std::vector<Span>& cols) const;
    void paintBackground(QPainter& painter, const QRect& area, const std::vector<Span>& rows,
                         const std::vector<Span>& cols) const;
    bool selected(int row, int col) const;
    enum class Pointer { Move, Click, Extend };
    void pointerAt(const QPoint& position, Qt::MouseButtons buttons,
                   Qt::KeyboardModifiers modifiers, Pointer pointer);

    BindingHost& host_;
    FlexGrid& grid_;
    CellText text_;
    ColumnBorderDrag borderDrag_;
    QPoint wheelRemainder_;
    bool dragging_ = false;
    bool wholeUpdatePending_ = false;
    bool movePending_ = false;
    // The current cell and the selection as last asked to be painted; row -1: none yet.
    struct Marked {
        int row = -1, col = -1, rowSel = -1, colSel = -1;
    };
    Marked marked_;
    Marked currentNow() const;
    // The first scrollable row and column and the size the view shows once the repaints
    // asked for are done.
    struct Place {
        int top = -1, left = -1;
        QSize size;
    };
    Place place_;
    Place placeNow() const;
    QRect uncoveredRect() const;
    // How far the pixels in view move when the first scrollable row (column) was
    // `from`: all of them alike.
    int shiftInPixels(bool cols, int from) const;
    QRect wholeCells(QRect band, bool cols) const;
};

}  // namespace tabulon
