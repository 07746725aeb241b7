// FlexGrid: the headless model of the control's grid, with the semantics of a
// classic flex grid. All sizes and positions are in twips.
//
// Structure. Rows() x Cols() cells; the first FixedRows() rows and FixedCols()
// columns are fixed (they never scroll). Changing Rows/Cols keeps the cells that
// remain; new rows take DefaultRowHeight(), new columns DefaultColWidth(). Setting a
// count to 0 discards every cell. A grid holds at most kMaxCells cells: a count that
// would make Rows() x Cols() larger throws InvalidArgumentFailure and changes nothing.
//
// Storage. Only cells that differ from a fresh cell (empty text, default colours and
// alignment) are stored, column by column in row order, so memory follows what the
// cells hold, never Rows() x Cols(): a cell that holds nothing costs nothing. Reading a
// cell costs O(log cells of its column); writing the next cell down a column, as a
// fill does, O(1). Fixed counts follow the counts down when those
// shrink (a grid of one column may have it fixed); asking for more fixed rows than
// rows throws. Structural changes clamp the current cell, the selection, TopRow and
// LeftCol silently: they raise no cell notifications. After a structural change a
// current row (column) inside the fixed area moves to the first scrollable one when
// there is one (a grid made 0 x 0, then n x m with one fixed row and column, has
// (1, 1) current); code may still make a fixed cell current afterwards.
//
// Geometry. RowHeight(r) is never below RowHeightMin(). The scrollable area starts
// after the fixed rows/columns; TopRow/LeftCol is the first scrollable row/column
// shown. RowPos(r)/ColPos(c) is the edge inside the grid: fixed ones from 0, the
// scrollable ones laid out without gaps from TopRow/LeftCol, which starts right
// after the fixed area; rows/columns scrolled out above/left therefore lie before
// that start (under the fixed area, negative once scrolled far enough).
// RowIsVisible/ColIsVisible: at least partly inside Height()/Width() and not
// scrolled out; a row or column of size 0 is never visible. The grid has no border:
// its client area is its outer Width() x Height(). Every geometry query costs
// O(log Rows) at most, so a view may call them per paint on 100,000-row grids.
//
// TopRow/LeftCol. Values outside [FixedRows, Rows-1] throw InvalidArgumentFailure;
// values past the last scroll position (where the last row/column is fully shown at
// the bottom/right edge, or left of CoveredRight) are clamped to it. A change raises Scroll,
// whether the user or code made it; a write that leaves the value as it was raises nothing. Changes
// of sizes, counts or the grid's own size keep TopRow/LeftCol within the scroll
// range silently. With no scrollable rows TopRow reads FixedRows. Changing the
// current cell never scrolls by itself.
//
// Current cell. SetRow/SetCol (code) and user clicks change Row/Col and collapse
// the selection (RowSel=Row, ColSel=Col). When the current cell really changes the
// notifications run in this order:
//     LeaveCell   (Row/Col still the old cell)
//     EnterCell   (Row/Col already the new cell)
//     RowColChange
// Setting the cell that is already current raises nothing (it still collapses the
// selection). Out-of-range values throw InvalidArgumentFailure; a fixed row or
// column may be made current by code. Handlers may use the grid freely; a handler
// that moves the current cell itself takes over, and the interrupted change raises
// none of its remaining cell notifications.
//
// User gestures (what a view forwards; ignored while hidden or disabled).
// UserClick(r, c) records MouseRow/MouseCol; on a scrollable cell it makes the cell
// current (with the notifications above), then raises Click, also when the cell
// was already current. On a fixed cell with AllowBigSelection() the whole column
// (header row clicked), row (header column clicked) or grid (corner clicked) of
// scrollable cells is selected, its first cell becoming current with the usual
// notifications; otherwise the current cell stays. Click runs in every case.
// UserExtendSelection(r, c) (Shift+click, a drag, Shift+arrows) moves the far corner
// of the selection (RowSel/ColSel) to a scrollable cell, the current cell staying,
// and raises SelChange when the selection changed; a fixed cell is ignored.
// UserMouseMove records MouseRow/MouseCol and raises MouseMove. UserScroll (wheel)
// moves TopRow/LeftCol within the scroll range and raises Scroll once if it moved.
// UserResizeCol (the user drags a column header's border) sets the column's width,
// kept within [kMinUserColWidth, kMaxUserColWidth] so that a dragged column never
// vanishes and stays reachable, then raises UserColResize when the width changed. A
// column of width 0 (hidden by code) has no border to grab and is left alone; so is
// every column while the grid ignores input.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/component.h"
#include "platform/size_index.h"

