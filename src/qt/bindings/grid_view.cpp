#include "qt/bindings/grid_view.h"

#include <QApplication>
#include <QMouseEvent>
#include <QWheelEvent>
#include <algorithm>

#include "qt/bindings/grid_accessibility.h"
#include "qt/key_translation.h"
#include "support/numeric.h"
#include "support/text.h"

namespace tabulon {

namespace {

constexpr int kWheelNotch = 120;

// The platform's mouse button bits: 1 left, 2 right, 4 middle.
int ButtonBits(Qt::MouseButtons buttons) {
    int bits = 0;
    if (buttons.testFlag(Qt::LeftButton)) bits |= 1;
    if (buttons.testFlag(Qt::RightButton)) bits |= 2;
    if (buttons.testFlag(Qt::MiddleButton)) bits |= 4;
    return bits;
}

int ShiftBits(Qt::KeyboardModifiers modifiers) {
    int bits = 0;
    if (modifiers.testFlag(Qt::ShiftModifier)) bits |= kShiftBit;
    if (modifiers.testFlag(Qt::ControlModifier)) bits |= kCtrlBit;
    if (modifiers.testFlag(Qt::AltModifier)) bits |= kAltBit;
    return bits;
}

bool WhollyNumeric(const std::string& text) {
    const std::string trimmed = Trim(text);
    return !trimmed.empty() && NumericPrefixLength(trimmed) == trimmed.size();
}

}  // namespace

GridView::GridView(BindingHost& host, FlexGrid& grid, QWidget* parent)
    : QWidget(parent), host_(host), grid_(grid), borderDrag_(host, grid, *this) {
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Before anything asks for the view's accessible interface (naming it does).
    InstallGridAccessibility();
    setAccessibleName(tr("Values"));
}

// Nothing the view paints shows whether it has the focus, so QWidget's handlers, which
// repaint the whole view, are left out: the focus passes through the grid each time an
// editor closes.
void GridView::focusInEvent(QFocusEvent* /*event*/) {
    NotifyGridFocus(*this);
}

void GridView::focusOutEvent(QFocusEvent* /*event*/) {}

Qt::Alignment GridView::TextAlignment(CellAlignment alignment, const std::string& text) {
    switch (alignment) {
        case CellAlignment::LeftTop:
            return Qt::AlignLeft | Qt::AlignTop;
        case CellAlignment::LeftCenter:
            return Qt::AlignLeft | Qt::AlignVCenter;
        case CellAlignment::LeftBottom:
            return Qt::AlignLeft | Qt::AlignBottom;
        case CellAlignment::CenterTop:
            return Qt::AlignHCenter | Qt::AlignTop;
        case CellAlignment::CenterCenter:
            return Qt::AlignHCenter | Qt::AlignVCenter;
        case CellAlignment::CenterBottom:
            return Qt::AlignHCenter | Qt::AlignBottom;
        case CellAlignment::RightTop:
            return Qt::AlignRight | Qt::AlignTop;
        case CellAlignment::RightCenter:
            return Qt::AlignRight | Qt::AlignVCenter;
        case CellAlignment::RightBottom:
            return Qt::AlignRight | Qt::AlignBottom;
        case CellAlignment::General:
            break;
    }
    return (WhollyNumeric(text) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
}

bool GridView::rowInView(int row) const {
    if (row < 0 || row >= grid_.rows()) return false;
    if (row >= grid_.fixedRows() && row < grid_.topRow()) return false;
    const std::int32_t top = grid_.rowPos(row);
    return grid_.rowHeight(row) > 0 && top < grid_.height() && top + grid_.rowHeight(row) > 0;
}

bool GridView::colInView(int col) const {
    if (col < 0 || col >= grid_.cols()) return false;
    if (col >= grid_.fixedCols() && col < grid_.leftCol()) return false;
    const std::int32_t left = grid_.colPos(col);
    return grid_.colWidth(col) > 0 && left < grid_.width() && left + grid_.colWidth(col) > 0;
}

std::vector<int> GridView::rowsInView() const {
    std::vector<int> rows;
    for (int r = 0; r < grid_.fixedRows(); ++r) {
        if (rowInView(r)) rows.push_back(r);
    }
    for (int r = std::max(grid_.topRow(), grid_.fixedRows());
         r < grid_.rows() && grid_.rowPos(r) < grid_.height(); ++r) {
        if (rowInView(r)) rows.push_back(r);
    }
    return rows;
}

std::vector<int> GridView::colsInView() const {
    std::vector<int> cols;
    for (int c = 0; c < grid_.fixedCols(); ++c) {
        if (colInView(c)) cols.push_back(c);
    }
    for (int c = std::max(grid_.leftCol(), grid_.fixedCols());
         c < grid_.cols() && grid_.colPos(c) < grid_.width(); ++c) {
        if (colInView(c)) cols.push_back(c);
    }
    return cols;
}

QRect GridView::unclippedCellRect(int row, int col) const {
    const Span rows = spanOf(axisPixels(false), row);
    const Span cols = spanOf(axisPixels(true), col);
    return {QPoint(cols.first, rows.first), QPoint(cols.end - 1, rows.end - 1)};
}

QRect GridView::cellRect(int row, int col) const {
    if (!rowInView(row) || !colInView(col)) return {};
    return unclippedCellRect(row, col);
}

int GridView::rowAt(int y) const {
    return indexAt(false, y);
}

int GridView::colAt(int x) const {
    return indexAt(true, x);
}

int GridView::indexAt(bool cols, int pixel) const {
    for (const Span& span : spansInView(cols)) {
        if (pixel >= span.first && pixel < span.end) return span.index;
    }
    return -1;
}

bool GridView::selected(int row, int col) const {
    const int top = std::min(grid_.row(), grid_.rowSel());
    const int bottom = std::max(grid_.row(), grid_.rowSel());
    const int left = std::min(grid_.col(), grid_.colSel());
    const int right = std::max(grid_.col(), grid_.colSel());
    if (row == grid_.row() && col == grid_.col()) return false;
    return row >= top && row <= bottom && col >= left && col <= right;
}

std::vector<GridView::Span> GridView::spansInView(bool columns) const {
    const AxisPixels axis = axisPixels(columns);
    std::vector<Span> spans;
    for (const int index : columns ? colsInView() : rowsInView()) {
        spans.push_back(spanOf(axis, index));
    }
    return spans;
}

GridView::Marked GridView::currentNow() const {
    return {grid_.row(), grid_.col(), grid_.rowSel(), grid_.colSel()};
}

void GridView::updateAll() {
    wholeUpdatePending_ = true;
    marked_ = currentNow();
    place_ = placeNow();
    update();
}

void GridView::updateCurrent() {
    const Marked before = marked_;
    const Marked now = currentNow();
    const auto single = [](const Marked& m) { return m.row == m.rowSel && m.col == m.colSel; };
    if (before.row < 0 || !single(before) || !single(now)) {
        updateAll();
        return;
    }
    marked_ = now;
    updateCell(before.row, before.col);
    updateCell(now.row, now.col);
}

void GridView::updateCell(int row, int col) {
    if (wholeUpdatePending_) return;
    const QRect rect = cellRect(row, col);
    if (!rect.isEmpty()) update(rect);
}

void GridView::pointerAt(const QPoint& position, Qt::MouseButtons buttons,
                         Qt::KeyboardModifiers modifiers, Pointer pointer) {
    const int row = rowAt(position.y());
    const int col = colAt(position.x());
    const int button = ButtonBits(buttons);
    const int shift = ShiftBits(modifiers);
    host_.runGesture([this, row, col, button, shift, pointer] {
        grid_.userMouseMove(row, col, button, shift);
        if (row < 0 || col < 0) return;
        if (pointer == Pointer::Click) grid_.userClick(row, col);
        if (pointer == Pointer::Extend) grid_.userExtendSelection(row, col);
    });
}

void GridView::mousePressEvent(QMouseEvent* event) {
    const bool onBorder = borderDrag_.press(event);
    const bool left = event->button() == Qt::LeftButton && !onBorder;
    const QPoint position = event->position().toPoint();
    const bool onCell =
        rowAt(position.y()) >= grid_.fixedRows() && colAt(position.x()) >= grid_.fixedCols();
    // Shift+click on a cell extends the selection; a press on a cell may start a drag.
    const bool extend = left && onCell && event->modifiers() == Qt::ShiftModifier;
    dragging_ = left && onCell;
    pointerAt(position, event->buttons(), event->modifiers(),
              extend ? Pointer::Extend : (left ? Pointer::Click : Pointer::Move));
    event->accept();
}

void GridView::mouseMoveEvent(QMouseEvent* event) {
    borderDrag_.move(event);
    const bool extend = dragging_ && event->buttons().testFlag(Qt::LeftButton);
    pointerAt(event->position().toPoint(), event->buttons(), event->modifiers(),
              extend ? Pointer::Extend : Pointer::Move);
    event->accept();
}

void GridView::mouseReleaseEvent(QMouseEvent* event) {
    borderDrag_.release(event);
    dragging_ = false;
    event->accept();
}

// A double click on a border fits the column; anywhere else it is a second press, as
// the platform's grid takes it.
void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (borderDrag_.doubleClick(event)) {
        event->accept();
        return;
    }
    mousePressEvent(event);
}

void GridView::wheelEvent(QWheelEvent* event) {
    wheelRemainder_ += event->angleDelta();
    const int rowNotches = wheelRemainder_.y() / kWheelNotch;
    const int colNotches = wheelRemainder_.x() / kWheelNotch;
    wheelRemainder_ -= QPoint(colNotches * kWheelNotch, rowNotches * kWheelNotch);
    const int rows = -rowNotches * QApplication::wheelScrollLines();
    const int cols = -colNotches;
    if (rows != 0 || cols != 0) {
        host_.runGesture([this, rows, cols] { host_.control().UserWheel(rows, cols); });
    }
    event->accept();
}

}  // namespace tabulon
