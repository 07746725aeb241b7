#include "stock_subject.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QSplitter>
#include <QStyledItemDelegate>
#include <QTest>
#include <QVBoxLayout>

#include "gesture_clock.h"

namespace tabulon::bench {

namespace {

// One value an editor committed, as a QUndoCommand: the first redo is the commit itself.
class ValueCommand : public QUndoCommand {
public:
    ValueCommand(QStandardItemModel& model, const QModelIndex& index, QVariant before,
                 QVariant after)
        : model_(model),
          row_(index.row()),
          col_(index.column()),
          before_(std::move(before)),
          after_(std::move(after)) {}
    void undo() override { model_.setData(model_.index(row_, col_), before_); }
    void redo() override {
        if (!done_) {
            done_ = true;
            return;
        }
        model_.setData(model_.index(row_, col_), after_);
    }

private:
    QStandardItemModel& model_;
    int row_;
    int col_;
    QVariant before_;
    QVariant after_;
    bool done_ = false;
};

// Qt's default editors; each commit that changes a value goes on the undo stack.
class UndoableDelegate : public QStyledItemDelegate {
public:
    UndoableDelegate(QStandardItemModel& model, QUndoStack& stack, QObject* parent)
        : QStyledItemDelegate(parent), model_(model), stack_(stack) {}
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override {
        const QVariant before = index.data(Qt::EditRole);
        QStyledItemDelegate::setModelData(editor, model, index);
        const QVariant after = index.data(Qt::EditRole);
        if (after != before) stack_.push(new ValueCommand(model_, index, before, after));
    }

private:
    QStandardItemModel& model_;
    QUndoStack& stack_;
};

}  // namespace

StockSubject::StockSubject(QSize size, const TreeContents& tree, std::map<int, GridContents> grids,
                           const QStringList& filterEntries, int initialNode)
    : window_(std::make_unique<QWidget>()), grids_(std::move(grids)) {
    auto* splitter = new QSplitter(window_.get());
    tree_ = new QTreeWidget(splitter);
    tree_->setHeaderHidden(true);
    tree_->setUniformRowHeights(true);
    auto* right = new QWidget(splitter);
    filter_ = new QComboBox(right);
    filter_->addItems(filterEntries);
    table_ = new QTableView(right);
    model_ = new QStandardItemModel(table_);
    table_->setModel(model_);
    table_->setEditTriggers(QAbstractItemView::AllEditTriggers);
    undo_ = new QUndoStack(window_.get());
    table_->setItemDelegate(new UndoableDelegate(*model_, *undo_, table_));
    QAction* undo = undo_->createUndoAction(window_.get());
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    QAction* redo = undo_->createRedoAction(window_.get());
    redo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Y));
    window_->addActions({undo, redo});
    auto* column = new QVBoxLayout(right);
    column->addWidget(filter_);
    column->addWidget(table_);
    auto* layout = new QHBoxLayout(window_.get());
    layout->addWidget(splitter);
    splitter->setSizes({size.width() / 4, size.width() - size.width() / 4});

    for (const TreeContents::Node& node : tree.nodes) {
        auto* item = node.parent == 0
                         ? new QTreeWidgetItem(tree_)
                         : new QTreeWidgetItem(items_[static_cast<std::size_t>(node.parent - 1)]);
        item->setText(0, node.text);
        item->setData(0, Qt::UserRole, static_cast<int>(items_.size()) + 1);
        items_.push_back(item);
    }
    for (std::size_t i = 0; i < tree.nodes.size(); ++i)
        items_[i]->setExpanded(tree.nodes[i].expanded);

    QObject::connect(tree_, &QTreeWidget::currentItemChanged, [this](QTreeWidgetItem* item) {
        if (item == nullptr) return;
        const auto found = grids_.find(item->data(0, Qt::UserRole).toInt());
        if (found != grids_.end()) show(found->second);
    });
    QObject::connect(filter_, &QComboBox::activated,
                     [this](int index) { applyFilter(filter_->itemText(index)); });

    if (initialNode >= 1 && initialNode <= static_cast<int>(items_.size()))
        tree_->setCurrentItem(items_[static_cast<std::size_t>(initialNode - 1)]);
    window_->resize(size);
    window_->show();
    window_->activateWindow();
    (void)QTest::qWaitForWindowActive(window_.get());
    Settle();
}

StockSubject::~StockSubject() = default;

