// Many changes as one for the views. While a block edit writes its cells, a front end
// that mirrors the models into widgets may gather the models' notifications and
// mirror each once when the edit ends, instead of once per cell. The models notify as
// always, and nothing in the core depends on whether a view holds.
//
// Observers are told (Change::Everything) whenever held() changes: when the outermost
// Hold starts and ends, and around a Pause, which lets the views catch up before the
// host's code runs in the middle of the edit (AppGridEventHandler), so the host never
// sees a screen that is behind the document.
#pragma once

#include "platform/observable.h"

namespace tabulon {

class ViewBatch : public Observable {
public:
    bool held() const { return holds_ > 0 && pauses_ == 0; }

    // Holds the views, or lets them catch up, for as long as it lives.
    template <int Holds, int Pauses>
    class Scope {
    public:
        explicit Scope(ViewBatch& batch) : batch_(batch) { batch_.step(Holds, Pauses); }
        ~Scope() { batch_.step(-Holds, -Pauses); }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;

    private:
        ViewBatch& batch_;
    };
    using Hold = Scope<1, 0>;
    using Pause = Scope<0, 1>;

private:
    void step(int holds, int pauses) {
        const bool was = held();
        holds_ += holds;
        pauses_ += pauses;
        if (held() != was) Notify(Change::Everything);
    }

    int holds_ = 0;
    int pauses_ = 0;
};

}  // namespace tabulon
