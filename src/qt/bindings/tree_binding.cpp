#include "qt/bindings/tree_binding.h"

#include <unordered_map>

#include <QHeaderView>
#include <QMouseEvent>

#include "qt/bindings/banded_scroll_bar.h"
#include "qt/bindings/picture_decoding.h"
#include "qt/bindings/tree_problem_badge.h"

namespace tabulon {

namespace {

bool ShowsRootIndicators(std::int32_t style) {
    return (style & 2) != 0;
}

// Keys Qt's tree handles itself after the control has seen them.
bool TreeKey(int key) {
    switch (key) {
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Plus:
        case Qt::Key_Minus:
        case Qt::Key_Asterisk:
            return true;
        default:
            return false;
    }
}

}  // namespace

TreeBinding::TreeBinding(BindingHost& bindingHost, TreeView& tree, ImageList& images,
                         QWidget* parent)
    : ComponentBinding(bindingHost, tree, new QTreeView(parent)),
      tree_(tree),
      images_(images),
      treeView_(static_cast<QTreeView*>(widget())),
      model_(new TreeNodeModel(tree, treeView_)) {
    treeView_->setModel(model_);
    treeView_->setHeaderHidden(true);
    treeView_->setSelectionMode(QAbstractItemView::SingleSelection);
    treeView_->setExpandsOnDoubleClick(false);
    treeView_->setUniformRowHeights(true);
    treeView_->setIconSize(QSize(kIconPixels, kIconPixels));
    treeView_->setFocusPolicy(Qt::ClickFocus);
    treeView_->setContextMenuPolicy(Qt::NoContextMenu);
    treeView_->viewport()->installEventFilter(this);
    treeView_->setItemDelegate(new TreeProblemBadge(treeView_));
    treeView_->setAccessibleName(tr("Categories"));
    // The vertical bar painted as the grid's is (opaque, in bands, its looks kept).
    auto* bar = new BandedScrollBar(Qt::Vertical, nullptr);
    bar->setAutoFillBackground(true);
    treeView_->setVerticalScrollBar(bar);
    // The one column follows the viewport's width (the header is hidden and stretches
    // it), and a viewport that changes size is painted whole anyway: Qt's own repaint
    // of a resized column, a moment later, would paint every shown row a second time
    // on each resize of the window or the splitter.
    QObject::disconnect(treeView_->header(), SIGNAL(sectionResized(int, int, int)), treeView_,
                        SLOT(columnResized(int, int, int)));

    observe(images_, [this](const ChangeInfo&) {
        reloadIcons();
        rebuild();
    });

    connect(treeView_->selectionModel(), &QItemSelectionModel::currentChanged, this,
            [this](const QModelIndex& current) {
                if (!mirroring() && current.isValid()) forward(IndexOf(current), Gesture::Click);
            });
    connect(treeView_, &QTreeView::expanded, this, [this](const QModelIndex& index) {
        if (!mirroring()) forward(IndexOf(index), Gesture::Expand);
    });
    connect(treeView_, &QTreeView::collapsed, this, [this](const QModelIndex& index) {
        if (!mirroring()) forward(IndexOf(index), Gesture::Collapse);
    });
}

TreeBinding::~TreeBinding() {
    // The model reads the tree, which goes before the view does.
    const Mirroring mirroring(*this);
    if (widget() != nullptr) model_->detach();
}

void TreeBinding::reloadIcons() {
    icons_.clear();
    // Entries made from one file share its bytes: each file is decoded once.
    std::unordered_map<const void*, QIcon> decoded;
    for (int i = 1; i <= images_.count(); ++i) {
        const Picture& picture = images_.picture(i);
        const auto [icon, added] = decoded.try_emplace(picture.bytes.get());
        if (added) icon->second = IconFromPicture(picture);
        icons_.push_back(icon->second);
    }
}

void TreeBinding::appendNode(int index) {
    const Mirroring mirroring(*this);
    model_->append(index);
    // A parent's expansion only holds once it has a child.
    const int parent = tree_.nodeParent(index);
    if (parent != 0) mirrorNode(parent);
}

void TreeBinding::mirrorNode(int index) {
    const QModelIndex at = indexFor(index);
    if (!at.isValid()) return;
    const Mirroring mirroring(*this);
    // Only what differs: each change makes the view look the node up among all the
    // shown ones, which on a tree of 100,000 nodes costs more than a frame.
    const bool expanded = tree_.nodeExpanded(index);
    if (treeView_->isExpanded(at) != expanded) treeView_->setExpanded(at, expanded);
}

void TreeBinding::mirrorSelection() {
    const Mirroring mirroring(*this);
    const QModelIndex at = indexFor(tree_.selectedIndex());
    treeView_->setCurrentIndex(at);
    if (!at.isValid()) treeView_->clearSelection();
}

void TreeBinding::rebuild() {
    {
        const Mirroring mirroring(*this);
        model_->reset(icons_);
        treeView_->setRootIsDecorated(ShowsRootIndicators(tree_.style()));
    }
    for (int i = 1; i <= tree_.count(); ++i)
        mirrorNode(i);
    mirrorSelection();
}

void TreeBinding::applyState(const ChangeInfo& change) {
    const int count = tree_.count();
    const int shown = model_->shownCount();
    if (change.kind == Change::Current) {
        mirrorSelection();
    } else if (change.kind == Change::Marks) {
        treeView_->viewport()->update();
    } else if (change.kind == Change::Content && change.row == count && shown == count - 1) {
        appendNode(change.row);
    } else if (change.kind == Change::Content && change.row >= 1 && shown == count) {
        mirrorNode(change.row);
    } else {
        if (change.kind == Change::Everything) reloadIcons();
        rebuild();
    }
}

void TreeBinding::forward(int index, Gesture gesture) {
    if (index < 1 || index > tree_.count()) return;
    host().runGesture([this, index, gesture] {
        switch (gesture) {
            case Gesture::Click:
                tree_.userClickNode(index);
                break;
            case Gesture::Expand:
                tree_.userExpand(index);
                break;
            case Gesture::Collapse:
                tree_.userCollapse(index);
                break;
        }
    });
    mirrorNode(index);
    mirrorSelection();
}

bool TreeBinding::keyPress(QWidget* part, QKeyEvent* event) {
    SendKeyStroke(host(), *event);
    // Qt moves through the tree itself when the tree still has the focus.
    return !(TreeKey(event->key()) && part == treeView_ && tree_.hasFocus());
}

bool TreeBinding::viewportPress(QMouseEvent* event, bool doubleClick) {
    if (event->button() != Qt::LeftButton) return false;
    const QPoint position = event->position().toPoint();
    const QModelIndex at = treeView_->indexAt(position);
    if (!at.isValid()) return false;
    // Left of the node's own rectangle lies its expand indicator, which Qt handles.
    if (position.x() < treeView_->visualRect(at).left()) return false;
    const int index = IndexOf(at);
    if (doubleClick) {
        forward(index, tree_.node(index).expanded ? Gesture::Collapse : Gesture::Expand);
    } else {
        forward(index, Gesture::Click);
    }
    return true;
}

bool TreeBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == treeView_->viewport()) {
        switch (event->type()) {
            case QEvent::MouseButtonPress:
                return viewportPress(static_cast<QMouseEvent*>(event), false);
            case QEvent::MouseButtonDblClick:
                return viewportPress(static_cast<QMouseEvent*>(event), true);
            default:
                return false;
        }
    }
    return ComponentBinding::eventFilter(watched, event);
}

}  // namespace tabulon
