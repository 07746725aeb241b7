#include "gesture_clock.h"

#include <QApplication>
#include <QElapsedTimer>
#include <algorithm>
#include <cmath>
#include <ctime>
#include <limits>

namespace tabulon::bench {

namespace {

class EventCounter : public QObject {
public:
    long long events = 0;
    long long paints = 0;

protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        ++events;
        if (event->type() == QEvent::Paint) ++paints;
        return false;
    }
};

EventCounter*& Counter() {
    static EventCounter* counter = nullptr;
    return counter;
}

}  // namespace

void InstallEventCounter() {
    if (Counter() != nullptr) return;
    Counter() = new EventCounter();
    QCoreApplication::instance()->installEventFilter(Counter());
}

long long DeliveredEvents() {
    return Counter() == nullptr ? 0 : Counter()->events;
}

long long DeliveredPaints() {
    return Counter() == nullptr ? 0 : Counter()->paints;
}

namespace {

// One round of delivering what is posted and queued, with looked called after the
// posted ones (the updates) and again after the queued ones; false when it delivered
// nothing.
bool Round(const std::function<void()>& looked = {}) {
    const long long before = DeliveredEvents();
    QCoreApplication::sendPostedEvents();
    if (looked) looked();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    if (looked) looked();
    return DeliveredEvents() != before;
}

}  // namespace

void Settle() {
    // A round may post more (a queued focus fix posts an update): go on until quiet.
    for (int round = 0; round < 100 && Round(); ++round) {
    }
}

namespace {

// Every thread's: what a gesture hands to other threads (the save's writers, Qt's
// fill workers) is its cost too.
double ProcessCpuMs() {
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

}  // namespace

GestureTime TimeGesture(const std::function<void()>& act) {
    const double cpu = ProcessCpuMs();
    QElapsedTimer timer;
    timer.start();
    act();
    Settle();
    return {static_cast<double>(timer.nsecsElapsed()) / 1e6, ProcessCpuMs() - cpu};
}

AnsweredTime TimeAnswer(const std::function<void()>& act, const std::function<bool()>& answered) {
    const double cpu = ProcessCpuMs();
    QElapsedTimer timer;
    timer.start();
    act();
    const auto elapsed = [&timer] { return static_cast<double>(timer.nsecsElapsed()) / 1e6; };
    AnsweredTime time;
    bool known = false;
    const auto check = [&] {
        if (known || !answered()) return;
        known = true;
        time.answer = {elapsed(), ProcessCpuMs() - cpu};
    };
    // The answer is on screen once the update it posted is delivered; the work it
    // leaves for later (timers) must let events through at least once a frame.
    for (bool busy = true; busy;) {
        const bool after = known;
        const double roundStart = elapsed();
        const double roundCpu = ProcessCpuMs();
        busy = Round(check);
        const GestureTime round{elapsed() - roundStart, ProcessCpuMs() - roundCpu};
        if (after && round.ms > time.longestRound.ms) time.longestRound = round;
    }
    if (!known) time.answer = {elapsed(), ProcessCpuMs() - cpu};
    return time;
}

double Samples::Percentile(std::vector<double> values, double percent) {
    if (values.empty()) return std::numeric_limits<double>::quiet_NaN();
    std::sort(values.begin(), values.end());
    const auto rank =
        static_cast<std::size_t>(std::ceil(percent / 100.0 * static_cast<double>(values.size())));
    return values[std::clamp<std::size_t>(rank, 1, values.size()) - 1];
}

}  // namespace tabulon::bench
