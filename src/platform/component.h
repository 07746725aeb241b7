// Base of every child component of the control: name, visibility, enabled state,
// position and size in twips, and keyboard focus through a shared FocusManager.
//
// User gestures (the user* members of the subclasses, what a view forwards) are
// ignored while the component is hidden or disabled; code may still change it.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "platform/observable.h"

namespace tabulon {

class FocusManager;

class Component : public Observable {
public:
    explicit Component(std::string name) : name_(std::move(name)) {}

    const std::string& name() const { return name_; }

    // Hiding or disabling the component that has the focus takes the focus away
    // from it (its LostFocus runs): to the next component of the manager's tab order
    // that can take it, or to none (see FocusManager::setTabOrder).
    bool visible() const { return visible_; }
    void setVisible(bool visible);
    bool enabled() const { return enabled_; }
    void setEnabled(bool enabled);

    // Geometry in twips, relative to the control (or to the containing frame for
    // components placed inside one).
    std::int32_t left() const { return left_; }
    std::int32_t top() const { return top_; }
    std::int32_t width() const { return width_; }
    std::int32_t height() const { return height_; }
    void setLeft(std::int32_t v);
    void setTop(std::int32_t v);
    // Negative sizes are a run-time failure (InvalidArgumentFailure), as on the platform.
    void setWidth(std::int32_t v);
    void setHeight(std::int32_t v);
    // All four at once with one notification; a negative size throws before anything
    // changes.
    void move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);

    // Focus: components of one control share one FocusManager. SetFocus on a
    // component without a manager, hidden or disabled, is ignored.
    void attachFocus(FocusManager* manager) { focus_ = manager; }
    void setFocus();
    bool hasFocus() const;

    // Raised by the FocusManager when focus arrives or leaves.
    std::function<void()> onGotFocus;
    std::function<void()> onLostFocus;

protected:
    // Geometry changes call this after storing; subclasses re-layout.
    virtual void geometryChanged() {}
    // The height the component really takes when asked for requested (components
    // of fixed height return their own).
    virtual std::int32_t constrainHeight(std::int32_t requested) const { return requested; }
    // Whether user gestures are accepted now: visible and enabled.
    bool acceptsInput() const { return visible_ && enabled_; }

private:
    friend class FocusManager;
    void setGeometry(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height);
    void dropFocusIfHeld();

    std::string name_;
    bool visible_ = true;
    bool enabled_ = true;
    std::int32_t left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    FocusManager* focus_ = nullptr;
};

// Which component of a control holds the keyboard focus.
class FocusManager : public Observable {
public:
    Component* focused() const { return focused_; }
    // Moves the focus (null: to no component): LostFocus of the old component runs
    // first, then GotFocus of the new one. Moving to the component that already has
    // it, or to a hidden or disabled one, does nothing. A LostFocus handler that
    // moves the focus elsewhere itself takes over: the GotFocus of this move is not
    // raised.
    void setFocus(Component* component);
    // Forgets a component (it is going away); no notification runs.
    void forget(Component* component);

    // The order in which the user tabs through the form. When the focused component
    // is hidden or disabled, the focus moves to the first component after it in this
    // order (going round) that is visible and enabled; a component outside the order,
    // or with none able to take it, leaves no component focused. Empty by default.
    void setTabOrder(std::vector<Component*> order) { tabOrder_ = std::move(order); }
    // Where the focus goes when from can no longer hold it (null: nowhere).
    Component* nextInTabOrder(const Component* from) const;

private:
    Component* focused_ = nullptr;
    Component* arriving_ = nullptr;  // given the focus, GotFocus not yet raised
    unsigned moves_ = 0;
    std::vector<Component*> tabOrder_;
};

}  // namespace tabulon
