#include "platform/observable.h"

namespace tabulon {

int Observable::Subscribe(Observer observer) {
    const int token = next_++;
    if (observer) observers_.emplace(token, std::make_shared<const Observer>(std::move(observer)));
    return token;
}

void Observable::Unsubscribe(int token) {
    observers_.erase(token);
}

void Observable::Notify(Change kind, int row, int col) const {
    if (observers_.empty()) return;
    const ChangeInfo info{kind, row, col};
    const int limit = next_;
    // Look the next observer up afresh after every call: an observer may remove
    // itself or others. The shared pointer keeps the running one alive.
    int last = 0;
    for (;;) {
        const auto it = observers_.upper_bound(last);
        if (it == observers_.end() || it->first >= limit) return;
        last = it->first;
        const std::shared_ptr<const Observer> observer = it->second;
        (*observer)(info);
    }
}

}  // namespace tabulon
