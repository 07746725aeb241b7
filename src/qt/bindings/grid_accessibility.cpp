#include "qt/bindings/grid_accessibility.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QWindow>
#include <unordered_map>

#include "qt/bindings/grid_view.h"
#include "qt/bindings/problem_mark.h"
#include "qt/qt_text.h"

namespace tabulon {

namespace {

class GridAccessible;

GridAccessible* TableOf(GridView* view);

class CellAccessible : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellAccessible(GridView* view, int row, int col) : view_(view), row_(row), col_(col) {}

    bool isValid() const override {
        return view_ != nullptr && row_ < grid().rows() && col_ < grid().cols();
    }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override {
        return view_ != nullptr ? view_->window()->windowHandle() : nullptr;
    }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QAccessibleInterface* parent() const override;
    QAccessibleInterface* child(int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text t) const override {
        if (!isValid()) return {};
        switch (t) {
            case QAccessible::Name:
            case QAccessible::Value:
                return ToQString(grid().textMatrix(row_, col_));
            case QAccessible::Description:
                return header() ? QString() : CellDescription(view_->control(), row_, col_);
            default:
                return {};
        }
    }
    void setText(QAccessible::Text, const QString&) override {}

    QRect rect() const override {
        if (!isValid()) return {};
        const QRect cell = view_->cellRect(row_, col_);
        if (cell.isEmpty()) return {};
        return QRect(view_->mapToGlobal(cell.topLeft()), cell.size());
    }

    QAccessible::Role role() const override {
        if (row_ < grid().fixedRows()) return QAccessible::ColumnHeader;
        if (col_ < grid().fixedCols()) return QAccessible::RowHeader;
        return QAccessible::Cell;
    }

    QAccessible::State state() const override {
        QAccessible::State state;
        if (!isValid()) {
            state.invalid = true;
            return state;
        }
        state.disabled = !view_->isEnabled();
        state.offscreen = view_->cellRect(row_, col_).isEmpty();
        state.invisible = grid().colWidth(col_) == 0 || grid().rowHeight(row_) == 0;
        if (!header()) {
            state.focusable = true;
            state.selectable = true;
            state.selected = isSelected();
            state.focused = view_->hasFocus() && row_ == grid().row() && col_ == grid().col();
        }
        return state;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TableCellInterface
                   ? static_cast<QAccessibleTableCellInterface*>(this)
                   : nullptr;
    }

    // QAccessibleTableCellInterface
    bool isSelected() const override {
        if (!isValid() || header()) return false;
        const FlexGrid& g = grid();
        return row_ >= std::min(g.row(), g.rowSel()) && row_ <= std::max(g.row(), g.rowSel()) &&
               col_ >= std::min(g.col(), g.colSel()) && col_ <= std::max(g.col(), g.colSel());
    }
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return col_ - grid().fixedCols(); }
    int rowIndex() const override { return row_ - grid().fixedRows(); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    const FlexGrid& grid() const { return view_->grid(); }
    bool header() const { return row_ < grid().fixedRows() || col_ < grid().fixedCols(); }

    QPointer<GridView> view_;
    int row_;
    int col_;
};

class GridAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridAccessible(GridView* view) : QAccessibleWidget(view, QAccessible::Table) {}
    ~GridAccessible() override { reset(); }

    GridView* view() const { return static_cast<GridView*>(widget()); }
    const FlexGrid& grid() const { return view()->grid(); }

    // The interface of grid cell (row, col), made once; null outside the grid.
    QAccessibleInterface* cell(int row, int col) const {
        if (row < 0 || col < 0 || row >= grid().rows() || col >= grid().cols()) return nullptr;
        const quint64 key = (static_cast<quint64>(row) << 32) | static_cast<quint32>(col);
        const auto found = cells_.find(key);
        if (found != cells_.end()) return QAccessible::accessibleInterface(found->second);
        auto* made = new CellAccessible(view(), row, col);
        cells_.emplace(key, QAccessible::registerAccessibleInterface(made));
        return made;
    }

