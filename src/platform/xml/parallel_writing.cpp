#include "platform/xml/parallel_writing.h"

#include <algorithm>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "platform/xml/xml_writer.h"

namespace tabulon::xml {

namespace {

// Runs end every kRunNodes nodes passed on the top kPlanDepth levels: in a document
// (document element, structure, grid, column, block of cell values) a run holds 128
// blocks, some hundred kilobytes; among the nodes of a tree, a few tens.
constexpr std::size_t kPlanDepth = 4;
constexpr std::size_t kRunNodes = 128;
constexpr std::size_t kRunsBeforeHelpers = 4;
constexpr std::size_t kRunsAhead = 8;
constexpr unsigned kMaxHelpers = 3;

// The text of an element from one node to the next run's first.
struct Run {
    Writer::Resume from;
    pugi::xml_node stop;
    bool inlineAll = false;
    std::string text;
    bool done = false;
};

// Makes open describe every element of above (those it describes already stay as
// they are): only where a run starts, as a look at an element's children for text
// costs as much as writing them.
void Describe(std::vector<Writer::Open>& open, const std::vector<pugi::xml_node>& above,
              bool inlineAll) {
    for (std::size_t i = open.size(); i < above.size(); ++i) {
        const pugi::xml_node element = above[i];
        const pugi::xml_node first = element.first_child();
        const bool parentInline = i == 0 ? inlineAll : open.back().inlineContent;
        open.push_back(
            {element, element.name(), Writer::InlineContent(parentInline, i, first, first.type())});
    }
}

// Passes the nodes on the top levels of top in document order and calls split(at),
// which returns false to stop, where every run after the first starts.
template <class Split>
void PlanRuns(pugi::xml_node top, bool inlineAll, const Split& split) {
    if (top.type() != pugi::node_element || !top.first_child()) return;
    std::vector<pugi::xml_node> above{top};  // the elements open above node
    Writer::Resume at;                       // at.open: the first of them, described
    pugi::xml_node node = top.first_child();
    std::size_t passed = 0;
    for (;;) {
        if (++passed > kRunNodes) {
            Describe(at.open, above, inlineAll);
            at.node = node;
            if (!split(at)) return;
            passed = 1;
        }
        const pugi::xml_node child =
            above.size() < kPlanDepth ? node.first_child() : pugi::xml_node();
        if (child) {
            above.push_back(node);
            node = child;
            continue;
        }
        pugi::xml_node next;
        while (!above.empty() && !(next = node.next_sibling())) {
            node = above.back();
            above.pop_back();
            if (at.open.size() > above.size()) at.open.pop_back();
        }
        if (above.empty()) return;
        node = next;
    }
}

class Pool {
public:
    explicit Pool(const std::function<bool(std::string_view)>& piece) : piece_(piece) {}
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool() { stopHelpers(); }

    // Queues a run; false once the writing stopped.
    bool add(Run run) {
        if (!ok()) return false;
        std::size_t queued = 0;
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            runs_.push_back(std::move(run));
            queued = runs_.size();
        }
        changed_.notify_all();
        if (queued >= kRunsBeforeHelpers) startHelpers();
        while (ok() && held() >= kRunsAhead)
            step();
        return ok();
    }

    // The writer's own text between runs: after every run before it.
    bool literal(std::string_view text) {
        drain();
        return ok() && handOn(text);
    }

    // Hands on every run left. Rethrows what stopped a helper; false when piece
    // refused a part.
    bool finish() {
        drain();
        stopHelpers();
        if (failure_) std::rethrow_exception(failure_);
        return !refused_;
    }

private:
    bool ok() const {
        const std::lock_guard<std::mutex> lock(mutex_);
        return !refused_ && !failure_;
    }

    std::size_t held() const {
        const std::lock_guard<std::mutex> lock(mutex_);
        return runs_.size();
    }

    bool handOn(std::string_view text) {
        if (text.empty() || refused_) return !refused_;
        if (!piece_(text)) {
            const std::lock_guard<std::mutex> lock(mutex_);
            refused_ = true;
        }
        return !refused_;
    }

    void drain() {
        while (ok() && held() > 0)
            step();
    }

