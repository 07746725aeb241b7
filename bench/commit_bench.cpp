// Committing a UnitDrop cell in a Metric document costs the same however many cells
// the document holds: a generated document of 100,000 CellValue elements (5,000
// value groups x 4 columns x 5 rows), the editor open on a UnitDrop cell. The goal is
// well under 1 ms per commit.
//
// BM_UnitDropCommitMetric times the commit alone (opening the editor again between
// commits is left out); BM_UnitDropEditCycleMetric times opening, typing a value and
// committing, as the user does it cell after cell.
#include <benchmark/benchmark.h>

#include <string>

#include "control/generic_sp_control.h"
#include "document/document_generator.h"
#include "platform/recording_sink.h"
#include "view/cell_editors.h"
#include "view/commit.h"

namespace tabulon {
namespace {

constexpr int kUnitDropRow = 3;  // generated rows cycle ComboBox, UnitNum, UnitDrop, ...

GeneratedDocumentShape Shape() {
    GeneratedDocumentShape shape;
    shape.treeNodes = 50000;
    shape.nodesPerGroup = 10;
    shape.gridHeaders = 2;
    shape.valueColumns = 4;
    shape.rows = 5;
    shape.metric = true;
    return shape;
}

// One control with the generated document loaded and the UnitDrop cell current.
struct MetricControl {
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control{sink, host};
    bool ready = false;

    MetricControl() {
        control.InitProperties();
        control.Show();
        if (!control.LoadXML(GenerateDocument(Shape()))) return;
        control.form().msgGridView.userClick(kUnitDropRow, 1);
        ready = control.form().unitDropControl.visible() && sink.messages().empty();
    }
};

// Loaded once and kept to the end of the process on purpose: a control terminates by
// releasing per-thread tables, and at exit those are destroyed before static objects.
MetricControl& Loaded() {
    static MetricControl* const loaded = new MetricControl();
    return *loaded;
}

// Alternating values, so that every commit really changes the cell.
const char* ValueFor(std::int64_t iteration) {
    return iteration % 2 == 0 ? "12.5" : "7.25";
}

bool Healthy(const MetricControl& m) {
    return m.sink.messages().empty() && m.control.core().doc.blnGridLoaded;
}

void BM_UnitDropCommitMetric(benchmark::State& state) {
    MetricControl& m = Loaded();
    if (!m.ready) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    ControlCore& core = m.control.core();
    std::int64_t iteration = 0;
    for (auto _ : state) {
        state.PauseTiming();
        OpenCellEditor(core);
        core.form.unitDropControl.SetNumberText(ValueFor(iteration++));
        state.ResumeTiming();
        CommitCellEdit(core);
    }
    if (!Healthy(m)) state.SkipWithError("a commit reported a failure");
    state.counters["cell_values"] = 100000;
}

void BM_UnitDropEditCycleMetric(benchmark::State& state) {
    MetricControl& m = Loaded();
    if (!m.ready) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    ControlCore& core = m.control.core();
    std::int64_t iteration = 0;
    for (auto _ : state) {
        OpenCellEditor(core);
        core.form.unitDropControl.UserSetText(ValueFor(iteration++));
        CommitCellEdit(core);
    }
    if (!Healthy(m)) state.SkipWithError("a cycle reported a failure");
    state.counters["cell_values"] = 100000;
}

BENCHMARK(BM_UnitDropCommitMetric)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UnitDropEditCycleMetric)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tabulon
