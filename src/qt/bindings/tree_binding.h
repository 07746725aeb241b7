// TreeBinding: binds the category tree (treTreeView) and its image list to a
// QTreeWidget, one item per node in tree order, each with its node's picture.
//
// Gestures, into the model: a press on a node (outside its expand indicator) ->
// userClickNode, also on the node already selected; a double click on a node ->
// userCollapse or userExpand; the expand indicator and the keyboard's tree keys
// (arrows, Home, End, Page Up/Down, "+", "-", "*"), which Qt handles after the control
// has previewed the key -> userExpand, userCollapse and userClickNode for the node Qt
// moved to. The model's answer is mirrored back, so a gesture the model ignores
// leaves the widget as it was.
//
// Decisions: the style code shows pictures for odd styles (1, 3, 5, 7) and the
// expand indicators of root nodes for styles 2, 3, 6 and 7; tree lines are not drawn.
// Pictures are shown at 16 x 16 pixels. A node's problem count shows as a badge
// (TreeProblemBadge). Nodes are added to the widget one by one as
// the model adds them; any other change of the node list rebuilds the widget.
#pragma once

#include <QIcon>
#include <QTreeWidget>
#include <vector>

#include "platform/image_list.h"
#include "platform/tree_view.h"
#include "qt/bindings/component_binding.h"

namespace tabulon {

class TreeBinding : public ComponentBinding {
    Q_OBJECT

public:
    static constexpr int kIconPixels = 16;

    TreeBinding(BindingHost& host, TreeView& tree, ImageList& images, QWidget* parent);
    ~TreeBinding() override;
    TreeBinding(const TreeBinding&) = delete;
    TreeBinding& operator=(const TreeBinding&) = delete;

    QTreeWidget* treeWidget() const { return treeWidget_; }
    // The widget's item of the 1-based node index; null when there is none.
    QTreeWidgetItem* itemFor(int index) const;
    // The 1-based node index of an item; 0 for null or a foreign item.
    static int IndexOf(const QTreeWidgetItem* item);

protected:
    void applyState(const ChangeInfo& change) override;
    bool keyPress(QWidget* part, QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    class NodeItem;

    void rebuild();
    void appendNode(int index);
    void mirrorNode(int index);
    void mirrorSelection();
    void reloadIcons();
    QIcon iconFor(int image) const;
    bool viewportPress(QMouseEvent* event, bool doubleClick);
    enum class Gesture { Click, Expand, Collapse };
    // Forwards a gesture on a node and mirrors the node (and the selection) back.
    void forward(int index, Gesture gesture);

    TreeView& tree_;
    ImageList& images_;
    QTreeWidget* treeWidget_;
    std::vector<QTreeWidgetItem*> items_;
    std::vector<QIcon> icons_;
};

}  // namespace tabulon
