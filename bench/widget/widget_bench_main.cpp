// tabulon_widget_bench: the control as a person drives it, timed. A real
// SpreadsheetWidget in a top-level window on Qt's offscreen platform gets real Qt
// events (QTest mouse and keys, wheel events, window resizes); each gesture is timed
// from its first event until every event it caused, the repaint included, has been
// delivered. The same gestures run on a stock anchor (QTreeWidget beside a
// QTableView over a QStandardItemModel holding the same grid) in the same run.
//
//   tabulon_widget_bench --documents DIR --out FILE [--sizes 1,10,50]
//       [--families grid,english,wide,tree] [--gestures a,b] [--subjects control,stock]
//       [--scale X] [--size WxH] [--generator PATH]
//
// Documents (tools/generator; written by `PATH generate` when --generator names the
// tabulon tool), written to DIR as widget_<family>_<N>mb.xml with a DTD-prefixed
// copy widget_<family>_<N>mb_dtd.xml, about N MB each:
//   grid     30 value columns x 50 rows, Metric, four layouts and custom units: the
//            grid gestures, undo and redo, a 50 x 20 paste, find, load and OK (the
//            document is saved over its file);
//   english  the same in English units: leaving a cell;
//   wide     1,000 value columns x 8 rows: the filter, View/Print, Tab and the
//            horizontal scroll bar across 1,000 columns;
//   tree     one value column x 2 rows, so that 50 MB hold over 100,000 tree nodes:
//            load, node clicks and resizing beside a big tree;
//   invalid  the grid document with about one value in 1,000 needing correction: F9.
// FILE gets one line per document, tab-separated:
//   document family size_mb bytes generate-arguments
// then one line per gesture, document and subject:
//   family size_mb gesture subject samples median_ms p95_ms note cpu_median_ms
// with subject "control" or "stock"; note says why a gesture has no figures ("no stock
// counterpart", or what went wrong); cpu_median_ms is the processor time the
// application's thread used, the median over the samples. The exit status is 1 when a
// gesture went wrong (it did not have its effect, or a message box came up that it
// does not show); no time is judged here: bench/compare.sh holds the goals.
#include <QApplication>
#include <QDir>
#include <QProcess>
#include <QTest>
#include <cstdio>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <memory>
#include <set>
#include <utility>

#include "bench_documents.h"
#include "control/control_access.h"
#include "control_subject.h"
#include "document/dtd.h"
#include "gestures.h"
#include "stock_subject.h"

