#include "platform/flex_grid.h"

#include <algorithm>
#include <limits>

#include "support/failure.h"

namespace tabulon {

namespace {

// Rows and columns follow the same geometry; these work on either axis, given the
// sizes, the fixed count, the first scrollable index shown and the grid's extent.

std::int64_t AxisPos(const SizeIndex& sizes, int fixed, int first, int index) {
    if (index < fixed) return sizes.prefix(index);
    return sizes.prefix(fixed) + sizes.prefix(index) - sizes.prefix(first);
}

std::int32_t Saturate(std::int64_t value) {
    constexpr std::int64_t lo = std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t hi = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(std::clamp(value, lo, hi));
}

bool AxisVisible(const SizeIndex& sizes, int fixed, int first, std::int32_t extent, int index) {
    if (sizes.size(index) == 0) return false;
    if (index >= fixed && index < first) return false;  // scrolled out
    return AxisPos(sizes, fixed, first, index) < extent;
}

int AxisMaxFirst(const SizeIndex& sizes, int fixed, std::int32_t extent) {
    const int count = sizes.count();
    if (count <= fixed) return fixed;
    const std::int64_t room = extent - sizes.prefix(fixed);
    // The first index from which everything up to the end fits into the room.
    const int first = sizes.lowerBound(sizes.total() - room);
    return std::clamp(first, fixed, count - 1);
}

int AxisAt(const SizeIndex& sizes, int fixed, int first, std::int32_t pos) {
    if (pos < 0) return -1;
    const std::int64_t fixedExtent = sizes.prefix(fixed);
    if (pos < fixedExtent) return sizes.indexAt(pos);
    const int index = sizes.indexAt(pos - fixedExtent + sizes.prefix(first));
    return index < sizes.count() ? index : -1;
}

void RequireCount(int count, const char* what) {
    if (count < 0) throw InvalidArgumentFailure(std::string("Invalid ") + what + " value");
}

void RequireSize(std::int32_t size) {
    if (size < 0) throw InvalidArgumentFailure("Invalid property value");
}

// The current index after a structural change: inside the counts, and out of the
// fixed area when scrollable entries exist.
int ClampCurrent(int current, int count, int fixed) {
    if (count == 0) return 0;
    current = std::clamp(current, 0, count - 1);
    if (current < fixed && fixed < count) current = fixed;
    return current;
}

}  // namespace

FlexGrid::FlexGrid(std::string name) : Component(std::move(name)) {}

// --- structure

bool FlexGrid::Representable(std::int64_t rows, std::int64_t cols) {
    return rows >= 0 && cols >= 0 && (rows == 0 || cols <= kMaxCells / rows);
}

std::size_t FlexGrid::storedCells() const {
    std::size_t count = 0;
    for (const auto& column : columns_)
        count += column.size();
    return count;
}

void FlexGrid::setRows(int rows) {
    RequireCount(rows, "Rows");
    if (rows == rows_) return;
    if (!Representable(rows, cols_)) throw InvalidArgumentFailure("Invalid Rows value");
    for (auto& column : columns_) {
        while (!column.empty() && column.back().row >= rows)
            column.pop_back();
    }
    rowHeights_.resize(rows, defaultRowHeight_);
    rows_ = rows;
    fixedRows_ = std::min(fixedRows_, rows_);
    clampAfterStructureChange();
}

void FlexGrid::setCols(int cols) {
    RequireCount(cols, "Cols");
    if (cols == cols_) return;
    if (!Representable(rows_, cols)) throw InvalidArgumentFailure("Invalid Cols value");
    columns_.resize(static_cast<std::size_t>(cols));
    colWidths_.resize(cols, defaultColWidth_);
    cols_ = cols;
    fixedCols_ = std::min(fixedCols_, cols_);
    clampAfterStructureChange();
}

void FlexGrid::setFixedRows(int n) {
    if (n < 0 || n > rows_) throw InvalidArgumentFailure("Invalid FixedRows value");
    if (n == fixedRows_) return;
    fixedRows_ = n;
    clampAfterStructureChange();
}

void FlexGrid::setFixedCols(int n) {
    if (n < 0 || n > cols_) throw InvalidArgumentFailure("Invalid FixedCols value");
    if (n == fixedCols_) return;
    fixedCols_ = n;
    clampAfterStructureChange();
}

void FlexGrid::clampAfterStructureChange() {
    const int row = ClampCurrent(row_, rows_, fixedRows_);
    const int col = ClampCurrent(col_, cols_, fixedCols_);
    if (row != row_ || col != col_) {
        row_ = rowSel_ = row;
        col_ = colSel_ = col;
        ++currentChanges_;
    } else {
        rowSel_ = std::min(rowSel_, std::max(rows_ - 1, 0));
        colSel_ = std::min(colSel_, std::max(cols_ - 1, 0));
    }
    topRow_ = std::max(topRow_, fixedRows_);
    leftCol_ = std::max(leftCol_, fixedCols_);
    clampScroll();
    Notify(Change::Layout);
}

// --- sizes

void FlexGrid::checkRow(int row) const {
    if (row < 0 || row >= rows_) throw InvalidArgumentFailure("Invalid Row value");
}

void FlexGrid::checkCol(int col) const {
    if (col < 0 || col >= cols_) throw InvalidArgumentFailure("Invalid Col value");
}

std::int32_t FlexGrid::rowHeight(int row) const {
    checkRow(row);
    return rowHeights_.size(row);
}

void FlexGrid::setRowHeight(int row, std::int32_t height) {
    checkRow(row);
    RequireSize(height);
    if (rowHeights_.stored(row) == height) return;
    rowHeights_.set(row, height);
    clampScroll();
    Notify(Change::Layout);
}

std::int32_t FlexGrid::colWidth(int col) const {
    checkCol(col);
    return colWidths_.size(col);
}

void FlexGrid::setColWidth(int col, std::int32_t width) {
    checkCol(col);
    RequireSize(width);
    if (colWidths_.stored(col) == width) return;
    colWidths_.set(col, width);
    clampScroll();
    Notify(Change::Layout);
}

void FlexGrid::setRowHeightMin(std::int32_t height) {
    RequireSize(height);
    if (height == rowHeightMin_) return;
    rowHeightMin_ = height;
    rowHeights_.setMinimum(height);
    clampScroll();
    Notify(Change::Layout);
}

void FlexGrid::setDefaultRowHeight(std::int32_t height) {
    RequireSize(height);
    defaultRowHeight_ = height;
}

void FlexGrid::setDefaultColWidth(std::int32_t width) {
    RequireSize(width);
    defaultColWidth_ = width;
}

void FlexGrid::setAllowBigSelection(bool allow) {
    if (allow == allowBigSelection_) return;
    allowBigSelection_ = allow;
    Notify(Change::Content);
}

// --- scrolling and geometry

int FlexGrid::maxTopRow() const {
    return AxisMaxFirst(rowHeights_, fixedRows_, height());
}
int FlexGrid::maxLeftCol() const {
    return AxisMaxFirst(colWidths_, fixedCols_, width() - coveredRight_);
}

void FlexGrid::setCoveredRight(std::int32_t width) {
    width = std::max<std::int32_t>(width, 0);
    if (width == coveredRight_) return;
    coveredRight_ = width;
    clampScroll();
}

bool FlexGrid::moveTopRow(int row) {
    row = std::clamp(row, fixedRows_, maxTopRow());
    if (row == topRow_) return false;
    topRow_ = row;
    Notify(Change::Scroll);
    return true;
}

bool FlexGrid::moveLeftCol(int col) {
    col = std::clamp(col, fixedCols_, maxLeftCol());
    if (col == leftCol_) return false;
    leftCol_ = col;
    Notify(Change::Scroll);
    return true;
}

void FlexGrid::setTopRow(int row) {
    if (row < fixedRows_ || row >= rows_) throw InvalidArgumentFailure("Invalid Row value");
    if (moveTopRow(row)) Raise(onScroll);
}

void FlexGrid::setLeftCol(int col) {
    if (col < fixedCols_ || col >= cols_) throw InvalidArgumentFailure("Invalid Col value");
    if (moveLeftCol(col)) Raise(onScroll);
}

void FlexGrid::clampScroll() {
    moveTopRow(topRow_);
    moveLeftCol(leftCol_);
}

void FlexGrid::geometryChanged() {
    clampScroll();
}

std::int32_t FlexGrid::rowPos(int row) const {
    checkRow(row);
    return Saturate(AxisPos(rowHeights_, fixedRows_, topRow_, row));
}

std::int32_t FlexGrid::colPos(int col) const {
    checkCol(col);
    return Saturate(AxisPos(colWidths_, fixedCols_, leftCol_, col));
}

bool FlexGrid::rowIsVisible(int row) const {
    checkRow(row);
    return AxisVisible(rowHeights_, fixedRows_, topRow_, height(), row);
}

bool FlexGrid::colIsVisible(int col) const {
    checkCol(col);
    return AxisVisible(colWidths_, fixedCols_, leftCol_, width(), col);
}

int FlexGrid::rowAt(std::int32_t y) const {
    return AxisAt(rowHeights_, fixedRows_, topRow_, y);
}
int FlexGrid::colAt(std::int32_t x) const {
    return AxisAt(colWidths_, fixedCols_, leftCol_, x);
}

// --- current cell and selection

void FlexGrid::setRow(int row) {
    checkRow(row);
    changeCurrent(row, col_);
}

void FlexGrid::setCol(int col) {
    checkCol(col);
    changeCurrent(row_, col);
}

void FlexGrid::setRowSel(int row) {
    checkRow(row);
    if (row == rowSel_) return;
    rowSel_ = row;
    Notify(Change::Current);
}

void FlexGrid::setColSel(int col) {
    checkCol(col);
    if (col == colSel_) return;
    colSel_ = col;
    Notify(Change::Current);
}

void FlexGrid::changeCurrent(int row, int col) {
    if (row == row_ && col == col_) {
        if (rowSel_ == row && colSel_ == col) return;
        rowSel_ = row;
        colSel_ = col;
        Notify(Change::Current);
        return;
    }
    const unsigned before = ++currentChanges_;
    Raise(onLeaveCell);
    // A LeaveCell handler may have moved the current cell or shrunk the grid.
    if (before != currentChanges_ || row >= rows_ || col >= cols_) return;
    const unsigned entered = ++currentChanges_;
    row_ = rowSel_ = row;
    col_ = colSel_ = col;
    Notify(Change::Current);
    Raise(onEnterCell);
    if (entered != currentChanges_) return;
    Raise(onRowColChange);
}

// --- cells

namespace {

const GridCell kFreshCell{};

// The first stored cell of column at or below row.
template <class Column>
auto LowerBound(Column& column, int row) {
    return std::lower_bound(column.begin(), column.end(), row,
                            [](const auto& stored, int r) { return stored.row < r; });
}

}  // namespace

const GridCell& FlexGrid::cell(int row, int col) const {
    checkRow(row);
    checkCol(col);
    const auto& column = columns_[static_cast<std::size_t>(col)];
    const auto found = LowerBound(column, row);
    return found != column.end() && found->row == row ? *found : kFreshCell;
}

template <class Edit>
void FlexGrid::changeCell(int row, int col, Edit&& edit) {
    checkRow(row);
    checkCol(col);
    auto& column = columns_[static_cast<std::size_t>(col)];
    auto found = column.empty() || column.back().row < row ? column.end() : LowerBound(column, row);
    const bool stored = found != column.end() && found->row == row;
    if (quiet_ > 0) quietBefore_.try_emplace({row, col}, stored ? *found : kFreshCell);
    if (!stored) {
        StoredCell fresh;
        fresh.row = row;
        if (!edit(static_cast<GridCell&>(fresh))) return;
        if (fresh.Fresh()) return;
        column.insert(found, std::move(fresh));
    } else {
        if (!edit(static_cast<GridCell&>(*found))) return;
        if (found->Fresh()) column.erase(found);
    }
    if (quiet_ == 0) Notify(Change::Cell, row, col);
}

FlexGrid::QuietCells::~QuietCells() {
    if (--grid_.quiet_ > 0) return;
    const auto before = std::move(grid_.quietBefore_);
    grid_.quietBefore_.clear();
    for (const auto& [at, cell] : before) {
        const auto [row, col] = at;
        if (row < grid_.rows() && col < grid_.cols() && grid_.cell(row, col) != cell)
            grid_.Notify(Change::Cell, row, col);
    }
}

void FlexGrid::setTextMatrix(int row, int col, std::string text) {
    changeCell(row, col, [&](GridCell& target) {
        if (target.text == text) return false;
        target.text = std::move(text);
        return true;
    });
}

Rgb FlexGrid::cellBackColor(int row, int col) const {
    const GridCell& c = cell(row, col);
    if (c.backColorSet) return c.backColor;
    return row < fixedRows_ || col < fixedCols_ ? kFixedBackColor : kBackColor;
}

void FlexGrid::setCellForeColor(int row, int col, Rgb color) {
    changeCell(row, col, [&](GridCell& target) {
        if (target.foreColor == color) return false;
        target.foreColor = color;
        return true;
    });
}

void FlexGrid::setCellBackColor(int row, int col, Rgb color) {
    changeCell(row, col, [&](GridCell& target) {
        if (target.backColorSet && target.backColor == color) return false;
        target.backColor = color;
        target.backColorSet = true;
        return true;
    });
}

void FlexGrid::setCellAlignment(int row, int col, CellAlignment alignment) {
    changeCell(row, col, [&](GridCell& target) {
        if (target.alignment == alignment) return false;
        target.alignment = alignment;
        return true;
    });
}

void FlexGrid::setCellNote(int row, int col, std::string note) {
    changeCell(row, col, [&](GridCell& target) {
        if (target.note == note) return false;
        target.note = std::move(note);
        return true;
    });
}

// --- user gestures

void FlexGrid::userClick(int row, int col) {
    checkRow(row);
    checkCol(col);
    if (!acceptsInput()) return;
    mouseRow_ = row;
    mouseCol_ = col;
    if (row >= fixedRows_ && col >= fixedCols_) {
        changeCurrent(row, col);
    } else if (allowBigSelection_) {
        bigSelect(row, col);
    }
    Raise(onClick);
}

void FlexGrid::bigSelect(int row, int col) {
    if (fixedRows_ >= rows_ || fixedCols_ >= cols_) return;  // nothing scrollable to select
    const bool wholeColumn = row < fixedRows_;
    const bool wholeRow = col < fixedCols_;
    const int firstRow = wholeColumn ? fixedRows_ : row;
    const int firstCol = wholeRow ? fixedCols_ : col;
    const unsigned before = currentChanges_;
    changeCurrent(firstRow, firstCol);
    if (before != currentChanges_ && (row_ != firstRow || col_ != firstCol)) return;
    const int lastRow = wholeColumn ? rows_ - 1 : row_;
    const int lastCol = wholeRow ? cols_ - 1 : col_;
    if (lastRow == rowSel_ && lastCol == colSel_) return;
    rowSel_ = lastRow;
    colSel_ = lastCol;
    Notify(Change::Current);
}

void FlexGrid::userExtendSelection(int row, int col) {
    checkRow(row);
    checkCol(col);
    if (!acceptsInput() || row < fixedRows_ || col < fixedCols_) return;
    if (row == rowSel_ && col == colSel_) return;
    rowSel_ = row;
    colSel_ = col;
    Notify(Change::Current);
    Raise(onSelChange);
}

void FlexGrid::userMouseMove(int row, int col, int button, int shift) {
    if (row != -1) checkRow(row);
    if (col != -1) checkCol(col);
    if (!acceptsInput()) return;
    mouseRow_ = row;
    mouseCol_ = col;
    const std::int32_t x = col == -1 ? 0 : colPos(col);
    const std::int32_t y = row == -1 ? 0 : rowPos(row);
    Raise(onMouseMove, button, shift, x, y);
}

void FlexGrid::userScroll(int rowDelta, int colDelta) {
    if (!acceptsInput()) return;
    // Widen before adding: a wheel delta may be anything.
    const auto target = [](int from, int delta) {
        const std::int64_t to = static_cast<std::int64_t>(from) + delta;
        return static_cast<int>(std::clamp<std::int64_t>(to, 0, std::numeric_limits<int>::max()));
    };
    const bool movedRow = moveTopRow(target(topRow_, rowDelta));
    const bool movedCol = moveLeftCol(target(leftCol_, colDelta));
    if (movedRow || movedCol) Raise(onScroll);
}

void FlexGrid::userResizeCol(int col, std::int32_t width) {
    checkCol(col);
    if (!acceptsInput() || colWidths_.stored(col) == 0) return;
    width = std::clamp(width, kMinUserColWidth, kMaxUserColWidth);
    if (colWidths_.stored(col) == width) return;
    setColWidth(col, width);
    Raise(onUserColResize, col);
}

}  // namespace tabulon
