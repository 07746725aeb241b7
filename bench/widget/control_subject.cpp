#include "control_subject.h"

#include <QApplication>
#include <QTest>

#include "control/control_access.h"
#include "gesture_clock.h"
#include "qt/bindings/grid_view.h"
#include "qt/bindings/tree_binding.h"
#include "qt/find_bar.h"
#include "qt/qt_text.h"
#include "support/text.h"

namespace tabulon::bench {

ControlSubject::ControlSubject(QSize size) {
    widget_ = std::make_unique<SpreadsheetWidget>(
        nullptr, nullptr, [this](MessageIcon /*icon*/, const QString& text) {
            ++messages_;
            lastMessage_ = text;
        });
    QObject::connect(widget_.get(), &SpreadsheetWidget::PrintClick,
                     [this](const QString& /*report*/) { ++printClicks_; });
    QObject::connect(widget_.get(), &SpreadsheetWidget::OKClick, [this] { ++okClicks_; });
    // The control's own scroll bars, as the demo host shows them.
    gGeneralProperty_type general = widget_->GeneralProperty();
    general.intScrollBars = 1;
    widget_->setGeneralProperty(general);
    widget_->resize(size);
    widget_->show();
    widget_->activateWindow();
    (void)QTest::qWaitForWindowActive(widget_.get());
    Settle();
}

ControlSubject::~ControlSubject() = default;

Form& ControlSubject::form() {
    return FormOf(widget_->control());
}

GridView& ControlSubject::gridView() {
    return *static_cast<GridView*>(widget_->widgetFor(form().msgGridView));
}

QWidget& ControlSubject::cellArea() {
    return gridView();
}

QRect ControlSubject::cellRect(int row, int col) {
    return gridView().cellRect(row, col);
}

QString ControlSubject::cellText(int row, int col) {
    return ToQString(form().msgGridView.textMatrix(row, col));
}

int ControlSubject::rows() {
    return form().msgGridView.rows();
}

int ControlSubject::cols() {
    return form().msgGridView.cols();
}

int ControlSubject::currentRow() {
    return form().msgGridView.row();
}

int ControlSubject::currentCol() {
    return form().msgGridView.col();
}

int ControlSubject::topRow() {
    return form().msgGridView.topRow();
}

int ControlSubject::leftCol() {
    return form().msgGridView.leftCol();
}

bool ControlSubject::editing() {
    QWidget* focus = QApplication::focusWidget();
    return form().anyEditorVisible() && focus != nullptr && widget_->isAncestorOf(focus) &&
           focus != &gridView();
}

QPoint ControlSubject::columnBorder(int col) {
    const QRect header = gridView().cellRect(0, col);
    return {header.left() + header.width() - 1, header.center().y()};
}

int ControlSubject::columnWidth(int col) {
    return widget_->scale().toPixelsX(form().msgGridView.colWidth(col));
}

bool ControlSubject::canScroll(Qt::Orientation orientation, int direction) {
    const FlexGrid& grid = form().msgGridView;
    if (orientation == Qt::Vertical) {
        return direction > 0 ? grid.topRow() < grid.maxTopRow() : grid.topRow() > grid.fixedRows();
    }
    return direction > 0 ? grid.leftCol() < grid.maxLeftCol() : grid.leftCol() > grid.fixedCols();
}

QScrollBar& ControlSubject::scrollBar(Qt::Orientation orientation) {
    Component& bar = orientation == Qt::Vertical ? static_cast<Component&>(form().vscGrid)
                                                 : static_cast<Component&>(form().hscGrid);
    return *widget_->widgetFor(bar)->findChild<QScrollBar*>();
}

void ControlSubject::scrollHome() {
    FlexGrid& grid = form().msgGridView;
    grid.userScroll(-grid.rows(), -grid.cols());
    Settle();
}

QTreeView& ControlSubject::tree() {
    return *static_cast<QTreeView*>(widget_->widgetFor(form().treTreeView));
}

QModelIndex ControlSubject::nodeIndex(int index) {
    return static_cast<TreeBinding*>(widget_->bindingFor(form().treTreeView))->indexFor(index);
}

int ControlSubject::selectedNode() {
    return form().treTreeView.selectedIndex();
}

QComboBox& ControlSubject::filter() {
    return *static_cast<QComboBox*>(widget_->widgetFor(form().cboFilter));
}

QPushButton* ControlSubject::printButton() {
    return static_cast<QPushButton*>(widget_->widgetFor(form().cmdPrint));
}

QPushButton* ControlSubject::okButton() {
    return static_cast<QPushButton*>(widget_->widgetFor(form().cmdOK));
}

bool ControlSubject::needsCorrecting(int row, int col) {
    return !widget_->control().CellProblem(row, col).empty();
}

QWidget& ControlSubject::findBar() {
    return *widget_->findBar();
}

QString ControlSubject::findCount() {
    return static_cast<FindBar*>(widget_->findBar())->countLabel()->text();
}

void ControlSubject::selectNode(int index) {
    form().treTreeView.userClickNode(index);
    Settle();
}

GridContents ControlSubject::gridContents() {
    const FlexGrid& grid = form().msgGridView;
    const TwipsScale& scale = widget_->scale();
    const DocumentModel& doc = CoreOf(widget_->control()).doc;
    GridContents contents;
    contents.rows = grid.rows();
    contents.cols = grid.cols();
    for (int r = 0; r < grid.rows(); ++r) {
        contents.rowHeights.push_back(scale.toPixelsY(grid.rowHeight(r)));
        for (int c = 0; c < grid.cols(); ++c) {
            const GridCell& cell = grid.cell(r, c);
            contents.cells.push_back({ToQString(cell.text),
                                      QColor::fromRgb(static_cast<QRgb>(cell.foreColor)),
                                      QColor::fromRgb(static_cast<QRgb>(grid.cellBackColor(r, c))),
                                      GridView::TextAlignment(cell.alignment, cell.text)});
        }
    }
    for (int c = 0; c < grid.cols(); ++c) {
        contents.colWidths.push_back(scale.toPixelsX(grid.colWidth(c)));
        const auto column = static_cast<std::size_t>(c);
        contents.filterTags.push_back(
            column < doc.arrColumnNodes.size() && c > 0
                ? ToQString(Trim(doc.arrColumnNodes[column].attribute("FilterValue").value()))
                : QString());
    }
    return contents;
}

TreeContents ControlSubject::treeContents() {
    const TreeView& tree = form().treTreeView;
    TreeContents contents;
    for (int i = 1; i <= tree.count(); ++i) {
        const TreeNode& node = tree.node(i);
        contents.nodes.push_back({ToQString(node.text), node.parent, node.expanded});
    }
    return contents;
}

}  // namespace tabulon::bench
