#include "qt/bindings/tree_binding.h"

#include <unordered_map>

#include <QHeaderView>
#include <QMouseEvent>

#include "qt/bindings/picture_decoding.h"
#include "qt/bindings/tree_problem_badge.h"
#include "qt/qt_text.h"

namespace tabulon {

namespace {

constexpr int kIndexRole = Qt::UserRole;

bool ShowsPictures(std::int32_t style) {
    return style % 2 == 1;
}

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

// A node's item. It stores nothing of its own: its text, picture, index and problem
// mark are read from the model when asked (a node's text and picture never change
// once added; any other change rebuilds the items). So a tree of 100,000 nodes holds
// no per-node strings, icons or item data on the Qt side, and a mark changing on
// every node showing one grid costs one repaint instead of a change per item.
class TreeBinding::NodeItem : public QTreeWidgetItem {
public:
    NodeItem(QTreeWidgetItem* parent, const TreeBinding& binding, int index)
        : QTreeWidgetItem(parent), binding_(binding), index_(index) {}

    QVariant data(int column, int role) const override {
        if (column != 0) return QTreeWidgetItem::data(column, role);
        const TreeView& tree = binding_.tree_;
        const bool known = index_ <= tree.count();
        switch (role) {
            case Qt::DisplayRole:
            case Qt::EditRole:
                return known ? ToQString(tree.nodeText(index_)) : QString();
            case Qt::DecorationRole:
                return QVariant::fromValue(known ? binding_.iconFor(tree.nodeImage(index_))
                                                 : QIcon());
            case kIndexRole:
                return index_;
            case kProblemCountRole:
            case Qt::ToolTipRole:
            case Qt::AccessibleDescriptionRole: {
                const int problems = tree.problemCount(index_);
                if (role == kProblemCountRole) return problems;
                return ProblemCountText(problems);
            }
            default:
                return QTreeWidgetItem::data(column, role);
        }
    }

private:
    const TreeBinding& binding_;
    int index_;
};

TreeBinding::TreeBinding(BindingHost& bindingHost, TreeView& tree, ImageList& images,
                         QWidget* parent)
    : ComponentBinding(bindingHost, tree, new QTreeWidget(parent)),
      tree_(tree),
      images_(images),
      treeWidget_(static_cast<QTreeWidget*>(widget())) {
    treeWidget_->setColumnCount(1);
    treeWidget_->setHeaderHidden(true);
    treeWidget_->setSelectionMode(QAbstractItemView::SingleSelection);
    treeWidget_->setExpandsOnDoubleClick(false);
    treeWidget_->setUniformRowHeights(true);
    treeWidget_->setIconSize(QSize(kIconPixels, kIconPixels));
    treeWidget_->setFocusPolicy(Qt::ClickFocus);
    treeWidget_->setContextMenuPolicy(Qt::NoContextMenu);
    treeWidget_->viewport()->installEventFilter(this);
    treeWidget_->setItemDelegate(new TreeProblemBadge(treeWidget_));
    treeWidget_->setAccessibleName(tr("Categories"));
    // The one column follows the viewport's width (the header is hidden and stretches
    // it), and a viewport that changes size is painted whole anyway: Qt's own repaint
    // of a resized column, a moment later, would paint every shown row a second time
    // on each resize of the window or the splitter.
    QObject::disconnect(treeWidget_->header(), SIGNAL(sectionResized(int, int, int)), treeWidget_,
                        SLOT(columnResized(int, int, int)));

    observe(images_, [this](const ChangeInfo&) {
        reloadIcons();
        rebuild();
    });

    connect(treeWidget_, &QTreeWidget::currentItemChanged, this, [this](QTreeWidgetItem* current) {
        if (!mirroring() && current != nullptr) {
            forward(IndexOf(current), Gesture::Click);
        }
    });
    connect(treeWidget_, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem* item) {
        if (!mirroring()) forward(IndexOf(item), Gesture::Expand);
    });
    connect(treeWidget_, &QTreeWidget::itemCollapsed, this, [this](QTreeWidgetItem* item) {
        if (!mirroring()) forward(IndexOf(item), Gesture::Collapse);
    });
}

TreeBinding::~TreeBinding() {
    // The items read the tree model, which goes before the widget does.
    const Mirroring mirroring(*this);
    if (widget() != nullptr) treeWidget_->clear();
}

QTreeWidgetItem* TreeBinding::itemFor(int index) const {
    if (index < 1 || index > static_cast<int>(items_.size())) return nullptr;
    return items_[static_cast<std::size_t>(index - 1)];
}

int TreeBinding::IndexOf(const QTreeWidgetItem* item) {
    return item == nullptr ? 0 : item->data(0, kIndexRole).toInt();
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

QIcon TreeBinding::iconFor(int image) const {
    if (!ShowsPictures(tree_.style()) || tree_.imageList() == nullptr) return {};
    if (image < 1 || image > static_cast<int>(icons_.size())) return {};
    return icons_[static_cast<std::size_t>(image - 1)];
}

void TreeBinding::appendNode(int index) {
    const Mirroring mirroring(*this);
    const TreeNode& node = tree_.node(index);
    QTreeWidgetItem* parent =
        node.parent == 0 ? treeWidget_->invisibleRootItem() : itemFor(node.parent);
    items_.push_back(new NodeItem(parent, *this, index));
    // A parent's expansion only holds once it has a child.
    if (node.parent != 0) mirrorNode(node.parent);
}

void TreeBinding::mirrorNode(int index) {
    QTreeWidgetItem* item = itemFor(index);
    if (item == nullptr) return;
    const Mirroring mirroring(*this);
    // Only what differs: each change makes the tree look its item up among all the
    // shown ones, which on a tree of 100,000 nodes costs more than a frame. The text
    // and the picture are read from the model (NodeItem).
    const bool expanded = tree_.node(index).expanded;
    if (item->isExpanded() != expanded) item->setExpanded(expanded);
}

void TreeBinding::mirrorSelection() {
    const Mirroring mirroring(*this);
    QTreeWidgetItem* item = itemFor(tree_.selectedIndex());
    treeWidget_->setCurrentItem(item);
    if (item == nullptr) treeWidget_->clearSelection();
}

void TreeBinding::rebuild() {
    {
        const Mirroring mirroring(*this);
        treeWidget_->clear();
        items_.clear();
        treeWidget_->setRootIsDecorated(ShowsRootIndicators(tree_.style()));
    }
    for (int i = 1; i <= tree_.count(); ++i)
        appendNode(i);
    for (int i = 1; i <= tree_.count(); ++i)
        mirrorNode(i);
    mirrorSelection();
}

void TreeBinding::applyState(const ChangeInfo& change) {
    const int count = tree_.count();
    const int shown = static_cast<int>(items_.size());
    if (change.kind == Change::Current) {
        mirrorSelection();
    } else if (change.kind == Change::Marks) {
        treeWidget_->viewport()->update();
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
    return !(TreeKey(event->key()) && part == treeWidget_ && tree_.hasFocus());
}

bool TreeBinding::viewportPress(QMouseEvent* event, bool doubleClick) {
    if (event->button() != Qt::LeftButton) return false;
    const QPoint position = event->position().toPoint();
    QTreeWidgetItem* item = treeWidget_->itemAt(position);
    if (item == nullptr) return false;
    // Left of the item's own rectangle lies its expand indicator, which Qt handles.
    if (position.x() < treeWidget_->visualItemRect(item).left()) return false;
    const int index = IndexOf(item);
    if (doubleClick) {
        forward(index, tree_.node(index).expanded ? Gesture::Collapse : Gesture::Expand);
    } else {
        forward(index, Gesture::Click);
    }
    return true;
}

bool TreeBinding::eventFilter(QObject* watched, QEvent* event) {
    if (watched == treeWidget_->viewport()) {
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
