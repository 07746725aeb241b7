// TreeView: the headless model of the category tree, with an optional image list.
// Nodes are numbered from 1 in the order they were added; keys are unique.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/component.h"

namespace tabulon {

class ImageList;

struct TreeNode {
    std::string key;
    std::string text;
    int image = 0;     // 1-based image-list index; 0 = no picture
    int parent = 0;    // 1-based index of the parent node; 0 for a root node
    bool expanded = false;
};

class TreeView : public Component {
public:
    explicit TreeView(std::string name = "treTreeView") : Component(std::move(name)) {}

    int count() const { return static_cast<int>(nodes_.size()); }
    // 1-based; out of range throws InvalidArgumentFailure.
    const TreeNode& node(int index) const;
    // 1-based index of the node with that key (exact comparison), 0 when none.
    int indexOf(const std::string& key) const;

    // Adds a node as the last child of the node keyed relativeKey, or as a root
    // node when relativeKey is empty. An unknown relative key or a duplicate key
    // throws InvalidArgumentFailure. Returns the new 1-based index.
    int add(const std::string& relativeKey, const std::string& key, const std::string& text,
            int image);
    void clear();  // removes every node; the selection becomes none

    void setExpanded(int index, bool expanded);

    // 0 when nothing is selected. Selecting by code raises nothing.
    int selectedIndex() const { return selected_; }
    void setSelectedIndex(int index);

    std::int32_t style() const { return style_; }
    void setStyle(std::int32_t style);

    // The image list bound to the tree (null when none).
    const ImageList* imageList() const { return imageList_; }
    void setImageList(const ImageList* list);

    // --- user gestures
    // Selects the node and raises NodeClick with its index.
    void userClickNode(int index);
    // Collapses the node; a selected descendant passes the selection to the collapsed
    // node, as tree controls do. Raises Collapse with the node's index.
    void userCollapse(int index);
    void userExpand(int index);

    std::function<void(int index)> onNodeClick;
    std::function<void(int index)> onCollapse;

private:
    bool isAncestor(int ancestor, int node) const;

    std::vector<TreeNode> nodes_;
    int selected_ = 0;
    std::int32_t style_ = 7;
    const ImageList* imageList_ = nullptr;
};

}  // namespace tabulon
