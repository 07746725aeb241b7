// ScrollBar: a platform scroll bar (horizontal or vertical) with Min, Max and
// Value. Every change of Value, by code or by the user, raises Change; dragging the
// thumb raises Scroll for each position instead. Setting Max below Value (or Min
// above it) moves the value to the new bound (raising Change), as on the platform.
// Min may exceed Max (a bar that runs the other way); Value then lies between Max
// and Min. Writes that change nothing raise nothing.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "platform/component.h"

namespace tabulon {

class ScrollBar : public Component {
public:
    explicit ScrollBar(std::string name) : Component(std::move(name)) {}

    int min() const { return min_; }
    int max() const { return max_; }
    int value() const { return value_; }
    void setMin(int min);
    void setMax(int max);
    // Values outside [min, max] throw InvalidArgumentFailure.
    void setValue(int value);

    // --- user gestures (ignored while hidden or disabled)
    void userStep(int delta);      // arrow click: value + delta, clamped; Change if it moved
    void userSetValue(int value);  // track click: clamped; Change if it moved
    void userDrag(int value);      // thumb drag: clamped; Scroll if it moved
    // The thumb dragged from the value to target (clamped): one userDrag per unit it
    // passes, each to the next unit on the way, so a handler that moves something one
    // step per Scroll follows the thumb. A Scroll handler may set the value and the
    // range itself; the drag goes on from there and ends once the value reaches or
    // passes target (a target at the end of the range follows that end), or when a
    // step leaves the value where it was (the handler can go no further).
    void userDragTo(int target);

    std::function<void()> onChange;
    std::function<void()> onScroll;

private:
    int clamp(long long value) const;
    bool store(int value);  // true when the value changed

    int min_ = 0, max_ = 0, value_ = 0;
};

}  // namespace tabulon
