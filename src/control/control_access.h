// The control's internals, for the Qt front end, the tools and the tests: the state
// its collaborators share and the form of child components. Not installed: a host
// sees the control through generic_sp_control.h alone.
#pragma once

#include "control/generic_sp_control.h"
#include "view/control_core.h"

namespace tabulon {

struct ControlAccess {
    static ControlCore& Core(Generic_SP_Control& control) { return *control.core_; }
    static const ControlCore& Core(const Generic_SP_Control& control) { return *control.core_; }
};

inline ControlCore& CoreOf(Generic_SP_Control& control) {
    return ControlAccess::Core(control);
}
inline const ControlCore& CoreOf(const Generic_SP_Control& control) {
    return ControlAccess::Core(control);
}
inline Form& FormOf(Generic_SP_Control& control) {
    return ControlAccess::Core(control).form;
}
inline const Form& FormOf(const Generic_SP_Control& control) {
    return ControlAccess::Core(control).form;
}

}  // namespace tabulon
