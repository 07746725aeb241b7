// SplitterBinding: the splitter between tree and grid (imgSplitter) as a plain
// widget with the horizontal resize cursor.
//
// Dragging it with the left button is the control's SplitterDrag: on every pointer
// move the control is asked to move the splitter by the distance (in twips) between
// where the pointer now asks the tree's edge to be and where the tree's edge is, so
// the splitter follows the pointer within the control's own limits and catches up
// again when the pointer comes back inside them.
#pragma once

#include <QPoint>

#include "platform/component.h"
#include "platform/tree_view.h"
#include "qt/bindings/component_binding.h"

namespace tabulon {

class SplitterBinding : public ComponentBinding {
    Q_OBJECT

public:
    // tree: the tree whose width the splitter changes.
    SplitterBinding(BindingHost& host, Component& splitter, const TreeView& tree, QWidget* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void drag(const QPointF& globalPosition, Qt::KeyboardModifiers modifiers);

    const TreeView& tree_;
    bool dragging_ = false;
    double pressX_ = 0;
    std::int32_t startWidth_ = 0;
};

}  // namespace tabulon
