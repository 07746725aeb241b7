// tabulon find FILE TEXT [--whole-cell] [--match-case]: loads FILE into a headless
// control (Load with the path) and prints every cell of every tree node's grid whose
// shown text holds TEXT (captions and values as the grid shows them, Metric
// included), one per line in tree order, as validate names cells:
//     node "KEY", row R, column C: TEXT
// (row 0 holds the column captions, column 0 the row captions). Message boxes
// go to stderr. Exit status: 0 when something was found, 1 when nothing was (or the
// document did not load), 2 for bad arguments.
#include <optional>
#include <string>
#include <vector>

#include "command.h"
#include "headless_control.h"

namespace tabulon::cli {

int RunFind(Arguments args, std::ostream& out, std::ostream& err) {
    std::vector<std::string> words;
    FindOptions options;
    for (const std::string_view arg : args) {
        if (arg == "--whole-cell") {
            options.wholeCell = true;
        } else if (arg == "--match-case") {
            options.matchCase = true;
        } else if (!arg.starts_with("--") && words.size() < 2) {
            words.emplace_back(arg);
        } else {
            throw UsageError("unexpected argument \"" + std::string(arg) + "\"");
        }
    }
    if (words.size() < 2) throw UsageError(words.empty() ? "FILE is missing" : "TEXT is missing");

    HeadlessControl headless(err);
    Generic_SP_Control& control = headless.control();
    if (!control.Load(words[0])) return 1;
    const std::vector<FindHit> hits = control.Find(words[1], options);
    for (const FindHit& hit : hits)
        out << "node \"" << hit.nodeKey << "\", row " << hit.row << ", column " << hit.col << ": "
            << hit.text << '\n';
    return hits.empty() ? 1 : 0;
}

}  // namespace tabulon::cli
