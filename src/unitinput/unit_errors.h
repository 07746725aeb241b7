// The failure the unit-input library raises when it is given something it cannot
// use: an unknown unit code, a bad factor, limits in the wrong order, an empty unit
// list, a unit text the list does not hold.
#pragma once

#include <string>

#include "support/failure.h"

namespace tabulon {

class UnitRejectedFailure : public RuntimeFailure {
public:
    explicit UnitRejectedFailure(const std::string& what) : RuntimeFailure(what) {}
};

}  // namespace tabulon
