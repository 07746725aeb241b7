// The commands of a session script. Each group of commands lives in its own file and
// hands its rows to the one table that the session looks commands up in and that
// `tabulon session --help` prints.
#pragma once

#include <limits>
#include <ostream>
#include <span>
#include <string_view>

#include "session/script_lexer.h"

namespace tabulon::cli::session {

class Session;
using Args = std::span<const Word>;
using CommandHandler = void (*)(Session& session, Args args);

inline constexpr int kAnyCount = std::numeric_limits<int>::max();

struct ScriptCommand {
    std::string_view name;
    std::string_view synopsis;  // the arguments, for usage lines and help
    std::string_view help;      // what the command does, for help
    int minArgs;
    int maxArgs;           // kAnyCount: no limit
    bool createsInstance;  // new, new-restore, add-instance
    CommandHandler run;
};

// The groups, one per file.
std::span<const ScriptCommand> InstanceCommands();
std::span<const ScriptCommand> HostCallCommands();
std::span<const ScriptCommand> GestureCommands();
std::span<const ScriptCommand> BlockCommands();
std::span<const ScriptCommand> DumpCommands();
std::span<const ScriptCommand> PageCommands();
std::span<const ScriptCommand> ProblemCommands();

// The command with that exact name; nullptr when there is none.
const ScriptCommand* FindScriptCommand(std::string_view name);

// "usage: NAME SYNOPSIS".
std::string UsageText(const ScriptCommand& command);

// Every command with its synopsis and help, grouped.
void PrintScriptHelp(std::ostream& out);

}  // namespace tabulon::cli::session
