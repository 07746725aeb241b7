// The saving gate walks every CellValue of the document on each OK and View/Print:
// cells per second of FindFirstInvalidCell over a fully valid generated document of
// about five million cells (the whole document is scanned). The goal is at least 20
// million cells per second.
#include <benchmark/benchmark.h>

#include <memory>

#include "document/document_generator.h"
#include "document/document_model.h"
#include "document/document_reading.h"
#include "document/validation_scan.h"

namespace tabulon {
namespace {

DocumentModel& ValidDocument() {
    static const std::unique_ptr<DocumentModel> doc = [] {
        GeneratedDocumentShape shape;
        shape.treeNodes = 5000;
        shape.nodesPerGroup = 1;
        shape.valueColumns = 50;
        shape.rows = 20;
        std::string text = GenerateDocument(shape);
        // Generated documents carry some invalid cells; make every cell valid so that
        // the scan runs to the end.
        for (std::size_t at = 0; (at = text.find("Valid=\"0\"", at)) != std::string::npos;) {
            text[at + 7] = '1';
        }
        auto model = std::make_unique<DocumentModel>();
        model->objXMLDoc = std::make_unique<xml::Document>();
        if (!model->objXMLDoc->Parse(text)) return std::unique_ptr<DocumentModel>();
        IndexGridStructure(*model,
                           model->objXMLDoc->documentElement().firstChildElement("GridStructure"));
        return model;
    }();
    return *doc;
}

void BM_FindFirstInvalidCell(benchmark::State& state) {
    const DocumentModel& doc = ValidDocument();
    std::int64_t cells = 0;
    for (const xml::Node& column : doc.arrGridValueNodes) {
        for (xml::Node values = column.firstChild(); values; values = values.nextSibling()) {
            cells += static_cast<std::int64_t>(values.childCount());
        }
    }
    for (auto _ : state) {
        benchmark::DoNotOptimize(FindFirstInvalidCell(doc));
    }
    state.counters["cells/s"] = benchmark::Counter(static_cast<double>(cells),
                                                   benchmark::Counter::kIsIterationInvariantRate);
}
BENCHMARK(BM_FindFirstInvalidCell)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon
