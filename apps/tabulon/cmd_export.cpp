// tabulon export FILE [--csv OUT_DIR] [--xlsx WORKBOOK]: loads FILE into a headless
// control as a host does and writes every grid as the user sees it: one CSV file per
// tree node that shows one into OUT_DIR (Generic_SP_Control::ExportCsv; names and
// contents in src/view/grid_export.h), one worksheet per such node into the workbook
// WORKBOOK (ExportXlsx, src/view/grid_workbook.h); at least one of the two, both in
// that order. Messages go to stderr as for validate. Exit status: 0 when everything
// was written, 1 when the document did not load or a file could not be written, 2
// for bad arguments.
#include <optional>
#include <string>

#include "command.h"
#include "headless_control.h"
#include "support/failure.h"

namespace tabulon::cli {

int RunExport(Arguments args, std::ostream& out, std::ostream& err) {
    std::optional<std::string> path;
    std::optional<std::string> csvDir;
    std::optional<std::string> workbook;
    for (std::size_t i = 0; i < args.size(); ++i) {
        if (args[i] == "--csv" && i + 1 < args.size() && !csvDir) {
            csvDir = std::string(args[++i]);
        } else if (args[i] == "--xlsx" && i + 1 < args.size() && !workbook) {
            workbook = std::string(args[++i]);
        } else if (!args[i].starts_with("--") && !path) {
            path = std::string(args[i]);
        } else {
            throw UsageError("unexpected argument \"" + std::string(args[i]) + "\"");
        }
    }
    if (!path) throw UsageError("FILE is missing");
    if (!csvDir && !workbook) throw UsageError("--csv OUT_DIR or --xlsx WORKBOOK is missing");

    HeadlessControl headless(err);
    Generic_SP_Control& control = headless.control();
    if (!control.Load(*path)) return 1;
    try {
        if (csvDir) {
            const int written = control.ExportCsv(*csvDir);
            out << written << " file(s) written to " << *csvDir << '\n';
        }
        if (workbook) {
            const int sheets = control.ExportXlsx(*workbook);
            out << sheets << " worksheet(s) written to " << *workbook << '\n';
        }
    } catch (const RuntimeFailure& failure) {
        err << failure.what() << '\n';
        return 1;
    }
    return 0;
}

}  // namespace tabulon::cli
