// tabulon session [SCRIPT]: runs a script of host calls and user gestures against
// headless controls and prints what happens as JSON lines (session/). Without SCRIPT
// the script is read from standard input; `tabulon session --help` lists the
// commands.
#include <fstream>
#include <iostream>
#include <string>

#include "command.h"
#include "session/command_table.h"
#include "session/session.h"

namespace tabulon::cli {

int RunSession(Arguments args, std::ostream& out, std::ostream& /*err*/) {
    if (args.size() > 1) throw UsageError("takes at most one SCRIPT");
    if (!args.empty() && (args[0] == "--help" || args[0] == "-h")) {
        session::PrintScriptHelp(out);
        return 0;
    }
    session::Session session(out);
    if (args.empty()) return session.Run(std::cin);
    const std::string path(args[0]);
    std::ifstream script(path, std::ios::binary);
    if (!script) throw UsageError("cannot open script \"" + path + "\"");
    return session.Run(script);
}

}  // namespace tabulon::cli