namespace tabulon::bench {
namespace {

struct Family {
    const char* name;
    GeneratedDocumentShape shape;  // keys follow the size
    std::vector<std::string> gestures;
};

GeneratedDocumentShape Shape(int valueColumns, int rows, int gridHeaders, bool metric, int depth) {
    GeneratedDocumentShape shape;
    shape.valueColumns = valueColumns;
    shape.rows = rows;
    shape.gridHeaders = gridHeaders;
    shape.metric = metric;
    shape.customUnits = 4;
    shape.depth = depth;
    shape.seed = 21;
    return shape;
}

GeneratedDocumentShape WithInvalidCells(GeneratedDocumentShape shape, int every) {
    shape.invalidEvery = every;
    return shape;
}

std::vector<Family> Families() {
    return {
        {"grid", Shape(30, 50, 4, true, 4), {"load",          "settle",
                                             "click-cell",    "tab",
                                             "enter",         "type-textbox",
                                             "type-combobox", "type-unitnum",
                                             "type-unitdrop", "leave-metric",
                                             "node-click",    "vscroll-step",
                                             "hscroll-step",  "thumb-drag",
                                             "wheel",         "resize",
                                             "border-drag",   "undo",
                                             "redo",          "paste-50x20",
                                             "find",          "ok"}},
        {"english", Shape(30, 50, 4, false, 4), {"leave-english"}},
        {"invalid", WithInvalidCells(Shape(30, 50, 4, true, 4), 1000), {"next-invalid"}},
        // The filter last but View/Print: it hides columns the others go through.
        {"wide",
         Shape(1000, 8, 2, true, 3),
         {"load", "tab", "hscroll-step", "hthumb-drag", "filter", "print"}},
        {"tree", Shape(1, 2, 4, true, 4), {"load", "node-click", "resize"}},
    };
}

// Samples per gesture (before --scale); the warm-up is not counted.
int SampleCount(const std::string& gesture, int megabytes) {
    if (gesture == "load") return megabytes >= 10 ? 5 : 10;
    if (gesture == "ok") return 8;
    if (gesture == "print") return 10;
    if (gesture == "find" || gesture == "paste-50x20") return 20;
    if (gesture == "thumb-drag" || gesture == "hthumb-drag") return 52;
    if (gesture == "border-drag") return 40;
    if (gesture == "node-click" || gesture == "filter" || gesture == "resize") return 20;
    return 40;
}

struct Options {
    std::string documents;
    std::string out;
    std::vector<int> sizes = {1, 10, 50};
    std::set<std::string> families;
    std::set<std::string> gestures;
    std::set<std::string> subjects;  // "control", "stock"; empty: both
    double scale = 1.0;
    QSize window{1280, 800};
    std::string generator;  // the tabulon tool; empty: the generator library
};

std::vector<std::string> Split(const std::string& list) {
    std::vector<std::string> items;
    std::size_t from = 0;
    while (from <= list.size()) {
        const std::size_t comma = std::min(list.find(',', from), list.size());
        if (comma > from) items.push_back(list.substr(from, comma - from));
        from = comma + 1;
    }
    return items;
}

bool ParseOptions(int argc, char** argv, Options& options) {
    const std::map<std::string, std::function<bool(const std::string&)>> setters = {
        {"--documents", [&](const std::string& v) { return !(options.documents = v).empty(); }},
        {"--out", [&](const std::string& v) { return !(options.out = v).empty(); }},
        {"--sizes",
         [&](const std::string& v) {
             options.sizes.clear();
             for (const std::string& size : Split(v))
                 options.sizes.push_back(std::stoi(size));
             return true;
         }},
        {"--families",
         [&](const std::string& v) {
             for (const std::string& f : Split(v))
                 options.families.insert(f);
             return true;
         }},
        {"--gestures",
         [&](const std::string& v) {
             for (const std::string& g : Split(v))
                 options.gestures.insert(g);
             return true;
         }},
        {"--subjects",
         [&](const std::string& v) {
             for (const std::string& who : Split(v))
                 options.subjects.insert(who);
             return true;
         }},
        {"--scale", [&](const std::string& v) { return (options.scale = std::stod(v)) > 0; }},
        {"--generator", [&](const std::string& v) { return !(options.generator = v).empty(); }},
        {"--size",
         [&](const std::string& v) {
             int w = 0, h = 0;
             if (std::sscanf(v.c_str(), "%dx%d", &w, &h) != 2) return false;
             options.window = QSize(w, h);
             return true;
         }},
    };
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const std::size_t equals = arg.find('=');
        const auto setter = setters.find(arg.substr(0, equals));
        if (equals == std::string::npos || setter == setters.end() ||
            !setter->second(arg.substr(equals + 1))) {
            return false;
        }
    }
    return !options.documents.empty() && !options.out.empty();
}

class Report {
public:
    explicit Report(const std::string& path) : out_(path) {}
    bool good() const { return out_.good(); }
    // Gestures that went wrong (and documents that could not be written).
    int failures = 0;

    void document(const std::string& family, int megabytes, std::size_t bytes,
                  const std::string& arguments) {
        out_ << "document\t" << family << '\t' << megabytes << '\t' << bytes << '\t' << arguments
             << '\n';
        out_.flush();
    }

