// tabulon export FILE --csv OUT_DIR: loads FILE into a headless control as a host
// does and writes every grid as the user sees it into OUT_DIR, one CSV file per tree
// node that shows one (Generic_SP_Control::ExportCsv; names and contents in
// src/view/grid_export.h). Messages go to stderr as for validate. Exit status: 0
// when every file was written, 1 when the document did not load or a file could not
// be written, 2 for bad arguments.
#include <optional>
#include <string>

#include "command.h"
#include "headless_control.h"
#include "support/failure.h"

namespace tabulon::cli {

int RunExport(Arguments args, std::ostream& out, std::ostream& err) {
    std::optional<std::string> path;
    std::optional<std::string> csvDir;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--csv" && i + 1 < args.size()) {
            csvDir = std::string(args[++i]);
        } else if (!args[i].starts_with("--") && !path) {
            path = std::string(args[i]);
        } else {
            throw UsageError("unexpected argument \"" + std::string(args[i]) + "\"");
        }
    }
    if (!path) throw UsageError("FILE is missing");
    if (!csvDir) throw UsageError("--csv OUT_DIR is missing");

    HeadlessControl headless(err);
    Generic_SP_Control& control = headless.control();
    if (!control.Load(*path)) return 1;
    try {
        const int written = control.ExportCsv(*csvDir);
        out << written << " file(s) written to " << *csvDir << '\n';
    } catch (const RuntimeFailure& failure) {
        err << failure.what() << '\n';
        return 1;
    }
    return 0;
}

}  // namespace tabulon::cli
