// The control as a host shows it: a SpreadsheetWidget as a top-level window with the
// control's own scroll bars, its message boxes and events counted.
#pragma once

#include <QSize>
#include <memory>

#include "grid_contents.h"
#include "qt/spreadsheet_widget.h"
#include "subject.h"

namespace tabulon {
class GridView;
struct Form;
}  // namespace tabulon

namespace tabulon::bench {

class ControlSubject : public Subject {
public:
    explicit ControlSubject(QSize size);
    ~ControlSubject() override;

    SpreadsheetWidget& widget() { return *widget_; }
    Form& form();

    // The current grid and the tree, for the stock anchor; selectNode changes the
    // node through the model (set-up, not a gesture).
    GridContents gridContents();
    TreeContents treeContents();
    void selectNode(int index);
    // The cell's value needs correcting (the reason its cell shows is not empty).
    bool needsCorrecting(int row, int col);
    // The find bar (Ctrl+F) and its label counting the hits.
    QWidget& findBar();
    QString findCount();

    QWidget& window() override { return *widget_; }
    QWidget& cellArea() override;
    QRect cellRect(int row, int col) override;
    QString cellText(int row, int col) override;
    int rows() override;
    int cols() override;
    int currentRow() override;
    int currentCol() override;
    int topRow() override;
    int leftCol() override;
    bool editing() override;
    bool enterMovesDown() override { return true; }
    QWidget& borderArea() override { return cellArea(); }
    QPoint columnBorder(int col) override;
    int columnWidth(int col) override;
    bool canScroll(Qt::Orientation orientation, int direction) override;
    QScrollBar& scrollBar(Qt::Orientation orientation) override;
    void scrollHome() override;
    QTreeView& tree() override;
    QModelIndex nodeIndex(int index) override;
    int selectedNode() override;
    QComboBox& filter() override;
    QPushButton* printButton() override;
    QPushButton* okButton() override;
    int printClicks() override { return printClicks_; }
    int okClicks() override { return okClicks_; }
    int messages() override { return messages_; }
    QString lastMessage() override { return lastMessage_; }

private:
    GridView& gridView();

    std::unique_ptr<SpreadsheetWidget> widget_;
    int printClicks_ = 0;
    int okClicks_ = 0;
    int messages_ = 0;
    QString lastMessage_;
};

}  // namespace tabulon::bench
