// The stock anchor: what a host would build from Qt's own widgets to show the same
// thing, a QTreeWidget of the same tree beside a QTableView over a
// QStandardItemModel holding the same grid (texts, colours, alignments, sizes, the
// headers as the table's headers) under a QComboBox of the same filter entries.
// A click on a tree node fills the model with that node's grid, a filter entry hides
// the columns whose tag differs, and the table edits its cells with Qt's default
// editor, opened when the current cell changes; a QUndoStack holds each value an
// editor commits, undone with Ctrl+Z and redone with Ctrl+Y. It has no View/Print or
// OK, no paste, find or list of values that need correcting.
#pragma once

#include <QSize>
#include <QStandardItemModel>
#include <QTableView>
#include <QTreeWidget>
#include <QUndoStack>
#include <map>
#include <memory>

#include "grid_contents.h"
#include "subject.h"

namespace tabulon::bench {

class StockSubject : public Subject {
public:
    // grids: the contents shown for each tree node a gesture may click; the first
    // shown is initialNode's.
    StockSubject(QSize size, const TreeContents& tree, std::map<int, GridContents> grids,
                 const QStringList& filterEntries, int initialNode);
    ~StockSubject() override;

    QWidget& window() override { return *window_; }
    QWidget& cellArea() override;
    QRect cellRect(int row, int col) override;
    QString cellText(int row, int col) override;
    int rows() override { return model_->rowCount() + 1; }
    int cols() override { return model_->columnCount() + 1; }
    int currentRow() override;
    int currentCol() override;
    int topRow() override;
    int leftCol() override;
    bool editing() override;
    bool enterMovesDown() override { return false; }
    QWidget& borderArea() override;
    QPoint columnBorder(int col) override;
    int columnWidth(int col) override;
    bool canScroll(Qt::Orientation orientation, int direction) override;
    QScrollBar& scrollBar(Qt::Orientation orientation) override;
    void scrollHome() override;
    QTreeView& tree() override { return *tree_; }
    QModelIndex nodeIndex(int index) override;
    int selectedNode() override;
    QComboBox& filter() override { return *filter_; }
    QPushButton* printButton() override { return nullptr; }
    QPushButton* okButton() override { return nullptr; }
    int printClicks() override { return 0; }
    int okClicks() override { return 0; }
    int messages() override { return 0; }
    QString lastMessage() override { return {}; }

private:
    void show(const GridContents& grid);
    void applyFilter(const QString& entry);

    std::unique_ptr<QWidget> window_;
    QTreeWidget* tree_ = nullptr;
    QComboBox* filter_ = nullptr;
    QTableView* table_ = nullptr;
    QStandardItemModel* model_ = nullptr;
    QUndoStack* undo_ = nullptr;
    std::vector<QTreeWidgetItem*> items_;
    std::map<int, GridContents> grids_;
    const GridContents* shown_ = nullptr;
};

}  // namespace tabulon::bench
