#include "view/edit_history.h"

#include <utility>

namespace tabulon {

EditHistory::StepGuard::StepGuard(EditHistory& history, EditLocation where) : history_(history) {
    if (history_.depth_++ == 0) history_.open_ = EditStep{std::move(where), {}, 0};
}

EditHistory::StepGuard::~StepGuard() {
    if (--history_.depth_ == 0) history_.Close();
}

void EditHistory::Record(ElementChange change) {
    if (applying) return;
    const StepGuard alone(*this, EditLocation{});
    open_.bytes += change.before.Bytes() + change.after.Bytes() + sizeof(ElementChange);
    open_.changes.push_back(std::move(change));
}

void EditHistory::Close() {
    if (open_.changes.empty()) return;
    while (steps_.size() > applied_) {
        bytes_ -= steps_.back().bytes;
        steps_.pop_back();
    }
    if (saved_ && *saved_ > applied_) saved_.reset();
    bytes_ += open_.bytes;
    steps_.push_back(std::exchange(open_, EditStep{}));
    ++applied_;
    ++recorded_;
    while (bytes_ > kMemoryBudget && steps_.size() > 1)
        DropOldest();
}

void EditHistory::DropOldest() {
    bytes_ -= steps_.front().bytes;
    steps_.pop_front();
    --applied_;
    if (saved_ && *saved_ == 0) {
        saved_.reset();
    } else if (saved_) {
        --*saved_;
    }
}

void EditHistory::Undone() {
    if (applied_ > 0) --applied_;
}

void EditHistory::Redone() {
    if (applied_ < steps_.size()) ++applied_;
}

void EditHistory::Clear() {
    steps_.clear();
    applied_ = 0;
    saved_ = 0;
    bytes_ = 0;
}

}  // namespace tabulon