// As a host fills a stock table for a node: new items with their texts and colours,
// the headers, then the sizes and the filter.
void StockSubject::show(const GridContents& grid) {
    shown_ = &grid;
    undo_->clear();
    model_->clear();
    model_->setRowCount(std::max(grid.rows - 1, 0));
    model_->setColumnCount(std::max(grid.cols - 1, 0));
    for (int c = 1; c < grid.cols; ++c)
        model_->setHorizontalHeaderItem(c - 1, new QStandardItem(grid.cell(0, c).text));
    for (int r = 1; r < grid.rows; ++r) {
        model_->setVerticalHeaderItem(r - 1, new QStandardItem(grid.cell(r, 0).text));
        for (int c = 1; c < grid.cols; ++c) {
            const GridContents::Cell& cell = grid.cell(r, c);
            auto* item = new QStandardItem(cell.text);
            item->setForeground(cell.fore);
            item->setBackground(cell.back);
            item->setTextAlignment(cell.alignment);
            model_->setItem(r - 1, c - 1, item);
        }
    }
    if (grid.cols > 0) table_->verticalHeader()->setFixedWidth(grid.colWidths[0]);
    for (int r = 1; r < grid.rows; ++r)
        table_->setRowHeight(r - 1, grid.rowHeights[static_cast<std::size_t>(r)]);
    applyFilter(filter_->currentText());
}

void StockSubject::applyFilter(const QString& entry) {
    if (shown_ == nullptr) return;
    for (int c = 1; c < shown_->cols; ++c) {
        const auto column = static_cast<std::size_t>(c);
        const bool hidden = entry != QLatin1String("All") && shown_->filterTags[column] != entry;
        const int width = shown_->colWidths[column];
        table_->setColumnHidden(c - 1, hidden);
        if (!hidden) table_->setColumnWidth(c - 1, width > 0 ? width : 72);
    }
}

QWidget& StockSubject::cellArea() {
    return *table_->viewport();
}

QRect StockSubject::cellRect(int row, int col) {
    const QRect rect = table_->visualRect(model_->index(row - 1, col - 1));
    return rect.intersects(table_->viewport()->rect()) ? rect : QRect();
}

QString StockSubject::cellText(int row, int col) {
    const QStandardItem* item = model_->item(row - 1, col - 1);
    return item == nullptr ? QString() : item->text();
}

int StockSubject::currentRow() {
    return table_->currentIndex().row() + 1;
}

int StockSubject::currentCol() {
    return table_->currentIndex().column() + 1;
}

// The table scrolls by whole rows and columns: its bars count them.
int StockSubject::topRow() {
    return table_->verticalScrollBar()->value() + 1;
}

int StockSubject::leftCol() {
    return table_->horizontalScrollBar()->value() + 1;
}

bool StockSubject::editing() {
    QWidget* focus = QApplication::focusWidget();
    return focus != nullptr && focus != table_ && table_->isAncestorOf(focus);
}

QWidget& StockSubject::borderArea() {
    return *table_->horizontalHeader()->viewport();
}

QPoint StockSubject::columnBorder(int col) {
    const QHeaderView& header = *table_->horizontalHeader();
    return {header.sectionViewportPosition(col - 1) + header.sectionSize(col - 1) - 1,
            header.height() / 2};
}

int StockSubject::columnWidth(int col) {
    return table_->columnWidth(col - 1);
}

bool StockSubject::canScroll(Qt::Orientation orientation, int direction) {
    const QScrollBar& bar = scrollBar(orientation);
    return direction > 0 ? bar.value() < bar.maximum() : bar.value() > bar.minimum();
}

QScrollBar& StockSubject::scrollBar(Qt::Orientation orientation) {
    return *(orientation == Qt::Vertical ? table_->verticalScrollBar()
                                         : table_->horizontalScrollBar());
}

void StockSubject::scrollHome() {
    table_->verticalScrollBar()->setValue(0);
    table_->horizontalScrollBar()->setValue(0);
    Settle();
}

QModelIndex StockSubject::nodeIndex(int index) {
    if (index < 1 || index > static_cast<int>(items_.size())) return {};
    return tree_->indexFromItem(items_[static_cast<std::size_t>(index - 1)]);
}

int StockSubject::selectedNode() {
    QTreeWidgetItem* item = tree_->currentItem();
    return item == nullptr ? 0 : item->data(0, Qt::UserRole).toInt();
}

}  // namespace tabulon::bench
