// Painting the grid: the control's grid view painting a full 1920x1080 viewport of
// cells, against a stock QTableWidget holding the same texts, colours, alignments and
// cell sizes (fixed row and column as its headers, no frame, no scroll bars), both
// painted the same way in the same run: QWidget::render into a 1920x1080 image.
// Goals: the grid at most 1.0x the stock table's time per frame, and a repaint after
// scrolling by one row (the model's scroll and the new frame) under 8 ms.
//
// The cells come from a generated document loaded into a real control: 60 value
// columns x 80 rows, some cells disabled (grey text) or invalid (red background), the
// first grid shown, so the viewport is full and can scroll.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QTableWidget>
#include <memory>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "generator/document_generator.h"
#include "qt/bindings/binding_host.h"
#include "qt/bindings/grid_view.h"
#include "qt/qt_text.h"
#include "testing/recording_sink.h"

namespace tabulon::bench {
namespace {

constexpr int kViewportWidth = 1920;
constexpr int kViewportHeight = 1080;

// The widget host of the grid view: the control, the default 96 DPI scale, gestures
// run at once.
class BenchHost : public BindingHost {
public:
    explicit BenchHost(Generic_SP_Control& control) : control_(control) {}
    Generic_SP_Control& control() override { return control_; }
    const TwipsScale& scale() const override { return scale_; }
    void syncFocusToModel() override {}
    void runGesture(const std::function<void()>& gesture) override { gesture(); }
    void wheelOverGrid(const QWheelEvent&) override {}
    void mirrorLater(QObject*, std::function<void()> mirror) override { mirror(); }

private:
    Generic_SP_Control& control_;
    TwipsScale scale_;
};

QColor ToColor(Rgb rgb) {
    return QColor::fromRgb(static_cast<QRgb>(rgb));
}

struct Scene {
    RecordingSink sink;
    HostEvents events;
    Generic_SP_Control control{sink, events};
    BenchHost host{control};
    std::unique_ptr<GridView> view;
    std::unique_ptr<QTableWidget> table;
    QImage image{kViewportWidth, kViewportHeight, QImage::Format_ARGB32_Premultiplied};
    bool ready = false;

    Scene() {
        control.InitProperties();
        control.Show();
        GeneratedDocumentShape shape;
        shape.keys = 2;
        shape.valueColumns = 60;
        shape.rows = 80;
        shape.gridHeaders = 1;
        shape.invalidEvery = 9;
        if (!control.LoadXML(GenerateDocument(shape)) || !sink.messages().empty()) return;
        FlexGrid& grid = FormOf(control).msgGridView;
        const TwipsScale& scale = host.scale();
        grid.setWidth(scale.toTwipsX(kViewportWidth));
        grid.setHeight(scale.toTwipsY(kViewportHeight));
        view = std::make_unique<GridView>(host, grid, nullptr);
        view->resize(kViewportWidth, kViewportHeight);
        view->show();
        table = MakeStockTable(grid, scale);
        table->resize(kViewportWidth, kViewportHeight);
        table->show();
        QApplication::processEvents();
        ready = ViewportFull(grid);
    }

