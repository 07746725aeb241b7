#include "platform/scroll_bar.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

#include "support/failure.h"

namespace tabulon {

int ScrollBar::clamp(long long value) const {
    const long long lo = std::min(min_, max_);
    const long long hi = std::max(min_, max_);
    return static_cast<int>(std::clamp(value, lo, hi));
}

bool ScrollBar::store(int value) {
    if (value == value_) return false;
    value_ = value;
    Notify(Change::Content);
    return true;
}

void ScrollBar::setMin(int min) {
    if (min == min_) return;
    min_ = min;
    Notify(Change::Layout);
    if (store(clamp(value_))) Raise(onChange);
}

void ScrollBar::setMax(int max) {
    if (max == max_) return;
    max_ = max;
    Notify(Change::Layout);
    if (store(clamp(value_))) Raise(onChange);
}

void ScrollBar::setValue(int value) {
    if (clamp(value) != value) throw InvalidArgumentFailure("Invalid property value");
    if (store(value)) Raise(onChange);
}

void ScrollBar::userStep(int delta) {
    if (!acceptsInput()) return;
    if (store(clamp(static_cast<long long>(value_) + delta))) Raise(onChange);
}

void ScrollBar::userSetValue(int value) {
    if (!acceptsInput()) return;
    if (store(clamp(value))) Raise(onChange);
}

void ScrollBar::userDrag(int value) {
    if (!acceptsInput()) return;
    if (store(clamp(value))) Raise(onScroll);
}

void ScrollBar::userDragTo(int target) {
    if (!acceptsInput()) return;
    target = clamp(target);
    const int direction = target > value_ ? 1 : -1;
    // A thumb dragged to the end of the track stays there while the handler widens
    // the range: the drag goes on to the new end.
    const auto end = [this, direction] {
        return clamp(direction > 0 ? std::numeric_limits<int>::max()
                                   : std::numeric_limits<int>::min());
    };
    const bool toEnd = target == end();
    // The handler may put the value anywhere: the steps are bounded all the same.
    long long steps = std::llabs(static_cast<long long>(target) - value_) +
                      std::llabs(static_cast<long long>(max_) - min_) + 1;
    for (; steps > 0; --steps) {
        if (toEnd) target = end();
        if ((static_cast<long long>(target) - value_) * direction <= 0) return;
        const int before = value_;
        userDrag(value_ + direction);
        if (value_ == before) return;
    }
}

}  // namespace tabulon
