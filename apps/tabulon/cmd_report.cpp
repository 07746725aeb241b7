// tabulon report FILE [--node KEY] [--filter ENTRY]: loads FILE into a headless
// control, selects the tree node KEY (default: the first node, which loading selects),
// chooses ENTRY in the filter combo, runs the View/Print handler and writes the report
// text exactly as PrintClick carries it (bytes, CR LF line ends) on stdout. Message
// boxes go to stderr as "information: TEXT" / "critical: TEXT" lines. Exit status: 0
// when PrintClick was raised, 1 when it was not (the document did not load, KEY or
// ENTRY is not there, validation failed, the grid is empty ...), 2 for bad arguments.
#include <optional>
#include <string>

#include "command.h"
#include "control/control_access.h"
#include "control/save_gate.h"
#include "headless_control.h"
#include "testing/recording_host.h"

namespace tabulon::cli {

namespace {

struct ReportArguments {
    std::string path;
    std::optional<std::string> node;
    std::optional<std::string> filter;
};

ReportArguments ParseArguments(Arguments args) {
    ReportArguments parsed;
    bool havePath = false;
    for (std::size_t i = 0; i < args.size(); ++i) {
        const std::string_view arg = args[i];
        if (arg == "--node" || arg == "--filter") {
            if (i + 1 == args.size()) throw UsageError(std::string(arg) + " needs a value");
            (arg == "--node" ? parsed.node : parsed.filter) = std::string(args[++i]);
        } else if (!arg.starts_with("--") && !havePath) {
            parsed.path = std::string(arg);
            havePath = true;
        } else {
            throw UsageError("unexpected argument \"" + std::string(arg) + "\"");
        }
    }
    if (!havePath) throw UsageError("FILE is missing");
    return parsed;
}

}  // namespace

int RunReport(Arguments args, std::ostream& out, std::ostream& err) {
    const ReportArguments parsed = ParseArguments(args);
    HeadlessControl headless(err);
    Generic_SP_Control& control = headless.control();
    if (!control.Load(parsed.path)) return 1;
    Form& form = FormOf(control);
    if (parsed.node) {
        const int index = form.treTreeView.indexOf(*parsed.node);
        if (index == 0) {
            err << "tabulon report: no tree node with key \"" << *parsed.node << "\"\n";
            return 1;
        }
        form.treTreeView.userClickNode(index);
    }
    if (parsed.filter) {
        if (!form.fraFilterView.visible()) {
            err << "tabulon report: the node shows no filter\n";
            return 1;
        }
        if (!form.cboFilter.userPick(*parsed.filter)) {
            err << "tabulon report: the filter has no entry \"" << *parsed.filter << "\"\n";
            return 1;
        }
    }
    PrintButtonClick(CoreOf(control));
    const std::vector<RecordedEvent> prints = headless.host().eventsOf(HostEventKind::PrintClick);
    if (prints.empty()) return 1;
    const std::string& report = prints.front().text;
    out.write(report.data(), static_cast<std::streamsize>(report.size()));
    return 0;
}

}  // namespace tabulon::cli
