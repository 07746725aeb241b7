// FlexGrid: the headless model of the control's grid, with the semantics of a
// classic flex grid. All sizes and positions are in twips.
//
// Structure. Rows() x Cols() cells; the first FixedRows() rows and FixedCols()
// columns are fixed (they never scroll). Changing Rows/Cols keeps the cells that
// remain; new rows take DefaultRowHeight(), new columns DefaultColWidth(). Setting a
// count to 0 discards every cell. Fixed counts are clamped to the counts (a grid of
// one column may have it fixed). Structural changes clamp the current cell, the
// selection, TopRow and LeftCol silently: they raise no cell notifications.
//
// Geometry. RowHeight(r) is never below RowHeightMin(). The scrollable area starts
// after the fixed rows/columns; TopRow/LeftCol is the first scrollable row/column
// shown. RowPos(r)/ColPos(c) is the edge inside the grid: fixed ones from 0, shown
// ones after the fixed area, ones scrolled out above/left are negative.
// RowIsVisible/ColIsVisible: at least partly inside Height()/Width(). The grid has no
// border: its client area is its outer Width() x Height().
//
// TopRow/LeftCol. Values outside [FixedRows, Rows-1] throw InvalidArgumentFailure;
// values past the last scroll position (where the last row/column is fully shown at
// the bottom/right edge) are clamped to it. A change raises Scroll, whether the user
// or code made it. Changing the current cell never scrolls by itself.
//
// Current cell. SetRow/SetCol (code) and user clicks change Row/Col and collapse
// the selection (RowSel=Row, ColSel=Col). When the current cell really changes the
// notifications run in this order:
//     LeaveCell   (Row/Col still the old cell)
//     EnterCell   (Row/Col already the new cell)
//     RowColChange
// Setting the cell that is already current raises nothing. Out-of-range values throw
// InvalidArgumentFailure; a fixed row or column may be made current by code.
//
// User gestures (what a view forwards). UserClick(r, c) on a scrollable cell makes
// it current (with the notifications above), then raises Click, also when the cell
// was already current. On a fixed cell with AllowBigSelection() the whole column
// (header row clicked) or row (header column clicked) is selected; otherwise the
// current cell stays. Click runs in every case. UserMouseMove records MouseRow/
// MouseCol and raises MouseMove.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/component.h"

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

struct GridCell {
    std::string text;
    Rgb foreColor = 0x000000;
    Rgb backColor = 0xFFFFFF;
    CellAlignment alignment = CellAlignment::General;
};

class FlexGrid : public Component {
public:
    static constexpr Rgb kFixedBackColor = 0xF0F0F0;

    explicit FlexGrid(std::string name = "msgGridView");

    // --- structure
    int rows() const { return rows_; }
    int cols() const { return cols_; }
    void setRows(int rows);  // negative: InvalidArgumentFailure
    void setCols(int cols);
    int fixedRows() const { return fixedRows_; }
    int fixedCols() const { return fixedCols_; }
    void setFixedRows(int n);
    void setFixedCols(int n);

    // --- sizes (twips)
    std::int32_t rowHeight(int row) const;  // at least rowHeightMin()
    void setRowHeight(int row, std::int32_t height);
    std::int32_t colWidth(int col) const;
    void setColWidth(int col, std::int32_t width);
    std::int32_t rowHeightMin() const { return rowHeightMin_; }
    void setRowHeightMin(std::int32_t height);
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
    int maxTopRow() const;   // last scroll position (>= fixedRows, or fixedRows when none)
    int maxLeftCol() const;
    std::int32_t rowPos(int row) const;
    std::int32_t colPos(int col) const;
    bool rowIsVisible(int row) const;
    bool colIsVisible(int col) const;

    // --- current cell and selection
    int row() const { return row_; }
    int col() const { return col_; }
    int rowSel() const { return rowSel_; }
    int colSel() const { return colSel_; }
    void setRow(int row);
    void setCol(int col);
    void setRowSel(int row);  // extends the selection; raises nothing
    void setColSel(int col);
    // Position and size of the current cell inside the grid.
    std::int32_t cellLeft() const { return colPos(col_); }
    std::int32_t cellTop() const { return rowPos(row_); }
    std::int32_t cellWidth() const { return colWidth(col_); }
    std::int32_t cellHeight() const { return rowHeight(row_); }

    // --- cells (out-of-range indices throw InvalidArgumentFailure)
    const GridCell& cell(int row, int col) const;
    const std::string& textMatrix(int row, int col) const { return cell(row, col).text; }
    void setTextMatrix(int row, int col, std::string text);
    void setCellForeColor(int row, int col, Rgb color);
    void setCellBackColor(int row, int col, Rgb color);
    void setCellAlignment(int row, int col, CellAlignment alignment);
    // The current cell's text and colours (Text, CellBackColor, ... of the flex grid).
    const std::string& text() const { return textMatrix(row_, col_); }
    void setText(std::string text) { setTextMatrix(row_, col_, std::move(text)); }
    void setCurrentCellBackColor(Rgb color) { setCellBackColor(row_, col_, color); }

    // --- pointer (set by UserMouseMove / UserClick); -1 when unknown
    int mouseRow() const { return mouseRow_; }
    int mouseCol() const { return mouseCol_; }

    // --- user gestures
    void userClick(int row, int col);
    void userMouseMove(int row, int col, int button = 0, int shift = 0);

    // --- notifications (plain callbacks; empty ones are skipped)
    std::function<void()> onEnterCell;
    std::function<void()> onLeaveCell;
    std::function<void()> onRowColChange;
    std::function<void()> onScroll;
    std::function<void()> onClick;
    std::function<void(int button, int shift, std::int32_t x, std::int32_t y)> onMouseMove;

protected:
    void geometryChanged() override;

private:
    void changeCurrent(int row, int col);
    void clampAfterStructureChange();
    GridCell& cellRef(int row, int col);

    int rows_ = 0, cols_ = 0, fixedRows_ = 0, fixedCols_ = 0;
    int row_ = 0, col_ = 0, rowSel_ = 0, colSel_ = 0;
    int topRow_ = 0, leftCol_ = 0;
    int mouseRow_ = -1, mouseCol_ = -1;
    std::int32_t rowHeightMin_ = 0;
    std::int32_t defaultRowHeight_ = 240;
    std::int32_t defaultColWidth_ = 1080;
    bool allowBigSelection_ = false;
    std::vector<std::int32_t> rowHeights_;
    std::vector<std::int32_t> colWidths_;
    std::vector<GridCell> cells_;  // row-major, rows_ x cols_
};

}  // namespace tabulon
