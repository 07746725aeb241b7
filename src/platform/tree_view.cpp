#include "platform/tree_view.h"

#include "support/failure.h"

namespace tabulon {

void TreeView::checkIndex(int index) const {
    if (index < 1 || index > count()) throw InvalidArgumentFailure("Index out of bounds");
}

const TreeNode& TreeView::node(int index) const {
    checkIndex(index);
    return nodes_[static_cast<std::size_t>(index - 1)];
}

int TreeView::indexOf(const std::string& key) const {
    if (key.empty()) return 0;
    const auto it = byKey_.find(key);
    return it == byKey_.end() ? 0 : it->second;
}

const std::vector<int>& TreeView::children(int index) const {
    if (index != 0) checkIndex(index);
    return children_[static_cast<std::size_t>(index)];
}

int TreeView::add(const std::string& relativeKey, const std::string& key, const std::string& text,
                  int image) {
    int parent = 0;
    if (!relativeKey.empty()) {
        parent = indexOf(relativeKey);
        if (parent == 0) throw InvalidArgumentFailure("Element not found: " + relativeKey);
    }
    if (!key.empty() && byKey_.count(key) != 0) {
        throw InvalidArgumentFailure("Key is not unique in collection: " + key);
    }
    if (image < 0) throw InvalidArgumentFailure("Invalid image index");
    nodes_.push_back(TreeNode{key, text, image, parent, false});
    const int index = count();
    children_.emplace_back();
    children_[static_cast<std::size_t>(parent)].push_back(index);
    if (!key.empty()) byKey_.emplace(key, index);
    Notify(Change::Content, index);
    return index;
}

void TreeView::clear() {
    if (nodes_.empty() && selected_ == 0) return;
    nodes_.clear();
    children_.assign(1, {});
    byKey_.clear();
    selected_ = 0;
    Notify(Change::Content);
}

void TreeView::setExpanded(int index, bool expanded) {
    checkIndex(index);
    TreeNode& target = nodes_[static_cast<std::size_t>(index - 1)];
    if (target.expanded == expanded) return;
    target.expanded = expanded;
    Notify(Change::Content, index);
}

void TreeView::setProblemCount(int index, int count) {
    checkIndex(index);
    if (count < 0) throw InvalidArgumentFailure("Invalid property value");
    TreeNode& target = nodes_[static_cast<std::size_t>(index - 1)];
    if (target.problems == count) return;
    target.problems = count;
    Notify(Change::Marks, index);
}

void TreeView::setProblemCounts(const std::vector<int>& indices, int count) {
    if (count < 0) throw InvalidArgumentFailure("Invalid property value");
    bool changed = false;
    for (const int index : indices) {
        if (index < 1 || index > this->count()) continue;
        int& problems = nodes_[static_cast<std::size_t>(index - 1)].problems;
        changed = changed || problems != count;
        problems = count;
    }
    if (changed) Notify(Change::Marks);
}

void TreeView::setSelectedIndex(int index) {
    if (index != 0) checkIndex(index);
    if (index == selected_) return;
    selected_ = index;
    Notify(Change::Current, index);
}

void TreeView::setStyle(std::int32_t style) {
    if (style < 0 || style > 7) throw InvalidArgumentFailure("Invalid property value");
    if (style == style_) return;
    style_ = style;
    Notify(Change::Everything);
}

void TreeView::setImageList(const ImageList* list) {
    if (list == imageList_) return;
    imageList_ = list;
    Notify(Change::Everything);
}

bool TreeView::isAncestor(int ancestor, int node) const {
    for (int p = this->node(node).parent; p != 0; p = this->node(p).parent) {
        if (p == ancestor) return true;
    }
    return false;
}

void TreeView::userClickNode(int index) {
    checkIndex(index);
    if (!acceptsInput()) return;
    setSelectedIndex(index);
    Raise(onNodeClick, index);
}

void TreeView::userCollapse(int index) {
    checkIndex(index);
    if (!acceptsInput() || !node(index).expanded) return;
    setExpanded(index, false);
    if (selected_ != 0 && isAncestor(index, selected_)) setSelectedIndex(index);
    Raise(onCollapse, index);
}

void TreeView::userExpand(int index) {
    checkIndex(index);
    if (!acceptsInput()) return;
    setExpanded(index, true);
}

}  // namespace tabulon
