// The saving gate reads the Valid flag of every CellValue of the document on each OK
// and View/Print: cells per second of the gate (ValidateGridValues) over a fully valid
// generated document of 1,000,000 CellValue elements (5,000 keys x 10 columns x 20
// rows), so the scan runs to the end. The goal is at least 20 million cells per second.
//
// BM_ValidationGate is the gate as the user meets it after the host set a flag (loading
// gathers the rows, edits of values keep them, and every flag is read again, as the
// gate answers at once only while no attribute was set since it found all valid);
// BM_ValidationGateAfterShapeChange is a gate after the document changed shape, which
// gathers the rows again first.
#include <benchmark/benchmark.h>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "control/save_gate.h"
#include "generator/document_generator.h"
#include "testing/recording_sink.h"

namespace tabulon::bench {
namespace {

constexpr int kKeys = 5000;
constexpr int kColumns = 10;
constexpr int kRows = 20;

struct ValidControl {
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control{sink, host};
    bool ready = false;

    ValidControl() {
        control.InitProperties();
        control.Show();
        GeneratedDocumentShape shape;
        shape.keys = kKeys;
        shape.valueColumns = kColumns;
        shape.rows = kRows;
        shape.invalidEvery = 0;
        ready = control.LoadXML(GenerateDocument(shape)) && sink.messages().empty();
    }
};

// Kept to the end of the process on purpose (see commit_bench.cpp).
ValidControl& Loaded() {
    static ValidControl* const loaded = new ValidControl();
    return *loaded;
}

// The first cell the gate reads.
xml::Node FirstCell(ValidControl& v) {
    const ValidityIndex& index = CoreOf(v.control).doc.validityIndex;
    return index.columns.empty() ? xml::Node() : index.columns.front().element.firstChild();
}

void BM_ValidationGate(benchmark::State& state) {
    ValidControl& v = Loaded();
    if (!v.ready) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    xml::Node cell = FirstCell(v);
    if (cell.empty()) state.SkipWithError("the document has no cell");
    for (auto _ : state) {
        state.PauseTiming();
        cell.setAttribute("Valid", "1");
        state.ResumeTiming();
        bool ok = false;
        ValidateGridValues(CoreOf(v.control), ok);
        if (!ok) state.SkipWithError("the gate found an invalid cell");
    }
    state.SetItemsProcessed(state.iterations() * kKeys * kColumns * kRows);
}
BENCHMARK(BM_ValidationGate)->Unit(benchmark::kMillisecond);

void BM_ValidationGateAfterShapeChange(benchmark::State& state) {
    ValidControl& v = Loaded();
    if (!v.ready) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    for (auto _ : state) {
        state.PauseTiming();
        CoreOf(v.control).doc.validityIndex.built = false;
        state.ResumeTiming();
        bool ok = false;
        ValidateGridValues(CoreOf(v.control), ok);
        if (!ok) state.SkipWithError("the gate found an invalid cell");
    }
    state.SetItemsProcessed(state.iterations() * kKeys * kColumns * kRows);
}
BENCHMARK(BM_ValidationGateAfterShapeChange)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon::bench