    // One step of the caller's share: hand on what is done, else write the next run
    // no one writes yet, else wait for the oldest.
    void step() {
        Run* oldest = nullptr;
        Run* unclaimed = nullptr;
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            if (runs_.empty()) return;
            if (runs_.front().done) {
                oldest = &runs_.front();
            } else {
                unclaimed = claim();
            }
        }
        if (oldest != nullptr) {
            // A done run is no helper's any more: it is the caller's alone.
            handOn(oldest->text);
            oldest->text.clear();
            const std::lock_guard<std::mutex> lock(mutex_);
            spare_.push_back(std::move(oldest->text));
            runs_.pop_front();
            ++handedOn_;
            return;
        }
        if (unclaimed != nullptr) {
            write(*unclaimed);
            return;
        }
        std::unique_lock<std::mutex> lock(mutex_);
        changed_.wait(lock, [this] { return runs_.front().done || failure_ != nullptr; });
    }

    // Under the lock: the oldest run no one writes yet, or null.
    // The run is written into the room of one handed on, when there is one.
    Run* claim() {
        const std::size_t index = claimed_ - handedOn_;
        if (index >= runs_.size()) return nullptr;
        ++claimed_;
        Run& run = runs_[index];
        if (!spare_.empty()) {
            run.text = std::move(spare_.back());
            spare_.pop_back();
        }
        return &run;
    }

    void write(Run& run) {
        Writer::WriteStretch(run.text, run.from, run.stop, run.inlineAll);
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            run.done = true;
        }
        changed_.notify_all();
    }

    void help() {
        for (;;) {
            Run* run = nullptr;
            {
                std::unique_lock<std::mutex> lock(mutex_);
                changed_.wait(lock, [this, &run] {
                    if (stop_ || failure_) return true;
                    run = claim();
                    return run != nullptr;
                });
                if (run == nullptr) return;
            }
            try {
                write(*run);
            } catch (...) {
                {
                    const std::lock_guard<std::mutex> lock(mutex_);
                    if (!failure_) failure_ = std::current_exception();
                }
                changed_.notify_all();
                return;
            }
        }
    }

    void startHelpers() {
        if (started_) return;
        started_ = true;
        const unsigned processors = std::thread::hardware_concurrency();
        const unsigned count = processors > 1 ? std::min(processors - 1, kMaxHelpers) : 0;
        for (unsigned i = 0; i < count; ++i) {
            try {
                helpers_.emplace_back([this] { help(); });
            } catch (const std::system_error&) {
                break;  // no thread to be had: the caller writes the runs itself
            }
        }
    }

    void stopHelpers() {
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            stop_ = true;
        }
        changed_.notify_all();
        helpers_.clear();  // joins
    }

    const std::function<bool(std::string_view)>& piece_;
    mutable std::mutex mutex_;
    std::condition_variable changed_;
    // Under mutex_: runs not yet handed on, oldest first (a deque keeps the place of
    // each run while others are added and removed).
    std::deque<Run> runs_;
    // Under mutex_: the texts of runs handed on, emptied: growing a new text to a run's
    // size costs as much again as writing a cell block into it.
    std::vector<std::string> spare_;
    std::size_t claimed_ = 0;   // runs ever claimed for writing
    std::size_t handedOn_ = 0;  // runs ever handed on
    bool stop_ = false;
    bool refused_ = false;
    std::exception_ptr failure_;
    bool started_ = false;
    std::vector<std::jthread> helpers_;  // last: joined before the rest goes
};

// Queues the runs of top's text.
bool AddRuns(Pool& pool, pugi::xml_node top, bool inlineAll) {
    Run run;
    run.from.node = top;
    run.inlineAll = inlineAll;
    PlanRuns(top, inlineAll, [&](const Writer::Resume& at) {
        run.stop = at.node;
        Run next;
        next.from = at;
        next.inlineAll = inlineAll;
        return pool.add(std::exchange(run, std::move(next)));
    });
    return pool.add(std::move(run));
}

}  // namespace

bool WriteInParallel(pugi::xml_node node, const std::function<bool(std::string_view)>& piece) {
    Pool pool(piece);
    if (node.type() == pugi::node_document) {
        // The document's own children: one per line, unless text stands among them.
        const bool inlineAll = Writer::HasTextChild(node.first_child());
        for (pugi::xml_node child = node.first_child(); child; child = child.next_sibling()) {
            if (!AddRuns(pool, child, inlineAll) || (!inlineAll && !pool.literal("\n"))) break;
        }
    } else if (node) {
        AddRuns(pool, node, false);
    }
    return pool.finish();
}

}  // namespace tabulon::xml