    void add(const std::string& family, int megabytes, const std::string& gesture,
             const char* subject, const Samples& samples, const std::string& note = {}) {
        char line[512];
        std::snprintf(line, sizeof line, "%s\t%d\t%s\t%s\t%zu\t%.4f\t%.4f\t%s\t%.4f\n",
                      family.c_str(), megabytes, gesture.c_str(), subject, samples.ms.size(),
                      samples.median(), samples.p95(), note.c_str(), samples.cpuMedian());
        out_ << line;
        out_.flush();
        std::fputs(line, stderr);
    }
    void add(const std::string& family, int megabytes, const std::string& gesture,
             const char* subject, const GestureRun& run) {
        if (!run.failure.empty() || run.samples.empty()) {
            if (!run.failure.empty()) ++failures;
            add(family, megabytes, gesture, subject, Samples{}, run.failure);
            return;
        }
        for (const auto& [kind, samples] : run.samples)
            add(family, megabytes, kind, subject, samples);
    }

private:
    std::ofstream out_;
};

void WriteText(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(text.data(), static_cast<std::streamsize>(text.size()));
}

std::string ReadText(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The arguments of `tabulon generate` that write the shape's document.
QStringList GenerateArguments(const GeneratedDocumentShape& shape) {
    const std::pair<const char*, std::uint64_t> counts[] = {{"--keys", shape.keys},
                                                            {"--cols", shape.valueColumns},
                                                            {"--rows", shape.rows},
                                                            {"--grids", shape.gridHeaders},
                                                            {"--custom-units", shape.customUnits},
                                                            {"--depth", shape.depth},
                                                            {"--seed", shape.seed}};
    QStringList args = {"generate"};
    for (const auto& [option, value] : counts)
        args << option << QString::number(value);
    if (shape.metric) args << "--metric";
    if (shape.invalidEvery > 0) args << "--invalid" << QString::number(shape.invalidEvery);
    return args;
}

// Writes the document and its DTD-prefixed copy; the text, empty when the tool failed.
std::string WriteDocument(const GeneratedDocumentShape& shape, const std::string& path,
                          const std::string& generator) {
    std::string text;
    if (generator.empty()) {
        text = GenerateDocument(shape);
        WriteText(path, text);
    } else {
        const int status =
            QProcess::execute(QString::fromStdString(generator),
                              GenerateArguments(shape) << "-o" << QString::fromStdString(path));
        if (status != 0) return {};
        text = ReadText(path);
    }
    WriteText(path.substr(0, path.size() - 4) + "_dtd.xml", JoinWithDtd(text));
    return text;
}

// Four nodes spread over the tree, the first and the last included.
std::vector<int> NodesToClick(const TreeView& tree) {
    std::vector<int> chosen;
    const int n = tree.count();
    for (const int node : {1, 1 + n / 3, 1 + 2 * n / 3, n}) {
        if (node >= 1 && (chosen.empty() || chosen.back() != node)) chosen.push_back(node);
    }
    return chosen;
}

GestureContext ContextOf(ControlSubject& control) {
    GestureContext context;
    context.grid = control.gridContents();
    context.node = control.selectedNode();
    const DocumentModel& doc = CoreOf(control.widget().control()).doc;
    for (std::size_t row = 1; row < doc.arrRowInfo.size(); ++row) {
        std::string kind(EditorKindInfo(doc.arrRowInfo[row].ControlType).name);
        for (char& ch : kind)
            ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
        if (!kind.empty() && context.editorRows.count(kind) == 0)
            context.editorRows[kind] = static_cast<int>(row);
    }
    context.nodes = NodesToClick(control.form().treTreeView);
    return context;
}

// Loads the document into a fresh widget each time (as a host does: a second
// document's custom units cannot be registered beside the first's), until its grid is
// painted; the last widget is kept for the gestures.
GestureRun TimeLoads(std::unique_ptr<ControlSubject>& control, QSize window,
                     const std::string& path, int count) {
    GestureRun run;
    for (int i = 0; i < count + 1; ++i) {
        control.reset();
        control = std::make_unique<ControlSubject>(window);
        const long long paints = DeliveredPaints();
        bool loaded = false;
        const auto load = [&] { loaded = control->widget().Load(QString::fromStdString(path)); };
        // Only the loads asked for go through the clock (a profiler counts what it times).
        GestureTime time;
        if (count > 0) {
            time = TimeGesture(load);
        } else {
            load();
            Settle();
        }
        if (!loaded || control->messages() != 0 || control->rows() < 2 ||
            DeliveredPaints() == paints) {
            run.failure =
                "the document did not load cleanly: " + control->lastMessage().toStdString();
            return run;
        }
        if (i > 0) run.samples["load"].add(time);
    }
    return run;
}

void Activate(QWidget& window) {
    window.activateWindow();
    (void)QTest::qWaitForWindowActive(&window);
    Settle();
}

void RunFamily(const Family& family, int megabytes, const Options& options, Report& report) {
    const std::string path =
        options.documents + "/widget_" + family.name + "_" + std::to_string(megabytes) + "mb.xml";
    {
        const GeneratedDocumentShape shape = SizedShape(family.shape, megabytes);
        const std::string text = WriteDocument(shape, path, options.generator);
        if (text.empty()) {
            std::fprintf(stderr, "could not generate %s\n", path.c_str());
            ++report.failures;
            return;
        }
        report.document(family.name, megabytes, text.size(),
                        GenerateArguments(shape).join(' ').toStdString());
    }
    std::vector<std::string> gestures;
    for (const std::string& g : family.gestures) {
        if (options.gestures.empty() || options.gestures.count(g) != 0) gestures.push_back(g);
    }
    if (gestures.empty()) return;
    const auto count = [&](const std::string& g) {
        return std::max(1, static_cast<int>(SampleCount(g, megabytes) * options.scale + 0.5));
    };

    std::unique_ptr<ControlSubject> loaded;
    const bool timeLoads = std::find(gestures.begin(), gestures.end(), "load") != gestures.end();
    const GestureRun loads = TimeLoads(loaded, options.window, path, timeLoads ? count("load") : 0);
    if (timeLoads) report.add(family.name, megabytes, "load", "control", loads);
    if (!loads.failure.empty()) return;

    ControlSubject& control = *loaded;
    GestureContext context = ContextOf(control);
    const int initial = control.selectedNode();
    std::map<int, GridContents> grids;
    for (const int node : context.nodes) {
        control.selectNode(node);
        grids[node] = control.gridContents();
    }
    control.selectNode(initial);
    grids[initial] = context.grid;
    QStringList entries;
    for (int i = 0; i < control.filter().count(); ++i)
        entries << control.filter().itemText(i);
    StockSubject stock(options.window, control.treeContents(), grids, entries, initial);

    for (const std::string& gesture : gestures) {
        if (gesture == "load") continue;
        Subject* subjects[] = {&control, &stock};
        const char* names[] = {"control", "stock"};
        for (int s = 0; s < 2; ++s) {
            if (!options.subjects.empty() && options.subjects.count(names[s]) == 0) continue;
            Activate(subjects[s]->window());
            subjects[s]->scrollHome();
            const std::optional<GesturePlan> plan = MakePlan(gesture, *subjects[s], context);
            if (!plan) {
                report.add(
                    family.name, megabytes, gesture, names[s], Samples{},
                    s == 1 ? "no stock counterpart" : "nothing to make it on in this document");
                continue;
            }
            report.add(family.name, megabytes, gesture, names[s],
                       RunPlan(gesture, *plan, *subjects[s], count(gesture), 3));
        }
    }
}

}  // namespace
}  // namespace tabulon::bench

int main(int argc, char** argv) {
    using namespace tabulon::bench;
    // The offscreen platform's notes on what it cannot do (raise, grab) are no news.
    qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
        if (type == QtWarningMsg && text.startsWith(QLatin1String("This plugin does not support")))
            return;
        std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    });
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    Options options;
    if (!ParseOptions(argc, argv, options)) {
        std::fputs(
            "usage: tabulon_widget_bench --documents=DIR --out=FILE [--sizes=1,10,50]\n"
            "       [--families=grid,english,wide,tree] [--gestures=a,b] "
            "[--subjects=control,stock]\n"
            "       [--scale=X] [--size=WxH] [--generator=PATH]\n",
            stderr);
        return 2;
    }
    InstallEventCounter();
    QDir().mkpath(QString::fromStdString(options.documents));
    Report report(options.out);
    if (!report.good()) return 1;
    for (const Family& family : Families()) {
        if (!options.families.empty() && options.families.count(family.name) == 0) continue;
        for (const int megabytes : options.sizes)
            RunFamily(family, megabytes, options, report);
    }
    return report.failures == 0 ? 0 : 1;
}
