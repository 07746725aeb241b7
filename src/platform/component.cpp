#include "platform/component.h"

#include <algorithm>

#include "support/failure.h"

namespace tabulon {

namespace {

void RequireSize(std::int32_t size) {
    if (size < 0) throw InvalidArgumentFailure("Invalid property value");
}

}  // namespace

void Component::setVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    Notify(Change::Geometry);
    if (!visible_) dropFocusIfHeld();
}

void Component::setEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    Notify(Change::Enabled);
    if (!enabled_) dropFocusIfHeld();
}

void Component::dropFocusIfHeld() {
    if (hasFocus()) focus_->setFocus(focus_->nextInTabOrder(this));
}

void Component::setLeft(std::int32_t v) {
    setGeometry(v, top_, width_, height_);
}
void Component::setTop(std::int32_t v) {
    setGeometry(left_, v, width_, height_);
}

void Component::setWidth(std::int32_t v) {
    RequireSize(v);
    setGeometry(left_, top_, v, height_);
}

void Component::setHeight(std::int32_t v) {
    const std::int32_t height = constrainHeight(v);
    RequireSize(height);
    setGeometry(left_, top_, width_, height);
}

void Component::move(std::int32_t left, std::int32_t top, std::int32_t width, std::int32_t height) {
    RequireSize(width);
    const std::int32_t constrained = constrainHeight(height);
    RequireSize(constrained);
    setGeometry(left, top, width, constrained);
}

void Component::setGeometry(std::int32_t left, std::int32_t top, std::int32_t width,
                            std::int32_t height) {
    if (left == left_ && top == top_ && width == width_ && height == height_) return;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    geometryChanged();
    Notify(Change::Geometry);
}

void Component::setFocus() {
    if (focus_ == nullptr || !acceptsInput()) return;
    focus_->setFocus(this);
}

bool Component::hasFocus() const {
    return focus_ != nullptr && focus_->focused() == this;
}

void FocusManager::setFocus(Component* component) {
    if (component == focused_) return;
    if (component != nullptr && !component->acceptsInput()) return;
    Component* const old = focused_;
    focused_ = component;
    const unsigned move = ++moves_;
    // A component that was given the focus by an outer move whose GotFocus has not
    // run yet never really had it: it gets no LostFocus.
    const bool oldArrived = old != nullptr && old != arriving_;
    arriving_ = component;
    Notify(Change::Focus);
    if (oldArrived) {
        old->Notify(Change::Focus);
        Raise(old->onLostFocus);
    }
    if (move != moves_) return;  // a LostFocus handler moved the focus itself
    arriving_ = nullptr;
    if (component != nullptr) {
        component->Notify(Change::Focus);
        Raise(component->onGotFocus);
    }
}

Component* FocusManager::nextInTabOrder(const Component* from) const {
    const auto at = std::find(tabOrder_.begin(), tabOrder_.end(), from);
    if (at == tabOrder_.end()) return nullptr;
    const std::size_t start = static_cast<std::size_t>(at - tabOrder_.begin());
    for (std::size_t step = 1; step < tabOrder_.size(); ++step) {
        Component* candidate = tabOrder_[(start + step) % tabOrder_.size()];
        if (candidate->acceptsInput()) return candidate;
    }
    return nullptr;
}

void FocusManager::forget(Component* component) {
    if (component == nullptr) return;
    if (focused_ == component) focused_ = nullptr;
    if (arriving_ == component) arriving_ = nullptr;
}

}  // namespace tabulon
