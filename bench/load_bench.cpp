// Loading costs one pass over the text plus what the validating parse needs. LoadXML and
// Load of generated documents of about 1, 10 and 50 MB, each timed until the first grid
// is shown, against the floor measured in the same run: libxml2 reading the same
// DTD-prefixed text into a validated tree (xmlCtxtReadMemory with XML_PARSE_DTDVALID).
// The goal is at most 1.0x the floor on 50 MB.
//
// Each iteration loads into a fresh control (a control keeps the custom units of every
// load, so a second load of the same document into it fails by design). Creating and
// destroying the control and freeing the floor's tree are left out of the times, so
// neither side pays for tearing down.
//
// The BM_Stage* benchmarks time the stages of a load on their own, to show where the
// time goes.
#include <benchmark/benchmark.h>
#include <libxml/parser.h>

#include <memory>
#include <string>

#include "bench_documents.h"
#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "document/dtd.h"
#include "platform/xml/xml_document.h"
#include "platform/xml/xml_validator.h"
#include "testing/recording_host.h"
#include "testing/recording_sink.h"

namespace tabulon::bench {
namespace {

struct FreshControl {
    RecordingSink sink;
    HostEvents host;
    Generic_SP_Control control{sink, host};

    FreshControl() {
        control.InitProperties();
        control.Show();
    }
    bool GridShown() const {
        return sink.messages().empty() && CoreOf(control).doc.blnGridLoaded &&
               FormOf(control).msgGridView.enabled();
    }
};

void SetBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(bytes));
    state.SetLabel(std::to_string(bytes / 1024) + " KiB");
}

void BM_LoadXML(benchmark::State& state) {
    const int megabytes = static_cast<int>(state.range(0));
    const std::string& text = LoadDocumentOfSize(megabytes);
    for (auto _ : state) {
        state.PauseTiming();
        auto fresh = std::make_unique<FreshControl>();
        state.ResumeTiming();
        const bool loaded = fresh->control.LoadXML(text);
        state.PauseTiming();
        if (!loaded || !fresh->GridShown()) {
            state.SkipWithError("the generated document did not load cleanly");
            break;
        }
        fresh.reset();
        state.ResumeTiming();
    }
    SetBytes(state, text.size());
}

void BM_LoadFile(benchmark::State& state) {
    const int megabytes = static_cast<int>(state.range(0));
    const std::string& path = LoadFileOfSize(megabytes);
    for (auto _ : state) {
        state.PauseTiming();
        auto fresh = std::make_unique<FreshControl>();
        state.ResumeTiming();
        const bool loaded = fresh->control.Load(path);
        state.PauseTiming();
        if (!loaded || !fresh->GridShown()) {
            state.SkipWithError("the generated file did not load cleanly");
            break;
        }
        fresh.reset();
        state.ResumeTiming();
    }
    SetBytes(state, LoadDocumentOfSize(megabytes).size());
}

void BM_ValidatingParseFloor(benchmark::State& state) {
    const int megabytes = static_cast<int>(state.range(0));
    const std::string& text = DtdPrefixedDocumentOfSize(megabytes);
    xmlInitParser();
    for (auto _ : state) {
        xmlParserCtxtPtr context = xmlNewParserCtxt();
        xmlDocPtr document =
            xmlCtxtReadMemory(context, text.data(), static_cast<int>(text.size()), nullptr, nullptr,
                              XML_PARSE_DTDVALID | XML_PARSE_NONET);
        state.PauseTiming();
        const bool valid = document != nullptr && context->valid == 1;
        xmlFreeDoc(document);
        xmlFreeParserCtxt(context);
        if (!valid) {
            state.SkipWithError("libxml2 found the generated document invalid");
            break;
        }
        state.ResumeTiming();
    }
    SetBytes(state, LoadDocumentOfSize(megabytes).size());
}

// --- stages

void BM_StageParse(benchmark::State& state) {
    const std::string& text = LoadDocumentOfSize(static_cast<int>(state.range(0)));
    xml::Document document;
    for (auto _ : state) {
        if (!document.Parse(text)) state.SkipWithError("parse failed");
    }
    SetBytes(state, text.size());
}

void BM_StageSerialize(benchmark::State& state) {
    const std::string& text = LoadDocumentOfSize(static_cast<int>(state.range(0)));
    xml::Document document;
    if (!document.Parse(text)) state.SkipWithError("the generated document does not parse");
    for (auto _ : state) {
        benchmark::DoNotOptimize(document.Serialize());
    }
    SetBytes(state, text.size());
}

void BM_StageStreamingValidation(benchmark::State& state) {
    const std::string& text = LoadDocumentOfSize(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        if (!xml::ValidateWithDtd(JoinWithDtd(text)).ok) state.SkipWithError("invalid");
    }
    SetBytes(state, text.size());
}

void LoadSizes(benchmark::internal::Benchmark* benchmark) {
    for (const int megabytes : kLoadSizesMb)
        benchmark->Arg(megabytes);
    benchmark->Unit(benchmark::kMillisecond)->UseRealTime();
}

BENCHMARK(BM_LoadXML)->Apply(LoadSizes);
BENCHMARK(BM_LoadFile)->Apply(LoadSizes);
BENCHMARK(BM_ValidatingParseFloor)->Apply(LoadSizes);
BENCHMARK(BM_StageParse)->Apply(LoadSizes);
BENCHMARK(BM_StageSerialize)->Apply(LoadSizes);
BENCHMARK(BM_StageStreamingValidation)->Apply(LoadSizes);

}  // namespace
}  // namespace tabulon::bench
