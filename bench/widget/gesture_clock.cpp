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

// One round of delivering what is posted and queued; false when it delivered nothing.
bool Round() {
    const long long before = DeliveredEvents();
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    return DeliveredEvents() != before;
}

}  // namespace

void Settle() {
    // A round may post more (a queued focus fix posts an update): go on until quiet.
    for (int round = 0; round < 100 && Round(); ++round) {
    }
}

namespace {

double ThreadCpuMs() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

}  // namespace

GestureTime TimeGesture(const std::function<void()>& act) {
    const double cpu = ThreadCpuMs();
    QElapsedTimer timer;
    timer.start();
    act();
    Settle();
    return {static_cast<double>(timer.nsecsElapsed()) / 1e6, ThreadCpuMs() - cpu};
}

AnsweredTime TimeAnswer(const std::function<void()>& act, const std::function<bool()>& answered) {
    const double cpu = ThreadCpuMs();
    QElapsedTimer timer;
    timer.start();
    act();
    const auto elapsed = [&timer] { return static_cast<double>(timer.nsecsElapsed()) / 1e6; };
    AnsweredTime time;
    bool busy = true;
    // The answer is on screen after the round that paints it; the work it leaves for
    // later must let events through at least once a frame.
    for (int round = 0; round < 100000 && busy; ++round) {
        const double roundStart = elapsed();
        const double roundCpu = ThreadCpuMs();
        busy = Round();
        if (time.answer.ms == 0 && answered()) {
            time.answer = {elapsed(), ThreadCpuMs() - cpu};
        } else if (time.answer.ms > 0) {
            time.longestRound = std::max(
                time.longestRound, GestureTime{elapsed() - roundStart, ThreadCpuMs() - roundCpu},
                [](const GestureTime& a, const GestureTime& b) { return a.ms < b.ms; });
        }
    }
    if (time.answer.ms == 0) time.answer = {elapsed(), ThreadCpuMs() - cpu};
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
