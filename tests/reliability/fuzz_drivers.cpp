#include "reliability/fuzz_drivers.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "document/dtd_fast_check.h"
#include "document/validate_document_text.h"
#include "reliability/choice_source.h"
#include "reliability/gesture_script.h"
#include "session/session.h"
#include "support/failure.h"
#include "testing/recording_host.h"
#include "testing/recording_sink.h"

namespace tabulon::reliability {

namespace {

// Value cells clicked per node: enough to open every kind of editor in a small grid.
constexpr int kClickedRows = 3;
constexpr int kClickedCols = 2;

// Runs one host-facing call; an exception that gets out is a finding.
template <class Call>
void AsHost(DriverOutcome& outcome, std::string_view what, Call&& call) {
    try {
        call();
    } catch (...) {
        outcome.findings += std::string(what) + ": " + DescribeCurrentException() + "\n";
    }
}

void ClickFirstCells(DriverOutcome& outcome, FlexGrid& grid) {
    for (int row = 1; row <= kClickedRows && row < grid.rows(); ++row) {
        for (int col = 1; col <= kClickedCols && col < grid.cols(); ++col) {
            AsHost(outcome, "click", [&] {
                grid.userMouseMove(row, col);
                grid.userClick(row, col);
            });
        }
    }
    // Over the header row: the open editor is committed and hidden.
    if (grid.rows() >= 1 && grid.cols() >= 1) {
        AsHost(outcome, "mousemove", [&] { grid.userMouseMove(0, 0); });
    }
}

bool SendsKeys(std::string_view command) {
    return command.starts_with("key ") || command.starts_with("type ") ||
           command.starts_with("button-key ");
}

// The loader skips the validating parse for documents CertainlyValid accepts, so it
// must never accept one that parse would refuse.
void CheckQuickValidity(DriverOutcome& outcome, std::string_view bytes) {
    xml::Document parsed;
    if (!parsed.Parse(bytes) || !CertainlyValid(parsed)) return;
    RecordingSink sink;
    if (ValidateDocumentText(parsed.Serialize(), sink)) return;
    outcome.findings += "CertainlyValid accepted a document the validating parse refuses:";
    for (const RecordedMessage& message : sink.messages())
        outcome.findings += " " + message.text;
    outcome.findings += "\n";
}

}  // namespace

std::string UndoRedoFindings(Generic_SP_Control& control, const std::string& loaded) {
    constexpr int kMostSteps = 100000;
    for (int step = 0; control.CanRedo() && step < kMostSteps; ++step)
        control.Redo();
    const std::string edited = control.XML();
    for (int step = 0; control.CanUndo() && step < kMostSteps; ++step)
        control.Undo();
    if (control.XML() != loaded) return "undoing every step does not give the loaded document\n";
    for (int step = 0; control.CanRedo() && step < kMostSteps; ++step)
        control.Redo();
    if (control.XML() != edited) return "redoing every step does not give the edited document\n";
    return {};
}

std::string UnexpectedExceptions(std::string_view command, std::string_view printed) {
    static constexpr std::string_view kException = "{\"exception\": ";
    std::string findings;
    while (!printed.empty()) {
        const std::size_t end = printed.find('\n');
        const std::string_view line = printed.substr(0, end);
        printed = end == std::string_view::npos ? std::string_view() : printed.substr(end + 1);
        if (!line.starts_with(kException)) continue;
        const std::string_view what = line.substr(kException.size());
        const bool navigation =
            what == "\"Invalid Row value\"}" || what == "\"Invalid Col value\"}";
        if (navigation && SendsKeys(command)) continue;
        findings += std::string(command) + " -> " + std::string(line) + "\n";
    }
    return findings;
}

void AbortOnFinding(const DriverOutcome& outcome) {
    if (outcome.findings.empty()) return;
    std::fprintf(stderr, "finding:\n%s", outcome.findings.c_str());
    std::abort();
}

std::string SamplePath(std::string_view name) {
    return std::string(TABULON_SOURCE_DIR) + "/samples/" + std::string(name);
}

DriverOutcome RunLoadXmlInput(std::string_view bytes) {
    DriverOutcome outcome;
    CheckQuickValidity(outcome, bytes);
    RecordingSink sink;
    RecordingHost host;
    Generic_SP_Control control(sink, host);
    control.InitProperties();
    control.Show();
    std::string loaded;
    AsHost(outcome, "LoadXML", [&] { control.LoadXML(std::string(bytes)); });
    loaded = control.XML();
    TreeView& tree = FormOf(control).treTreeView;
    for (int index = 1; index <= tree.count(); ++index) {
        AsHost(outcome, "node click", [&] { tree.userClickNode(index); });
        ClickFirstCells(outcome, FormOf(control).msgGridView);
    }
    AsHost(outcome, "XML", [&] { (void)control.XML(); });
    AsHost(outcome, "undo and redo",
           [&] { outcome.findings += UndoRedoFindings(control, loaded); });
    return outcome;
}

DriverOutcome RunGestureInput(std::string_view bytes) {
    DriverOutcome outcome;
    ByteChoices choices(bytes);
    const std::string_view sample = kSampleNames[choices.Below(std::size(kSampleNames))];
    std::ostringstream out;
    cli::session::Session session(out);
    session.RunLine("loadxml " + QuoteWord(SamplePath(sample)));
    Generic_SP_Control& control = session.control();
    const std::string loaded = control.XML();
    const GestureScript script({.hostChanges = true, .extremeNumbers = true});
    while (!choices.exhausted() && outcome.commands < kMaxGestures) {
        out.str("");
        const std::string line = script.Next(session, choices);
        session.RunLine(line);
        ++outcome.commands;
        outcome.findings += UnexpectedExceptions(line, out.str());
    }
    AsHost(outcome, "undo and redo",
           [&] { outcome.findings += UndoRedoFindings(control, loaded); });
    return outcome;
}

}  // namespace tabulon::reliability
