// Selecting a tree node costs what the grid shows, not what the document holds: the
// same grid (4 value columns x 5 rows; every selection changes layout and values) on
// generated documents of 100, 10,000 and 100,000 tree nodes. The goal: the time per
// selection of the largest within 2x of the smallest.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>
#include <vector>

#include "bench_documents.h"
#include "control/document_loading.h"
#include "subcontrols/scroll_grid.h"
#include "testing/recording_sink.h"
#include "units/conversion_table.h"
#include "view/control_core.h"
#include "view/node_selection.h"

namespace tabulon::bench {
namespace {

GeneratedDocumentShape ShapeFor(int treeNodes) {
    GeneratedDocumentShape shape;
    shape.valueColumns = 4;
    shape.rows = 5;
    shape.gridHeaders = 3;
    shape.depth = 4;
    shape.keys = KeysForTreeNodes(shape, treeNodes);
    return shape;
}

// One control's state with a generated document loaded, kept for every run of a size.
struct LoadedDocument {
    RecordingSink sink;
    HostEvents host;
    ControlCore core{sink, host};
    std::vector<int> keyNodes;
    int treeNodes = 0;
    bool loaded = false;

    explicit LoadedDocument(int wantedNodes) {
        const GeneratedDocumentShape shape = ShapeFor(wantedNodes);
        keyNodes = GeneratedKeyNodeIndices(shape);
        treeNodes = GeneratedTreeNodeCount(shape);
        SetScrollGrid(&core.form.msgGridView);
        loaded = LoadDocumentText(core, GenerateDocument(shape)) && sink.messages().empty();
    }
};

LoadedDocument& Loaded(int treeNodes) {
    static std::map<int, std::unique_ptr<LoadedDocument>> documents;
    std::unique_ptr<LoadedDocument>& slot = documents[treeNodes];
    if (!slot) {
        if (!HasConversionTable()) BuildConversionTable();
        slot = std::make_unique<LoadedDocument>(treeNodes);
    }
    SetScrollGrid(&slot->core.form.msgGridView);
    return *slot;
}

void BM_SelectTreeNode(benchmark::State& state) {
    LoadedDocument& document = Loaded(static_cast<int>(state.range(0)));
    if (!document.loaded) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    // A stride prime to the layout count: every selection changes layout and values,
    // and the keys visited are spread over the whole document.
    constexpr std::size_t kStride = 7919;
    std::size_t key = 0;
    for (auto _ : state) {
        SelectTreeNode(document.core, document.keyNodes[key]);
        key = (key + kStride) % document.keyNodes.size();
    }
    if (!document.sink.messages().empty() || !document.core.doc.blnGridLoaded) {
        state.SkipWithError("a selection did not fill the grid cleanly");
    }
    state.SetLabel(std::to_string(document.treeNodes) + " tree nodes");
}

BENCHMARK(BM_SelectTreeNode)->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tabulon::bench
