// The benchmarks' entry point: Google Benchmark's, after taking out the one flag of
// our own (--tabulon_documents=DIR, see bench_documents.h).
#include <benchmark/benchmark.h>

#include "bench_documents.h"

int main(int argc, char** argv) {
    tabulon::bench::TakeDocumentFolderArgument(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
