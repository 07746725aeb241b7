// Pasting a block in the real widget: a 50-row x 20-column block (1,000 cells) pasted
// with Ctrl+V's path (each cell through its editor and its commit, one undo step) into
// the grid of a document of 100,000 tree nodes, until the widget is repainted: the
// grid painted, then every posted event (the other widgets' repaints, the queued focus
// and cue updates) handled. Goal: under 50 ms. Undo then puts the document back in one step; the
// benchmark checks once that XML() is byte-identical afterwards and fails otherwise.
//
// The document: a generated one of a single key (20 value columns x 50 rows: text,
// pick lists, unit numbers and unit drop-downs, some cells disabled), Metric, with
// 100,000 more tree nodes showing the same grid. The block is the grid's own cells as
// a copy gives them, so every enabled cell takes a valid value.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <regex>

#include "control/control_access.h"
#include "generator/document_generator.h"
#include "qt/spreadsheet_widget.h"

namespace tabulon::bench {
namespace {

constexpr int kExtraTreeNodes = 100000;

std::string HundredThousandNodeDocument() {
    GeneratedDocumentShape shape;
    shape.keys = 1;
    shape.valueColumns = 20;
    shape.rows = 50;
    shape.gridHeaders = 1;
    shape.metric = true;
    shape.depth = 1;
    shape.seed = 2026;
    std::string xml = GenerateDocument(shape);
    std::smatch keys;
    std::regex_search(xml, keys, std::regex("GridHeaderKey=\"[^\"]*\" GridValueKey=\"[^\"]*\""));
    std::string nodes;
    for (int i = 0; i < kExtraTreeNodes; ++i) {
        nodes += "<Pnode Name=\"Copy " + std::to_string(i) + "\" KeyValue=\"COPY" +
                 std::to_string(i) + "\" " + keys.str() + " Filter=\"0\"/>\n";
    }
    xml.insert(xml.find("</TreeStructure>"), nodes);
    return xml;
}

struct PasteScene {
    SpreadsheetWidget widget;
    std::string block;
    std::string loaded;
    bool ready = false;

    PasteScene() {
        widget.setMessageHandler([](MessageIcon, const QString&) {});
        widget.resize(1280, 900);
        widget.show();
        QApplication::processEvents();
        if (!widget.LoadXML(QString::fromStdString(HundredThousandNodeDocument()))) return;
        const FlexGrid& grid = FormOf(widget.control()).msgGridView;
        ready = grid.rows() == 51 && grid.cols() == 21 &&
                FormOf(widget.control()).treTreeView.count() > kExtraTreeNodes;
        block = widget.control().CopyCells(1, 1, 50, 20).text;
        loaded = widget.control().XML();
        widget.control().SelectCells(1, 1, 1, 1);
    }
};

// Kept to the end of the process on purpose (see commit_bench.cpp).
PasteScene& TheScene() {
    static PasteScene* const scene = new PasteScene();
    return *scene;
}

void BM_PasteBlock50x20Into100kNodes(benchmark::State& state) {
    PasteScene& scene = TheScene();
    if (!scene.ready) return state.SkipWithError("the generated document did not load");
    Generic_SP_Control& control = scene.widget.control();
    QWidget* grid = scene.widget.widgetFor(FormOf(control).msgGridView);
    bool checked = false;
    for (auto _ : state) {
        const BlockEditReport report = control.PasteCells(scene.block);
        grid->repaint();
        QApplication::processEvents();
        state.PauseTiming();
        if (report.written == 0 || !control.Undo()) {
            state.SkipWithError("the paste wrote nothing or did not undo");
            break;
        }
        QApplication::processEvents();
        if (!checked && control.XML() != scene.loaded) {
            state.SkipWithError("undo did not restore the document byte for byte");
            break;
        }
        checked = true;
        control.SelectCells(1, 1, 1, 1);
        state.ResumeTiming();
    }
}
BENCHMARK(BM_PasteBlock50x20Into100kNodes)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon::bench