    // The same cells in a stock table: row 0 and column 0 become its headers.
    static std::unique_ptr<QTableWidget> MakeStockTable(const FlexGrid& grid,
                                                        const TwipsScale& scale) {
        auto table = std::make_unique<QTableWidget>(grid.rows() - 1, grid.cols() - 1);
        table->setFrameShape(QFrame::NoFrame);
        table->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        table->horizontalHeader()->setFixedHeight(scale.toPixelsY(grid.rowHeight(0)));
        table->verticalHeader()->setFixedWidth(scale.toPixelsX(grid.colWidth(0)));
        for (int col = 1; col < grid.cols(); ++col) {
            table->setHorizontalHeaderItem(col - 1,
                                           new QTableWidgetItem(ToQString(grid.cell(0, col).text)));
            table->horizontalHeader()->resizeSection(col - 1, scale.toPixelsX(grid.colWidth(col)));
        }
        for (int row = 1; row < grid.rows(); ++row) {
            table->setVerticalHeaderItem(row - 1,
                                         new QTableWidgetItem(ToQString(grid.cell(row, 0).text)));
            table->verticalHeader()->resizeSection(row - 1, scale.toPixelsY(grid.rowHeight(row)));
            for (int col = 1; col < grid.cols(); ++col) {
                const GridCell& cell = grid.cell(row, col);
                auto* item = new QTableWidgetItem(ToQString(cell.text));
                item->setBackground(ToColor(grid.cellBackColor(row, col)));
                item->setForeground(ToColor(cell.foreColor));
                item->setTextAlignment(GridView::TextAlignment(cell.alignment, cell.text));
                table->setItem(row - 1, col - 1, item);
            }
        }
        return table;
    }

    // Cells cover the whole viewport: rows and columns run past its edges.
    bool ViewportFull(const FlexGrid& grid) const {
        const int lastRow = view->rowsInView().back();
        const int lastCol = view->colsInView().back();
        const QRect corner = view->cellRect(lastRow, lastCol);
        return corner.bottom() >= kViewportHeight - 1 && corner.right() >= kViewportWidth - 1 &&
               lastRow + 1 < grid.rows();
    }
};

// Made once, on the thread that owns the QApplication, and kept to the end of the
// process on purpose (see commit_bench.cpp).
Scene& TheScene() {
    static Scene* const scene = new Scene();
    return *scene;
}

void BM_PaintGridViewport(benchmark::State& state) {
    Scene& scene = TheScene();
    if (!scene.ready) {
        state.SkipWithError("the generated document did not fill the viewport cleanly");
        return;
    }
    for (auto _ : state) {
        scene.view->render(&scene.image);
    }
    state.SetLabel(
        std::to_string(scene.view->rowsInView().size() * scene.view->colsInView().size()) +
        " cells");
}

void BM_PaintStockTableViewport(benchmark::State& state) {
    Scene& scene = TheScene();
    if (!scene.ready) {
        state.SkipWithError("the generated document did not fill the viewport cleanly");
        return;
    }
    for (auto _ : state) {
        scene.table->render(&scene.image);
    }
}

// One row down per frame until the last row shows, then one row up, and so on.
void BM_ScrollOneRowGridViewport(benchmark::State& state) {
    Scene& scene = TheScene();
    if (!scene.ready) {
        state.SkipWithError("the generated document did not fill the viewport cleanly");
        return;
    }
    FlexGrid& grid = FormOf(scene.control).msgGridView;
    int step = 1;
    for (auto _ : state) {
        const int before = grid.topRow();
        grid.userScroll(step, 0);
        if (grid.topRow() == before) {
            step = -step;
            grid.userScroll(step, 0);
        }
        scene.view->render(&scene.image);
    }
    if (!scene.sink.messages().empty()) state.SkipWithError("scrolling showed a message");
}

void BM_ScrollOneRowStockTable(benchmark::State& state) {
    Scene& scene = TheScene();
    if (!scene.ready) {
        state.SkipWithError("the generated document did not fill the viewport cleanly");
        return;
    }
    QScrollBar* bar = scene.table->verticalScrollBar();
    int step = 1;
    for (auto _ : state) {
        const int before = bar->value();
        bar->setValue(before + step);
        if (bar->value() == before) {
            step = -step;
            bar->setValue(before + step);
        }
        scene.table->render(&scene.image);
    }
}

BENCHMARK(BM_PaintGridViewport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PaintStockTableViewport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScrollOneRowGridViewport)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ScrollOneRowStockTable)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tabulon::bench

int main(int argc, char** argv) {
    // Painting needs no screen: Qt's offscreen platform unless one is chosen.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
