// Committing a UnitDrop cell in a Metric document costs the same however many cells
// the document holds: a generated Metric document of 100,000 CellValue elements
// (3,125 keys x 4 columns x 8 rows, with custom units), the editor open on the first
// enabled UnitDrop cell of the first grid. The goal is under 1 ms per commit.
//
// BM_UnitDropCommitMetric times the commit alone (opening the editor again between
// commits is left out); BM_UnitDropEditCycleMetric times opening, typing a value and
// committing, as the user does it cell after cell.
#include <benchmark/benchmark.h>

#include <string>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "generator/document_generator.h"
#include "testing/recording_sink.h"
#include "unit_drop_cell.h"
#include "view/cell_editors.h"
#include "view/commit.h"

namespace tabulon::bench {
namespace {

constexpr int kCellValues = 100000;

GeneratedDocumentShape Shape() {
    GeneratedDocumentShape shape;
    shape.keys = 3125;
    shape.valueColumns = 4;
    shape.rows = 8;
    shape.gridHeaders = 2;
    shape.metric = true;
    shape.customUnits = 4;
    shape.depth = 4;
    return shape;
}

// One control with the generated document loaded and an enabled UnitDrop cell current.
struct MetricControl {
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control{sink, host};
    bool ready = false;

    MetricControl() {
        control.InitProperties();
        control.Show();
        ready = control.LoadXML(GenerateDocument(Shape())) && OpenFirstUnitDropEditor(control) &&
                sink.messages().empty();
    }
};

// Loaded once and kept to the end of the process on purpose: a control terminates by
// releasing per-thread tables, and at exit those are destroyed before static objects.
MetricControl& Loaded() {
    static MetricControl* const loaded = new MetricControl();
    return *loaded;
}

// Alternating values within every unit's range, so that every commit changes the cell.
const char* ValueFor(std::int64_t iteration) {
    return iteration % 2 == 0 ? "12.5" : "7.25";
}

bool Healthy(const MetricControl& m) {
    return m.sink.messages().empty() && CoreOf(m.control).doc.blnGridLoaded;
}

bool ReadyOrSkip(const MetricControl& m, benchmark::State& state) {
    if (!m.ready) state.SkipWithError("the generated document did not load cleanly");
    return m.ready;
}

void BM_UnitDropCommitMetric(benchmark::State& state) {
    MetricControl& m = Loaded();
    if (!ReadyOrSkip(m, state)) return;
    ControlCore& core = CoreOf(m.control);
    std::int64_t iteration = 0;
    for (auto _ : state) {
        state.PauseTiming();
        OpenCellEditor(core);
        core.form.unitDropControl.SetNumberText(ValueFor(iteration++));
        state.ResumeTiming();
        CommitCellEdit(core);
    }
    if (!Healthy(m)) state.SkipWithError("a commit reported a failure");
    state.SetLabel("100000 CellValue elements");
}

void BM_UnitDropEditCycleMetric(benchmark::State& state) {
    MetricControl& m = Loaded();
    if (!ReadyOrSkip(m, state)) return;
    ControlCore& core = CoreOf(m.control);
    std::int64_t iteration = 0;
    for (auto _ : state) {
        OpenCellEditor(core);
        core.form.unitDropControl.UserSetText(ValueFor(iteration++));
        CommitCellEdit(core);
    }
    if (!Healthy(m)) state.SkipWithError("a cycle reported a failure");
    state.SetLabel("100000 CellValue elements");
}

BENCHMARK(BM_UnitDropCommitMetric)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_UnitDropEditCycleMetric)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tabulon::bench
