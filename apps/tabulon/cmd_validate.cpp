// tabulon validate FILE [--text]: loads FILE into a headless control as a host does
// (Load with the path, or with --text LoadXML with the file's text), writes every
// message box to stderr as "information: TEXT" / "critical: TEXT", and prints one
// summary line on stdout:
//     tree N nodes; grid R rows x C cols for node "KEY"
// or, when no grid could be shown,
//     tree N nodes; no grid shown
// then one line for every value that needs correcting (Valid not "1"), in the order
// OK finds them, with the tree node, row and column captions that show it and why:
//     invalid: node "KEY", row "CAPTION", column "CAPTION": REASON
// or, for a value no tree node shows,
//     invalid: GridValue N, GridValueKey "KEY", row R (no node shows it): REASON
// Exit status: 0 when the document loaded and the grid of the first node was shown,
// 1 otherwise, 2 for bad arguments (also for a file that --text cannot read).
#include <optional>
#include <string>

#include "command.h"
#include "control/control_access.h"
#include "headless_control.h"
#include "view/problem_walk.h"

namespace tabulon::cli {

int RunValidate(Arguments args, std::ostream& out, std::ostream& err) {
    std::optional<std::string> path;
    bool asText = false;
    for (const std::string_view arg : args) {
        if (arg == "--text") {
            asText = true;
        } else if (!arg.starts_with("--") && !path) {
            path = std::string(arg);
        } else {
            throw UsageError("unexpected argument \"" + std::string(arg) + "\"");
        }
    }
    if (!path) throw UsageError("FILE is missing");
    std::optional<std::string> text;
    if (asText) {
        text = ReadWholeFile(*path);
        if (!text) throw UsageError("cannot read \"" + *path + "\"");
    }

    HeadlessControl headless(err);
    Generic_SP_Control& control = headless.control();
    const bool loaded = asText ? control.LoadXML(*text) : control.Load(*path);
    const Form& form = FormOf(control);
    const TreeView& tree = form.treTreeView;
    const FlexGrid& grid = form.msgGridView;
    const bool shown = loaded && CoreOf(control).doc.blnGridLoaded && grid.enabled();

    out << "tree " << tree.count() << " nodes; ";
    if (shown) {
        const int selected = tree.selectedIndex();
        out << "grid " << grid.rows() << " rows x " << grid.cols() << " cols for node \""
            << (selected == 0 ? std::string() : tree.node(selected).key) << "\"\n";
    } else {
        out << "no grid shown\n";
    }
    if (loaded) {
        for (const ProblemCell& cell : ListProblems(CoreOf(control))) {
            out << "invalid: ";
            if (cell.node != 0) {
                out << "node \"" << tree.node(cell.node).key << "\", row \"" << cell.rowCaption
                    << "\", column \"" << cell.columnCaption << "\"";
            } else {
                out << "GridValue " << cell.gridValue + 1 << ", GridValueKey \"" << cell.key
                    << "\", row " << cell.row << " (no node shows it)";
            }
            out << ": " << cell.reason << '\n';
        }
    }
    return shown ? 0 : 1;
}

}  // namespace tabulon::cli
