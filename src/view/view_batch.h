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

    class Hold {
    public:
        explicit Hold(ViewBatch& batch) : batch_(batch) { batch_.step(1, 0); }
        ~Hold() { batch_.step(-1, 0); }
        Hold(const Hold&) = delete;
        Hold& operator=(const Hold&) = delete;

    private:
        ViewBatch& batch_;
    };

    class Pause {
    public:
        explicit Pause(ViewBatch& batch) : batch_(batch) { batch_.step(0, 1); }
        ~Pause() { batch_.step(0, -1); }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        ViewBatch& batch_;
    };

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
