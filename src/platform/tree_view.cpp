#include "platform/tree_view.h"

#include "support/failure.h"

namespace tabulon {

void TreeView::checkIndex(int index) const {
    if (index < 1 || index > count()) throw InvalidArgumentFailure("Index out of bounds");
}

TreeNode TreeView::node(int index) const {
    checkIndex(index);
    const Entry& at = entry(index);
    return TreeNode{std::string(texts_.view(at.key)),
                    std::string(texts_.view(at.text)),
                    at.image,
                    at.parent,
                    at.expanded,
                    at.problems};
}

std::string_view TreeView::nodeText(int index) const {
    checkIndex(index);
    return texts_.view(entry(index).text);
}

int TreeView::nodeImage(int index) const {
    checkIndex(index);
    return entry(index).image;
}

int TreeView::nodeParent(int index) const {
    checkIndex(index);
    return entry(index).parent;
}

bool TreeView::nodeExpanded(int index) const {
    checkIndex(index);
    return entry(index).expanded;
}

int TreeView::indexOf(const std::string& key) const {
    if (key.empty()) return 0;
    return byKey_.find(key, [this](int index) { return keyAt(index); });
}

std::vector<int> TreeView::children(int index) const {
    if (index != 0) checkIndex(index);
    std::vector<int> list;
    for (int child = index == 0 ? firstRoot_ : entry(index).firstChild; child != 0;
         child = entry(child).nextSibling) {
        list.push_back(child);
    }
    return list;
}

int TreeView::add(const std::string& relativeKey, const std::string& key, const std::string& text,
                  int image) {
    int parent = 0;
    if (!relativeKey.empty()) {
        parent = indexOf(relativeKey);
        if (parent == 0) throw InvalidArgumentFailure("Element not found: " + relativeKey);
    }
    if (indexOf(key) != 0) throw InvalidArgumentFailure("Key is not unique in collection: " + key);
    if (image < 0) throw InvalidArgumentFailure("Invalid image index");
    Entry added;
    added.key = texts_.add(key);
    added.text = texts_.add(text);
    added.image = image;
    added.parent = parent;
    nodes_.push_back(added);
    const int index = count();
    int& last = parent == 0 ? lastRoot_ : nodes_[static_cast<std::size_t>(parent - 1)].lastChild;
    if (last == 0) {
        (parent == 0 ? firstRoot_ : nodes_[static_cast<std::size_t>(parent - 1)].firstChild) =
            index;
    } else {
        nodes_[static_cast<std::size_t>(last - 1)].nextSibling = index;
    }
    last = index;
    if (!key.empty()) byKey_.insert(index, [this](int at) { return keyAt(at); });
    Notify(Change::Content, index);
    return index;
}

void TreeView::reserve(int count, std::size_t textBytes) {
    if (count <= 0) return;
    nodes_.reserve(static_cast<std::size_t>(count));
    texts_.reserve(textBytes);
    byKey_.reserve(static_cast<std::size_t>(count), [this](int at) { return keyAt(at); });
}

void TreeView::clear() {
    if (nodes_.empty() && selected_ == 0) return;
    std::vector<Entry>().swap(nodes_);
    firstRoot_ = 0;
    lastRoot_ = 0;
    texts_.clear();
    byKey_.clear();
    selected_ = 0;
    Notify(Change::Content);
}

void TreeView::setExpanded(int index, bool expanded) {
    checkIndex(index);
    Entry& target = nodes_[static_cast<std::size_t>(index - 1)];
    if (target.expanded == expanded) return;
    target.expanded = expanded;
    Notify(Change::Content, index);
}

void TreeView::setProblemCount(int index, int count) {
    checkIndex(index);
    if (count < 0) throw InvalidArgumentFailure("Invalid property value");
    Entry& target = nodes_[static_cast<std::size_t>(index - 1)];
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
    for (int p = entry(node).parent; p != 0; p = entry(p).parent) {
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
    if (!acceptsInput() || !entry(index).expanded) return;
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
