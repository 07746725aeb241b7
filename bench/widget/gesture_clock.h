// The clock of the widget benchmarks: a gesture is timed from the first Qt event it
// sends to the end of the repaint it causes, that is until the application has no
// event left to deliver (the posted update requests, and so the painting, included).
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace tabulon::bench {

// Counts every event the application delivers and every paint; made once, after the
// QApplication.
void InstallEventCounter();
long long DeliveredEvents();
long long DeliveredPaints();

// Delivers posted and queued events until a round delivers none.
void Settle();

// What a gesture took: wall-clock milliseconds, and the milliseconds of processor time
// the application's threads used meanwhile (on a busy machine the wall clock also
// counts the time other processes had the processor).
struct GestureTime {
    double ms = 0;
    double cpuMs = 0;
};

// Runs act (which sends the gesture's events) and settles.
GestureTime TimeGesture(const std::function<void()>& act);

// A gesture that answers at once and finishes its work later, between events (find
// goes to its first hit and counts the others): the time until the round after which
// answered() holds, and the longest round after it, that is the longest a person's
// next key waits while the rest is done.
struct AnsweredTime {
    GestureTime answer;
    GestureTime longestRound;
};
AnsweredTime TimeAnswer(const std::function<void()>& act, const std::function<bool()>& answered);

// Milliseconds, in the order taken.
struct Samples {
    std::vector<double> ms;
    std::vector<double> cpuMs;
    void add(const GestureTime& time) {
        ms.push_back(time.ms);
        cpuMs.push_back(time.cpuMs);
    }
    double median() const { return Percentile(ms, 50); }
    double p95() const { return Percentile(ms, 95); }
    double cpuMedian() const { return Percentile(cpuMs, 50); }
    // Nearest-rank percentile; NaN for no samples.
    static double Percentile(std::vector<double> values, double percent);
};

// The steps of one gesture on one subject (the control or the stock anchor).
// Sample i: before(i) readies it without being timed and returns what went wrong
// (empty: ready); act(i) sends the real events, timed with the repaint; after(i)
// checks the gesture had its effect (once it is done) and returns what went wrong. kind(i), when
// set, files the sample under another gesture name (a Tab that scrolled); finish, when set, puts
// right what the samples left (a typed character). A message box during a sample is a failure
// unless tells is set (a paste telling the user of the cells it skipped).
struct GesturePlan {
    std::function<std::string(int)> before;
    std::function<void(int)> act;
    std::function<std::string(int)> after;
    std::function<std::string(int)> kind;
    std::function<void()> finish = {};
    bool tells = false;
    // Set for a gesture that answers at once and finishes later (TimeAnswer): the
    // answer is filed under the gesture's name, the longest round after it under the
    // name + "-later".
    std::function<bool()> answered = {};
};

}  // namespace tabulon::bench
