// TreeView: the headless model of the category tree, with an optional image list.
// Nodes are numbered from 1 in the order they were added; keys are unique. A view
// shows them in tree order: roots, and each node's children, in the order added.
// A node costs some 40 bytes besides its texts (trees of 100,000 nodes load within
// their memory bound): texts in one pool, children as links, keys in a KeyIndex.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/component.h"
#include "support/key_index.h"
#include "support/text_pool.h"

namespace tabulon {

class ImageList;

struct TreeNode {
    std::string key;
    std::string text;
    int image = 0;   // 1-based image-list index; 0 = no picture
    int parent = 0;  // 1-based index of the parent node; 0 for a root node
    bool expanded = false;
    int problems = 0;  // values of the node's grid that need correcting (a mark, no text)
};

class TreeView : public Component {
public:
    explicit TreeView(std::string name = "treTreeView") : Component(std::move(name)) {}

    int count() const { return static_cast<int>(nodes_.size()); }
    // A copy of the node; 1-based, out of range throws InvalidArgumentFailure.
    TreeNode node(int index) const;
    // The node's problem mark without copying its texts (views ask for it on every
    // paint); 0 when index is out of range.
    int problemCount(int index) const {
        return index >= 1 && index <= count() ? entry(index).problems : 0;
    }
    // The node's text, picture, parent and expansion without copying the node; out of
    // range throws.
    std::string_view nodeText(int index) const;
    int nodeImage(int index) const;
    int nodeParent(int index) const;
    bool nodeExpanded(int index) const;
    // 1-based index of the node with that key (exact comparison), 0 when none or
    // when key is empty.
    int indexOf(const std::string& key) const;
    // The children of a node in the order added (0: the root nodes); out of range
    // throws InvalidArgumentFailure.
    std::vector<int> children(int index) const;

    // Adds a node as the last child of the node keyed relativeKey, or as a root
    // node when relativeKey is empty. An unknown relative key or a duplicate key
    // throws InvalidArgumentFailure; an empty key is allowed (such nodes cannot be
    // found by key). A negative image throws. Returns the new 1-based index.
    int add(const std::string& relativeKey, const std::string& key, const std::string& text,
            int image);
    void clear();  // removes every node; the selection becomes none
    // Room for count nodes in all, with textBytes of keys and texts together, so that
    // adding them allocates once.
    void reserve(int count, std::size_t textBytes = 0);

    // Changes the flag only (code collapsing raises nothing and keeps the selection).
    void setExpanded(int index, bool expanded);
    // The node's problem mark; a negative count throws InvalidArgumentFailure. Raises a
    // Marks change for the node when it changes.
    void setProblemCount(int index, int count);
    // The same mark on each node of indices (1-based; those beyond count() are passed
    // over) with one Marks change for all, raised when any changed: nodes that show one
    // grid may be many.
    void setProblemCounts(const std::vector<int>& indices, int count);

    // 0 when nothing is selected. Selecting by code raises nothing; out of range
    // throws InvalidArgumentFailure.
    int selectedIndex() const { return selected_; }
    void setSelectedIndex(int index);

    // Display style 0..7 (text only up to lines, plus/minus, pictures and text);
    // other values throw InvalidArgumentFailure.
    std::int32_t style() const { return style_; }
    void setStyle(std::int32_t style);

    // The image list bound to the tree (null when none).
    const ImageList* imageList() const { return imageList_; }
    void setImageList(const ImageList* list);

    // --- user gestures (bad indices throw InvalidArgumentFailure)
    // Selects the node and raises NodeClick with its index.
    void userClickNode(int index);
    // Collapses the node; a selected descendant passes the selection to the collapsed
    // node, as tree controls do. Raises Collapse with the node's index. Collapsing a
    // node that is already collapsed does nothing.
    void userCollapse(int index);
    // Expands the node; no notification callback.
    void userExpand(int index);

    std::function<void(int index)> onNodeClick;
    std::function<void(int index)> onCollapse;

private:
    struct Entry {
        TextRef key = 0;
        TextRef text = 0;
        int image = 0;
        int parent = 0;
        int firstChild = 0;
        int lastChild = 0;
        int nextSibling = 0;
        int problems = 0;
        bool expanded = false;
    };

    void checkIndex(int index) const;
    bool isAncestor(int ancestor, int node) const;
    const Entry& entry(int index) const { return nodes_[static_cast<std::size_t>(index - 1)]; }
    std::string_view keyAt(int index) const { return texts_.view(entry(index).key); }

    std::vector<Entry> nodes_;
    int firstRoot_ = 0;
    int lastRoot_ = 0;
    TextPool texts_;
    KeyIndex byKey_;
    int selected_ = 0;
    std::int32_t style_ = 7;
    const ImageList* imageList_ = nullptr;
};

}  // namespace tabulon
