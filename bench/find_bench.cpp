// Find searches every tree node's grid as it would be shown (captions, values
// formatted and, in this Metric document, converted) without showing any node. Timed on
// the 50 MB load document (Metric, custom units, 10 value columns x 20 rows per grid)
// for a word, a number and a whole-cell search; every unit value is formatted and
// converted in each. The goal: each well under a second (< 500 ms).
#include <benchmark/benchmark.h>

#include <memory>

#include "bench_documents.h"
#include "control/generic_sp_control.h"
#include "testing/recording_sink.h"

namespace tabulon::bench {
namespace {

struct LoadedControl {
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control{sink, host};
    bool loaded = false;

    LoadedControl() {
        control.InitProperties();
        control.Show();
        loaded = control.LoadXML(LoadDocumentOfSize(50)) && sink.messages().empty();
    }
};

// Kept to the end of the process on purpose (see commit_bench.cpp).
LoadedControl& Loaded() {
    static LoadedControl* const loaded = new LoadedControl();
    return *loaded;
}

void Search(benchmark::State& state, const char* text, FindOptions options) {
    LoadedControl& l = Loaded();
    if (!l.loaded) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    std::size_t hits = 0;
    for (auto _ : state)
        hits = l.control.Find(text, options).size();
    state.SetLabel(std::to_string(hits) + " hits");
}

void BM_FindWord(benchmark::State& state) {
    Search(state, "north", {});
}
void BM_FindNumber(benchmark::State& state) {
    Search(state, "12.5", {});
}
void BM_FindWholeCell(benchmark::State& state) {
    Search(state, "VAV", {.matchCase = false, .wholeCell = true});
}

BENCHMARK(BM_FindWord)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindNumber)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FindWholeCell)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon::bench
