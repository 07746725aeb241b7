// TreeNodeModel: the category tree (TreeView) as a Qt item model of one column, read
// from the tree when the view asks. A node's text, picture and problem mark are never
// copied: per node the model keeps only its place (parent and row) and its children's
// indices, so a tree of 100,000 nodes costs a few megabytes on the Qt side and a mark
// changing on many nodes costs one repaint. An index's internal id is its 1-based node
// index. Children are linked rather than listed (no allocation per parent): the view
// asks for a parent's rows in order, which a cursor on the last one asked answers in
// constant time.
//
// The model shows the nodes it has been told of: all of them after reset(), one more
// after each append(); the binding decides which (a node's text and picture never
// change once added, any other change of the node list resets). So it keeps its own
// links rather than the tree's: between a change of the tree and its notification the
// view must still find the rows it was told of.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <vector>

#include "platform/tree_view.h"

namespace tabulon {

class TreeNodeModel : public QAbstractItemModel {
    Q_OBJECT

public:
    TreeNodeModel(const TreeView& tree, QObject* parent);

    // Shows every node of the tree again, its pictures taken from icons (the image
    // list's entries in order), shown only when the tree's style shows pictures.
    void reset(std::vector<QIcon> icons);
    // Shows node index, the one after the last shown, as the last child of its parent.
    void append(int index);
    // Shows nothing and reads the tree no more (it is going away).
    void detach();

    int shownCount() const { return static_cast<int>(places_.size()) - 1; }
    // The index of a shown 1-based node, invalid for any other.
    QModelIndex indexFor(int node) const;
    // The 1-based node of an index; 0 for an invalid one.
    static int NodeOf(const QModelIndex& index);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    bool hasChildren(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
    struct Place {
        int parent = 0;
        int row = 0;
        int firstChild = 0;
        int lastChild = 0;
        int nextSibling = 0;
    };
    struct Cursor {
        int parent = -1;
        int row = 0;
        int node = 0;
    };

    void link(int node, int parent);
    int childCount(int node) const;
    QIcon iconFor(int node) const;

    const TreeView* tree_;
    std::vector<QIcon> icons_;
    // By node index (entry 0 stands for the invisible root).
    std::vector<Place> places_;
    mutable Cursor cursor_;
};

}  // namespace tabulon