namespace tabulon {

using Rgb = std::uint32_t;  // 0xRRGGBB

// Alignment codes of the flex grid.
enum class CellAlignment : std::int16_t {
    LeftTop = 0,
    LeftCenter = 1,
    LeftBottom = 2,
    CenterTop = 3,
    CenterCenter = 4,
    CenterBottom = 5,
    RightTop = 6,
    RightCenter = 7,
    RightBottom = 8,
    General = 9,
};

// One cell as stored. A back colour only counts when backColorSet; otherwise the
// grid's default for the cell applies (see FlexGrid::cellBackColor). The note says in
// words what the colours show (why a value is invalid); empty for most cells. A field
// added here is stored like the others, only for cells that hold something; it needs
// its default in Fresh() and its comparison in operator==.
struct GridCell {
    std::string text;
    Rgb foreColor = 0x000000;
    Rgb backColor = 0xFFFFFF;
    CellAlignment alignment = CellAlignment::General;
    bool backColorSet = false;
    std::string note;

    bool operator==(const GridCell&) const = default;
    bool Fresh() const { return *this == GridCell{}; }
};

class FlexGrid;

// A reference to a grid that reads null once the grid is destroyed, for holders that
// may outlive it (the scroll bars of one control can hold the grid of another).
using GridHandle = std::shared_ptr<FlexGrid* const>;

class FlexGrid : public Component {
public:
    static constexpr Rgb kFixedBackColor = 0xF0F0F0;
    static constexpr Rgb kBackColor = 0xFFFFFF;
    // Limits of a width the user gives a column by dragging its border (twips).
    static constexpr std::int32_t kMinUserColWidth = 120;
    static constexpr std::int32_t kMaxUserColWidth = 30000;
    static constexpr std::int64_t kMaxCells = std::int64_t{1} << 20;

    explicit FlexGrid(std::string name = "msgGridView");

    // --- structure (negative counts throw InvalidArgumentFailure)
    int rows() const { return rows_; }
    int cols() const { return cols_; }
    void setRows(int rows);  // rows x cols() above kMaxCells throws
    void setCols(int cols);  // rows() x cols above kMaxCells throws
    // Whether a grid of rows x cols cells can be had (counts not negative, at most
    // kMaxCells cells).
    static bool Representable(std::int64_t rows, std::int64_t cols);
    // The number of cells stored (those holding anything a fresh cell does not).
    std::size_t storedCells() const;
    int fixedRows() const { return fixedRows_; }
    int fixedCols() const { return fixedCols_; }
    void setFixedRows(int n);  // 0..rows(); anything else throws
    void setFixedCols(int n);  // 0..cols(); anything else throws

    // --- sizes (twips; bad indices or negative sizes throw InvalidArgumentFailure)
    std::int32_t rowHeight(int row) const;  // at least rowHeightMin()
    void setRowHeight(int row, std::int32_t height);
    std::int32_t colWidth(int col) const;
    void setColWidth(int col, std::int32_t width);
    std::int32_t rowHeightMin() const { return rowHeightMin_; }
    void setRowHeightMin(std::int32_t height);
    // Sizes given to rows/columns added later; existing ones keep theirs.
    std::int32_t defaultRowHeight() const { return defaultRowHeight_; }
    void setDefaultRowHeight(std::int32_t height);
    std::int32_t defaultColWidth() const { return defaultColWidth_; }
    void setDefaultColWidth(std::int32_t width);
    bool allowBigSelection() const { return allowBigSelection_; }
    void setAllowBigSelection(bool allow);

    // --- scrolling and geometry
    int topRow() const { return topRow_; }
    int leftCol() const { return leftCol_; }
    void setTopRow(int row);
    void setLeftCol(int col);
    int maxTopRow() const;  // last scroll position (fixedRows when none can scroll)
    int maxLeftCol() const;
    // Width of the strip along the grid's right edge that another component lies over
    // (the form's vertical scroll bar); 0 by default, negative values count as 0. The
    // last scroll position brings the last column fully out from under it; visibility
    // and positions are unchanged (a column under the strip is still visible).
    std::int32_t coveredRight() const { return coveredRight_; }
    void setCoveredRight(std::int32_t width);
    std::int32_t rowPos(int row) const;  // bad index throws
    std::int32_t colPos(int col) const;
    bool rowIsVisible(int row) const;  // bad index throws
    bool colIsVisible(int col) const;
    // Hit test for a view: the row under y / column under x (twips inside the grid),
    // -1 outside every row/column.
    int rowAt(std::int32_t y) const;
    int colAt(std::int32_t x) const;

    // --- current cell and selection
    int row() const { return row_; }
    int col() const { return col_; }
    int rowSel() const { return rowSel_; }
    int colSel() const { return colSel_; }
    void setRow(int row);
    void setCol(int col);
    void setRowSel(int row);  // extends the selection; raises nothing
    void setColSel(int col);
    // Position and size of the current cell inside the grid (a grid without cells
    // throws).
    std::int32_t cellLeft() const { return colPos(col_); }
    std::int32_t cellTop() const { return rowPos(row_); }
    std::int32_t cellWidth() const { return colWidth(col_); }
    std::int32_t cellHeight() const { return rowHeight(row_); }

    // --- cells (out-of-range indices throw InvalidArgumentFailure)
    // The reference stays valid until the next change of any cell of that column or
    // of the counts.
    // While one lives, the cells changed are told once it ends, each once and only when
    // it ends unlike it began: a column refilled and then converted to Metric passes
    // through texts nobody needs to be told of (a view would repaint each one).
    class QuietCells {
    public:
        explicit QuietCells(FlexGrid& grid) : grid_(grid) { ++grid_.quiet_; }
        ~QuietCells();
        QuietCells(const QuietCells&) = delete;
        QuietCells& operator=(const QuietCells&) = delete;

