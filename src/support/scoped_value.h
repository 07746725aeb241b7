// ScopedValue: gives a variable a value for as long as it lives and puts the former
// value back when it ends, also when a failure ends the scope.
#pragma once

#include <utility>

namespace tabulon {

template <class T>
class ScopedValue {
public:
    ScopedValue(T& variable, T value)
        : variable_(variable), former_(std::exchange(variable, value)) {}
    ~ScopedValue() { variable_ = former_; }
    ScopedValue(const ScopedValue&) = delete;
    ScopedValue& operator=(const ScopedValue&) = delete;

private:
    T& variable_;
    T former_;
};

}  // namespace tabulon
