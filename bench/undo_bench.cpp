// Undoing one edit costs the same however large the document: the 50 MB load document
// (bench_documents.h), one UnitDrop cell of the first grid edited and committed, then
// that step undone and redone over and over. The goal is well under a frame: < 1 ms.
//
// BM_UndoOneEdit50MB times Undo alone (the Redo that sets up the next iteration is
// left out), BM_RedoOneEdit50MB the opposite. Each reports the journal's memory for
// the step (step_bytes), which must not depend on the document's size: BM_UndoOneEdit1MB
// reports it for the 1 MB document.
#include <benchmark/benchmark.h>

#include <string>

#include "bench_documents.h"
#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "testing/recording_sink.h"
#include "unit_drop_cell.h"

namespace tabulon::bench {
namespace {

// A control with the document loaded and one committed edit in its journal.
struct EditedControl {
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control{sink, host};
    bool ready = false;

    explicit EditedControl(int megabytes) {
        control.InitProperties();
        control.Show();
        if (!control.LoadXML(LoadDocumentOfSize(megabytes))) return;
        if (!OpenFirstUnitDropEditor(control)) return;
        Form& form = FormOf(control);
        form.unitDropControl.UserSetText("7.25");
        form.msgGridView.userMouseMove(0, 1);  // commits
        ready = control.CanUndo() && sink.messages().empty();
    }
};

// Kept to the end of the process on purpose, as in commit_bench.cpp.
EditedControl& Edited(int megabytes) {
    static EditedControl* const small = new EditedControl(1);
    static EditedControl* const large = new EditedControl(50);
    return megabytes == 1 ? *small : *large;
}

void Report(benchmark::State& state, const EditedControl& e) {
    if (!e.sink.messages().empty()) state.SkipWithError("undo or redo reported a failure");
    state.counters["step_bytes"] = static_cast<double>(CoreOf(e.control).history.bytes());
}

void BM_UndoOneEdit(benchmark::State& state) {
    EditedControl& e = Edited(static_cast<int>(state.range(0)));
    if (!e.ready) return state.SkipWithError("the document did not load or edit cleanly");
    for (auto _ : state) {
        benchmark::DoNotOptimize(e.control.Undo());
        state.PauseTiming();
        e.control.Redo();
        state.ResumeTiming();
    }
    Report(state, e);
}

void BM_RedoOneEdit(benchmark::State& state) {
    EditedControl& e = Edited(static_cast<int>(state.range(0)));
    if (!e.ready) return state.SkipWithError("the document did not load or edit cleanly");
    for (auto _ : state) {
        state.PauseTiming();
        e.control.Undo();
        state.ResumeTiming();
        benchmark::DoNotOptimize(e.control.Redo());
    }
    Report(state, e);
}

BENCHMARK(BM_UndoOneEdit)->Arg(1)->Arg(50)->Unit(benchmark::kMicrosecond);
BENCHMARK(BM_RedoOneEdit)->Arg(50)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tabulon::bench
