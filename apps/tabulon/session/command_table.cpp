#include "session/command_table.h"

#include <array>
#include <string>

namespace tabulon::cli::session {

namespace {

struct Group {
    std::string_view title;
    std::span<const ScriptCommand> (*commands)();
};

constexpr std::array<Group, 7> kGroups = {{
    {"Instances", InstanceCommands},
    {"Host calls (print {\"result\": ...} where the member has one)", HostCallCommands},
    {"User gestures and host behaviour", GestureCommands},
    {"Values that need correcting, and find", ProblemCommands},
    {"Ranges, copy and paste (reports print as {\"result\": {written, beyond_grid, skipped}})",
     BlockCommands},
    {"Property pages", PageCommands},
    {"Dumps (one JSON object each)", DumpCommands},
}};

// Breaks text into lines of at most width characters at blanks, each indented.
void PrintWrapped(std::ostream& out, std::string_view text, std::size_t indent, std::size_t width) {
    std::string line;
    std::size_t pos = 0;
    while (pos < text.size()) {
        std::size_t end = text.find(' ', pos);
        if (end == std::string_view::npos) end = text.size();
        const std::string_view word = text.substr(pos, end - pos);
        if (!line.empty() && line.size() + 1 + word.size() > width) {
            out << std::string(indent, ' ') << line << '\n';
            line.clear();
        }
        if (!line.empty()) line += ' ';
        line += word;
        pos = end + 1;
    }
    if (!line.empty()) out << std::string(indent, ' ') << line << '\n';
}

}  // namespace

const ScriptCommand* FindScriptCommand(std::string_view name) {
    for (const Group& group : kGroups) {
        for (const ScriptCommand& command : group.commands()) {
            if (command.name == name) return &command;
        }
    }
    return nullptr;
}

std::string UsageText(const ScriptCommand& command) {
    std::string text = "usage: " + std::string(command.name);
    if (!command.synopsis.empty()) text += " " + std::string(command.synopsis);
    return text;
}

void PrintScriptHelp(std::ostream& out) {
    out << "usage: tabulon session [SCRIPT]\n\n"
           "Runs a script (a file, or standard input) of one command per line against\n"
           "headless controls and prints one JSON object per line, in the order things\n"
           "happen: {\"msg\": ...} message boxes, {\"event\": ...} events, {\"changed\": ...}\n"
           "property notices, {\"result\": ...}, {\"exception\": ...}, {\"dump\": ...} and\n"
           "{\"error\": ...} for a malformed command. Blank lines and lines starting with #\n"
           "are skipped; a word in double quotes may hold blanks and the escapes \\\" \\\\ \\r\n"
           "\\n \\t. A script whose first command is not new, new-restore or add-instance\n"
           "gets new and show first. Exit status 2 when a command was malformed, else 0.\n";
    for (const Group& group : kGroups) {
        out << '\n' << group.title << ":\n";
        for (const ScriptCommand& command : group.commands()) {
            out << "  " << command.name;
            if (!command.synopsis.empty()) out << ' ' << command.synopsis;
            out << '\n';
            PrintWrapped(out, command.help, 6, 74);
        }
    }
}

}  // namespace tabulon::cli::session
