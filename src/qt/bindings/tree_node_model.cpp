#include "qt/bindings/tree_node_model.h"

#include "qt/bindings/tree_problem_badge.h"
#include "qt/qt_text.h"

namespace tabulon {

namespace {

bool ShowsPictures(std::int32_t style) {
    return style % 2 == 1;
}

std::size_t At(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace

TreeNodeModel::TreeNodeModel(const TreeView& tree, QObject* parent)
    : QAbstractItemModel(parent), tree_(&tree), places_(1) {}

void TreeNodeModel::link(int node, int parent) {
    Place& up = places_[At(parent)];
    Place& place = places_[At(node)];
    place.parent = parent;
    if (up.lastChild == 0) {
        up.firstChild = node;
    } else {
        place.row = places_[At(up.lastChild)].row + 1;
        places_[At(up.lastChild)].nextSibling = node;
    }
    up.lastChild = node;
}

int TreeNodeModel::childCount(int node) const {
    const int last = places_[At(node)].lastChild;
    return last == 0 ? 0 : places_[At(last)].row + 1;
}

void TreeNodeModel::reset(std::vector<QIcon> icons) {
    beginResetModel();
    icons_ = std::move(icons);
    const int count = tree_ == nullptr ? 0 : tree_->count();
    places_.assign(At(count) + 1, Place{});
    places_.shrink_to_fit();
    for (int i = 1; i <= count; ++i)
        link(i, tree_->nodeParent(i));
    cursor_ = {};
    endResetModel();
}

void TreeNodeModel::append(int index) {
    const int parent = tree_->nodeParent(index);
    const int row = childCount(parent);
    beginInsertRows(indexFor(parent), row, row);
    places_.emplace_back();
    link(index, parent);
    endInsertRows();
}

void TreeNodeModel::detach() {
    tree_ = nullptr;
    reset({});
}

QModelIndex TreeNodeModel::indexFor(int node) const {
    if (node < 1 || node > shownCount()) return {};
    return createIndex(places_[At(node)].row, 0, static_cast<quintptr>(node));
}

int TreeNodeModel::NodeOf(const QModelIndex& index) {
    return index.isValid() ? static_cast<int>(index.internalId()) : 0;
}

QModelIndex TreeNodeModel::index(int row, int column, const QModelIndex& parent) const {
    const int up = NodeOf(parent);
    if (column != 0 || row < 0 || parent.column() > 0 || row >= childCount(up)) return {};
    if (cursor_.parent != up || cursor_.row > row) {
        cursor_ = {up, 0, places_[At(up)].firstChild};
    }
    if (row == childCount(up) - 1) cursor_ = {up, row, places_[At(up)].lastChild};
    while (cursor_.row < row) {
        cursor_.node = places_[At(cursor_.node)].nextSibling;
        ++cursor_.row;
    }
    return createIndex(row, 0, static_cast<quintptr>(cursor_.node));
}

QModelIndex TreeNodeModel::parent(const QModelIndex& child) const {
    const int node = NodeOf(child);
    return node == 0 ? QModelIndex() : indexFor(places_[At(node)].parent);
}

int TreeNodeModel::rowCount(const QModelIndex& parent) const {
    return parent.column() > 0 ? 0 : childCount(NodeOf(parent));
}

int TreeNodeModel::columnCount(const QModelIndex&) const {
    return 1;
}

bool TreeNodeModel::hasChildren(const QModelIndex& parent) const {
    return rowCount(parent) > 0;
}

QIcon TreeNodeModel::iconFor(int node) const {
    if (!ShowsPictures(tree_->style()) || tree_->imageList() == nullptr) return {};
    const int image = tree_->nodeImage(node);
    if (image < 1 || image > static_cast<int>(icons_.size())) return {};
    return icons_[At(image - 1)];
}

QVariant TreeNodeModel::data(const QModelIndex& index, int role) const {
    const int node = NodeOf(index);
    // A node the tree no longer holds is shown empty until the reset that follows.
    if (tree_ == nullptr || node < 1 || node > tree_->count()) return {};
    switch (role) {
        case Qt::DisplayRole:
        case Qt::EditRole:
            return ToQString(tree_->nodeText(node));
        case Qt::DecorationRole:
            return QVariant::fromValue(iconFor(node));
        case kProblemCountRole:
            return tree_->problemCount(node);
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return ProblemCountText(tree_->problemCount(node));
        default:
            return {};
    }
}

Qt::ItemFlags TreeNodeModel::flags(const QModelIndex& index) const {
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

}  // namespace tabulon
