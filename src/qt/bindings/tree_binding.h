// TreeBinding: binds the category tree (treTreeView) and its image list to a
// QTreeView over a TreeNodeModel, one row per node in tree order, each with its node's
// picture.
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
// (TreeProblemBadge). Nodes are added to the view one by one (a row inserted) as
// the model adds them; any other change of the node list resets the view's model.
#pragma once

#include <QIcon>
#include <QModelIndex>
#include <QTreeView>
#include <vector>

#include "platform/image_list.h"
#include "platform/tree_view.h"
#include "qt/bindings/component_binding.h"
#include "qt/bindings/tree_node_model.h"

namespace tabulon {

class TreeBinding : public ComponentBinding {
    Q_OBJECT

public:
    static constexpr int kIconPixels = 16;

    TreeBinding(BindingHost& host, TreeView& tree, ImageList& images, QWidget* parent);
    ~TreeBinding() override;
    TreeBinding(const TreeBinding&) = delete;
    TreeBinding& operator=(const TreeBinding&) = delete;

    QTreeView* treeView() const { return treeView_; }
    // The view's index of the 1-based node index; invalid when the view has none.
    QModelIndex indexFor(int index) const { return model_->indexFor(index); }
    // The 1-based node index of a view's index; 0 for an invalid one.
    static int IndexOf(const QModelIndex& index) { return TreeNodeModel::NodeOf(index); }

protected:
    void applyState(const ChangeInfo& change) override;
    bool keyPress(QWidget* part, QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void rebuild();
    void appendNode(int index);
    void mirrorNode(int index);
    void mirrorSelection();
    void reloadIcons();
    bool viewportPress(QMouseEvent* event, bool doubleClick);
    enum class Gesture { Click, Expand, Collapse };
    // Forwards a gesture on a node and mirrors the node (and the selection) back.
    void forward(int index, Gesture gesture);

    TreeView& tree_;
    ImageList& images_;
    QTreeView* treeView_;
    TreeNodeModel* model_;
    std::vector<QIcon> icons_;
};

}  // namespace tabulon