    private:
        FlexGrid& grid_;
    };

    const GridCell& cell(int row, int col) const;
    const std::string& textMatrix(int row, int col) const { return cell(row, col).text; }
    void setTextMatrix(int row, int col, std::string text);
    Rgb cellForeColor(int row, int col) const { return cell(row, col).foreColor; }
    // The colour shown: the one set, else kFixedBackColor for fixed cells and
    // kBackColor for the others.
    Rgb cellBackColor(int row, int col) const;
    CellAlignment cellAlignment(int row, int col) const { return cell(row, col).alignment; }
    void setCellForeColor(int row, int col, Rgb color);
    void setCellBackColor(int row, int col, Rgb color);
    void setCellAlignment(int row, int col, CellAlignment alignment);
    // The cell's note (see GridCell); raises a Cell change when it changes.
    const std::string& cellNote(int row, int col) const { return cell(row, col).note; }
    void setCellNote(int row, int col, std::string note);
    // The current cell's text and colours (Text, CellBackColor, ... of the flex grid).
    const std::string& text() const { return textMatrix(row_, col_); }
    void setText(std::string text) { setTextMatrix(row_, col_, std::move(text)); }
    void setCurrentCellForeColor(Rgb color) { setCellForeColor(row_, col_, color); }
    void setCurrentCellBackColor(Rgb color) { setCellBackColor(row_, col_, color); }
    void setCurrentCellAlignment(CellAlignment a) { setCellAlignment(row_, col_, a); }

    // --- pointer (set by UserMouseMove / UserClick); -1 when unknown or outside
    int mouseRow() const { return mouseRow_; }
    int mouseCol() const { return mouseCol_; }

    // --- user gestures (bad indices throw, as for code)
    void userClick(int row, int col);
    // row/col -1 mean the pointer is outside every row/column. MouseMove gets the
    // top-left corner of the cell under the pointer as x/y (0 along an axis of -1).
    void userMouseMove(int row, int col, int button = 0, int shift = 0);
    void userScroll(int rowDelta, int colDelta);
    void userExtendSelection(int row, int col);
    void userResizeCol(int col, std::int32_t width);

    GridHandle handle() { return life_.of(this); }

    // --- notifications (plain callbacks; empty ones are skipped)
    std::function<void()> onEnterCell;
    std::function<void()> onLeaveCell;
    std::function<void()> onRowColChange;
    std::function<void()> onScroll;
    std::function<void()> onClick;
    std::function<void(int button, int shift, std::int32_t x, std::int32_t y)> onMouseMove;
    std::function<void(int col)> onUserColResize;
    std::function<void()> onSelChange;

protected:
    void geometryChanged() override;

private:
    void checkRow(int row) const;
    void checkCol(int col) const;
    void changeCurrent(int row, int col);
    void bigSelect(int row, int col);
    void clampAfterStructureChange();
    void clampScroll();
    bool moveTopRow(int row);
    bool moveLeftCol(int col);
    // Changes the cell at (row, col) through edit (which returns whether it changed
    // anything), storing it first when it is not stored and dropping it when it ends
    // fresh; raises the cell notification when it changed.
    template <class Edit>
    void changeCell(int row, int col, Edit&& edit);

    // Clears the handles given out when the grid ends. A copy is another grid, with
    // handles of its own.
    class Life {
    public:
        Life() = default;
        Life(const Life&) {}
        // Assignment keeps this grid's own handle, whatever the other grid had.
        // NOLINTNEXTLINE(bugprone-unhandled-self-assignment)
        Life& operator=(const Life&) { return *this; }
        ~Life() {
            if (self_) *self_ = nullptr;
        }
        GridHandle of(FlexGrid* grid) {
            if (!self_) self_ = std::make_shared<FlexGrid*>(grid);
            return self_;
        }

    private:
        std::shared_ptr<FlexGrid*> self_;
    };

    int rows_ = 0, cols_ = 0, fixedRows_ = 0, fixedCols_ = 0;
    int row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
    int topRow_ = 0, leftCol_ = 0;
    int mouseRow_ = -1, mouseCol_ = -1;
    unsigned currentChanges_ = 0;  // counts current-cell changes, for re-entrancy
    int quiet_ = 0;                // QuietCells alive
    std::map<std::pair<int, int>, GridCell> quietBefore_;  // (row, col): as it began
    std::int32_t rowHeightMin_ = 0;
    std::int32_t defaultRowHeight_ = 240;
    std::int32_t defaultColWidth_ = 1080;
    std::int32_t coveredRight_ = 0;
    bool allowBigSelection_ = false;
    SizeIndex rowHeights_;
    SizeIndex colWidths_;
    struct StoredCell : GridCell {
        int row = 0;
    };
    std::vector<std::vector<StoredCell>> columns_;  // cols_ columns, stored cells by row
    Life life_;
};

}  // namespace tabulon
