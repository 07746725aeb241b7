// Selecting a tree node costs what the grid shows, not what the document holds: the
// same grid (4 value columns x 5 rows, a new layout and new values on every
// selection) on generated documents of 100, 10,000 and 100,000 tree nodes. The times
// per selection should stay within a factor of two of each other.
#include <benchmark/benchmark.h>

#include <map>
#include <memory>

#include "control/document_loading.h"
#include "document/document_generator.h"
#include "platform/recording_sink.h"
#include "units/conversion_table.h"
#include "view/control_core.h"
#include "view/node_selection.h"
#include "widgets/scroll_grid.h"

namespace tabulon {
namespace {

GeneratedDocumentShape ShapeFor(int treeNodes) {
    GeneratedDocumentShape shape;
    shape.treeNodes = treeNodes;
    shape.nodesPerGroup = 10;
    shape.gridHeaders = 2;
    shape.valueColumns = 4;
    shape.rows = 5;
    return shape;
}

// One control's state with a generated document loaded, kept for every run of a size.
struct LoadedDocument {
    RecordingSink sink;
    HostEvents host;
    ControlCore core{sink, host};
    bool loaded = false;

    explicit LoadedDocument(int treeNodes) {
        SetScrollGrid(&core.form.msgGridView);
        loaded = LoadDocumentText(core, GenerateDocument(ShapeFor(treeNodes))) &&
                 sink.messages().empty();
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
    const int treeNodes = static_cast<int>(state.range(0));
    LoadedDocument& document = Loaded(treeNodes);
    if (!document.loaded) {
        state.SkipWithError("the generated document did not load cleanly");
        return;
    }
    const GeneratedDocumentShape shape = ShapeFor(treeNodes);
    const int groups = GeneratedGroupCount(shape);
    // An odd stride: every selection changes layout and values, and the groups
    // visited are spread over the whole document.
    constexpr int kStride = 7919;
    int group = 0;
    for (auto _ : state) {
        SelectTreeNode(document.core, GeneratedGroupNodeIndex(shape, group));
        group = (group + kStride) % groups;
    }
    if (!document.sink.messages().empty() || !document.core.doc.blnGridLoaded) {
        state.SkipWithError("a selection did not fill the grid cleanly");
    }
    state.counters["tree_nodes"] = treeNodes;
}

BENCHMARK(BM_SelectTreeNode)->Arg(100)->Arg(10000)->Arg(100000)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tabulon