    // Drops every cell interface (the grid changed shape).
    void reset() {
        for (const auto& [key, id] : cells_)
            QAccessible::deleteAccessibleInterface(id);
        cells_.clear();
    }

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Name && view()->accessibleName().isEmpty())
            return QStringLiteral("Values");
        return QAccessibleWidget::text(t);
    }

    int childCount() const override { return grid().rows() * grid().cols(); }
    QAccessibleInterface* child(int index) const override {
        const int cols = grid().cols();
        if (index < 0 || cols == 0 || index >= childCount()) return nullptr;
        return cell(index / cols, index % cols);
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        const QAccessibleTableCellInterface* c =
            const_cast<QAccessibleInterface*>(child)->tableCellInterface();
        if (c == nullptr) return -1;
        const int row = c->rowIndex() + grid().fixedRows();
        const int col = c->columnIndex() + grid().fixedCols();
        return cell(row, col) == child ? row * grid().cols() + col : -1;
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        const QPoint local = view()->mapFromGlobal(QPoint(x, y));
        return cell(view()->rowAt(local.y()), view()->colAt(local.x()));
    }
    QAccessibleInterface* focusChild() const override {
        if (!view()->hasFocus()) return nullptr;
        return cell(grid().row(), grid().col());
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface*>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    // QAccessibleTableInterface
    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override {
        if (row < 0 || column < 0) return nullptr;
        return cell(row + grid().fixedRows(), column + grid().fixedCols());
    }
    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override {
        QList<QAccessibleInterface*> selected;
        const FlexGrid& g = grid();
        if (g.row() < g.fixedRows() || g.col() < g.fixedCols()) return selected;
        for (int r = std::min(g.row(), g.rowSel()); r <= std::max(g.row(), g.rowSel()); ++r) {
            for (int c = std::min(g.col(), g.colSel()); c <= std::max(g.col(), g.colSel()); ++c)
                selected << cell(r, c);
        }
        return selected;
    }
    QString columnDescription(int column) const override {
        const int col = column + grid().fixedCols();
        if (grid().fixedRows() == 0 || col >= grid().cols()) return {};
        return ToQString(grid().textMatrix(0, col));
    }
    QString rowDescription(int row) const override {
        const int r = row + grid().fixedRows();
        if (grid().fixedCols() == 0 || r >= grid().rows()) return {};
        return ToQString(grid().textMatrix(r, 0));
    }
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    int columnCount() const override { return std::max(grid().cols() - grid().fixedCols(), 0); }
    int rowCount() const override { return std::max(grid().rows() - grid().fixedRows(), 0); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int) const override { return false; }
    // Selection follows the grid's own rules; assistive technology does not change it.
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override { reset(); }

private:
    mutable std::unordered_map<quint64, QAccessible::Id> cells_;
};

GridAccessible* TableOf(GridView* view) {
    if (view == nullptr) return nullptr;
    return static_cast<GridAccessible*>(QAccessible::queryAccessibleInterface(view));
}

QAccessibleInterface* CellAccessible::parent() const {
    return view_ != nullptr ? QAccessible::queryAccessibleInterface(view_) : nullptr;
}

QList<QAccessibleInterface*> CellAccessible::columnHeaderCells() const {
    if (!isValid() || grid().fixedRows() == 0 || header()) return {};
    return {TableOf(view_)->cell(0, col_)};
}

QList<QAccessibleInterface*> CellAccessible::rowHeaderCells() const {
    if (!isValid() || grid().fixedCols() == 0 || header()) return {};
    return {TableOf(view_)->cell(row_, 0)};
}

QAccessibleInterface* Factory(const QString& className, QObject* object) {
    if (className == QLatin1String(GridView::staticMetaObject.className()) && object != nullptr &&
        object->isWidgetType()) {
        return new GridAccessible(static_cast<GridView*>(object));
    }
    return nullptr;
}

void Send(QAccessibleInterface* cell, QAccessible::Event type) {
    if (cell == nullptr) return;
    QAccessibleEvent event(cell, type);
    QAccessible::updateAccessibility(&event);
}

}  // namespace

void InstallGridAccessibility() {
    static const bool installed = [] {
        QAccessible::installFactory(Factory);
        return true;
    }();
    (void)installed;
}

void NotifyGridAccessibility(GridView& view, const ChangeInfo& change) {
    if (!QAccessible::isActive()) return;
    GridAccessible* table = TableOf(&view);
    if (table == nullptr) return;
    switch (change.kind) {
        case Change::Cell:
            Send(table->cell(change.row, change.col), QAccessible::NameChanged);
            Send(table->cell(change.row, change.col), QAccessible::DescriptionChanged);
            break;
        case Change::Current:
            if (view.hasFocus()) NotifyGridFocus(view);
            break;
        case Change::Layout:
        case Change::Everything: {
            table->reset();
            QAccessibleTableModelChangeEvent reset(&view,
                                                   QAccessibleTableModelChangeEvent::ModelReset);
            QAccessible::updateAccessibility(&reset);
            break;
        }
        default:
            break;
    }
}

void NotifyGridFocus(GridView& view) {
    if (!QAccessible::isActive()) return;
    GridAccessible* table = TableOf(&view);
    if (table == nullptr) return;
    Send(table->cell(view.grid().row(), view.grid().col()), QAccessible::Focus);
}

}  // namespace tabulon
