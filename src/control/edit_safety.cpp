// Generic_SP_Control: undo and redo, the modified flag and the protective-editing
// switch, forwarded to their collaborators in view/.
#include "control/generic_sp_control.h"
#include "view/control_core.h"
#include "view/undo.h"

namespace tabulon {

bool Generic_SP_Control::Undo() {
    return tabulon::Undo(*core_);
}

bool Generic_SP_Control::Redo() {
    return tabulon::Redo(*core_);
}

bool Generic_SP_Control::CanUndo() const {
    return tabulon::CanUndo(*core_);
}

bool Generic_SP_Control::CanRedo() const {
    return tabulon::CanRedo(*core_);
}

bool Generic_SP_Control::IsModified() const {
    return core_->history.Modified();
}

void Generic_SP_Control::SetModified(bool modified) {
    if (modified) {
        core_->history.ForgetSaved();
    } else {
        core_->history.MarkSaved();
    }
}

bool Generic_SP_Control::ProtectiveEditing() const {
    return core_->protectiveEditing;
}

void Generic_SP_Control::SetProtectiveEditing(bool on) {
    core_->protectiveEditing = on;
}

}  // namespace tabulon
