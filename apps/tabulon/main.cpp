// tabulon: the command-line tool over the headless core. `tabulon --help` lists the
// subcommands. Exit status: 0 success, 1 a failure while working, 2 a usage error.
#include <array>
#include <exception>
#include <iostream>
#include <string_view>
#include <vector>

#include "command.h"

namespace tabulon::cli {
namespace {

constexpr int kUsageStatus = 2;

constexpr std::array kCommands = {
    Command{"convert", "VALUE NAME [--to-english]",
            "convert a value with a built-in conversion (English to Metric unless --to-english)",
            RunConvert},
    Command{"dtd", "", "print the built-in document type definition", RunDtd},
    Command{"export", "FILE [--csv OUT_DIR] [--xlsx WORKBOOK]",
            "write every node's grid as shown: one CSV file per node in OUT_DIR, one "
            "worksheet per node in WORKBOOK",
            RunExport},
    Command{"find", "FILE TEXT [--whole-cell] [--match-case]",
            "print every cell of every tree node's grid that shows TEXT", RunFind},
    Command{"generate",
            "--keys K --cols C --rows R [--grids G] [--metric] [--custom-units N] [--depth D] "
            "[--seed S] [--invalid I] [--host-checked H] [-o FILE]",
            "write a generated, valid document of that shape (deterministic)", RunGenerate},
    Command{"report", "FILE [--node KEY] [--filter ENTRY]",
            "print the View/Print report of a node's grid (CR LF lines)", RunReport},
    Command{"session", "[SCRIPT]",
            "drive headless controls with a script, print JSON lines (--help: commands)",
            RunSession},
    Command{"units", "[--tsv]", "list the built-in conversions", RunUnits},
    Command{"validate", "FILE [--text]",
            "load a document as a host does (--text: LoadXML) and summarise it", RunValidate},
};

const Command* FindCommand(std::string_view name) {
    for (const Command& command : kCommands) {
        if (command.name == name) return &command;
    }
    return nullptr;
}

void PrintUsageLine(std::ostream& err, const Command& command) {
    err << "usage: tabulon " << command.name;
    if (!command.arguments.empty()) err << ' ' << command.arguments;
    err << '\n';
}

void PrintHelp(std::ostream& out) {
    out << "usage: tabulon COMMAND [ARGUMENTS]\n\ncommands:\n";
    for (const Command& command : kCommands) {
        out << "  " << command.name;
        if (!command.arguments.empty()) out << ' ' << command.arguments;
        out << "\n      " << command.summary << '\n';
    }
}

int Main(const std::vector<std::string_view>& words) {
    if (words.empty()) {
        std::cerr << "usage: tabulon COMMAND [ARGUMENTS] (tabulon --help lists the commands)\n";
        return kUsageStatus;
    }
    if (words.front() == "--help" || words.front() == "-h" || words.front() == "help") {
        PrintHelp(std::cout);
        return 0;
    }
    const Command* command = FindCommand(words.front());
    if (command == nullptr) {
        std::cerr << "tabulon: unknown command \"" << words.front() << "\"\n"
                  << "usage: tabulon COMMAND [ARGUMENTS] (tabulon --help lists the commands)\n";
        return kUsageStatus;
    }
    const Arguments args(words.data() + 1, words.size() - 1);
    try {
        return command->run(args, std::cout, std::cerr);
    } catch (const UsageError& error) {
        if (*error.what() != '\0')
            std::cerr << "tabulon " << command->name << ": " << error.what() << '\n';
        PrintUsageLine(std::cerr, *command);
        return kUsageStatus;
    } catch (const std::exception& error) {
        std::cerr << "tabulon " << command->name << ": " << error.what() << '\n';
        return 1;
    }
}

}  // namespace
}  // namespace tabulon::cli

int main(int argc, char** argv) {
    std::vector<std::string_view> words;
    for (int i = 1; i < argc; ++i)
        words.emplace_back(argv[i]);
    const int status = tabulon::cli::Main(words);
    std::cout.flush();
    return std::cout.good() ? status : 1;
}
