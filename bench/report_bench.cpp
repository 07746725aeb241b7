// The View/Print report of a wide grid: 1,000 value columns x 20 rows on screen.
// BM_ReportText builds the text alone; BM_PrintClick is the whole button (gate over
// the document, report, event). No goal beyond staying interactive.
#include <benchmark/benchmark.h>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "control/save_gate.h"
#include "document/report.h"
#include "generator/document_generator.h"
#include "testing/recording_sink.h"

namespace tabulon::bench {
namespace {

// Counts the reports instead of keeping them.
struct CountingHost : HostEvents {
    std::int64_t prints = 0;
    void PrintClick(const std::string&) override { ++prints; }
};

struct WideControl {
    RecordingSink sink;
    CountingHost host;
    Generic_SP_Control control{sink, host};
    bool ready = false;

    WideControl() {
        control.InitProperties();
        control.Show();
        GeneratedDocumentShape shape;
        shape.keys = 2;
        shape.valueColumns = 1000;
        shape.rows = 20;
        ready = control.LoadXML(GenerateDocument(shape)) && sink.messages().empty() &&
                FormOf(control).msgGridView.cols() == 1001;
    }
};

// Kept to the end of the process on purpose (see commit_bench.cpp).
WideControl& Loaded() {
    static WideControl* const loaded = new WideControl();
    return *loaded;
}

void BM_ReportText(benchmark::State& state) {
    WideControl& w = Loaded();
    if (!w.ready) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(BuildReportXML(FormOf(w.control).msgGridView, w.sink));
    }
    if (!w.sink.messages().empty()) state.SkipWithError("the report showed a message");
    state.SetLabel("1000 value columns");
}

void BM_PrintClick(benchmark::State& state) {
    WideControl& w = Loaded();
    if (!w.ready) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    w.host.prints = 0;
    for (auto _ : state) {
        PrintButtonClick(CoreOf(w.control));
    }
    if (!w.sink.messages().empty() || w.host.prints != state.iterations()) {
        state.SkipWithError("View/Print did not raise PrintClick cleanly");
    }
    state.SetLabel("1000 value columns");
}

BENCHMARK(BM_ReportText)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PrintClick)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon::bench
