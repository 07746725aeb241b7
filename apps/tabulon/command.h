// The subcommands of the `tabulon` tool. Each lives in its own cmd_*.cpp and is
// listed once in the table in main.cpp.
#pragma once

#include <ostream>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tabulon::cli {

// The arguments after the subcommand name.
using Arguments = std::span<const std::string_view>;

// Thrown by a subcommand for missing or bad arguments. main prints the message (when
// there is one) and the subcommand's usage line on stderr and exits with 2.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const std::string& message = {}) : std::runtime_error(message) {}
};

// Runs a subcommand; returns the exit status. Output goes to out, diagnostics to err.
using CommandFunction = int (*)(Arguments args, std::ostream& out, std::ostream& err);

struct Command {
    std::string_view name;
    std::string_view arguments;  // shown after the name in the usage line
    std::string_view summary;    // one line for --help
    CommandFunction run;
};

int RunConvert(Arguments args, std::ostream& out, std::ostream& err);
int RunDtd(Arguments args, std::ostream& out, std::ostream& err);
int RunExport(Arguments args, std::ostream& out, std::ostream& err);
int RunFind(Arguments args, std::ostream& out, std::ostream& err);
int RunGenerate(Arguments args, std::ostream& out, std::ostream& err);
int RunReport(Arguments args, std::ostream& out, std::ostream& err);
int RunSession(Arguments args, std::ostream& out, std::ostream& err);
int RunUnits(Arguments args, std::ostream& out, std::ostream& err);
int RunValidate(Arguments args, std::ostream& out, std::ostream& err);

}  // namespace tabulon::cli
