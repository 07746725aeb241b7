// Generic_SP_Control: the members that explain values, walk the values that need
// correcting and find text; each forwards to its collaborator in view/.
#include "control/generic_sp_control.h"
#include "view/cell_problems.h"
#include "view/control_core.h"
#include "view/find.h"
#include "view/problem_walk.h"
#include "view/unit_codes.h"

namespace tabulon {

std::string Generic_SP_Control::CellProblem(int row, int col) const {
    return tabulon::CellProblem(*core_, row, col);
}

std::string Generic_SP_Control::CellUnit(int row, int col) const {
    return tabulon::CellUnit(*core_, row, col);
}

int Generic_SP_Control::ProblemCount() const {
    return core_->problems.total();
}

bool Generic_SP_Control::NextProblem() {
    return GoToProblem(*core_, true);
}

bool Generic_SP_Control::PreviousProblem() {
    return GoToProblem(*core_, false);
}

std::vector<FindHit> Generic_SP_Control::Find(const std::string& text, const FindOptions& options) {
    RunFind(*core_, text, options);
    return core_->find.hits;
}

void Generic_SP_Control::StartFind(const std::string& text, const FindOptions& options) {
    tabulon::StartFind(*core_, text, options);
}

bool Generic_SP_Control::ContinueFind(int nodes) {
    return tabulon::ContinueFind(*core_, nodes);
}

bool Generic_SP_Control::FindComplete() const {
    return !core_->find.pending;
}

const std::vector<FindHit>& Generic_SP_Control::FindHits() const {
    return core_->find.hits;
}

bool Generic_SP_Control::GoToFindHit(int index) {
    return tabulon::GoToFindHit(*core_, index);
}

bool Generic_SP_Control::FindNext() {
    return StepFindHit(*core_, true);
}

bool Generic_SP_Control::FindPrevious() {
    return StepFindHit(*core_, false);
}

int Generic_SP_Control::CurrentFindHit() const {
    return core_->find.current;
}

}  // namespace tabulon
