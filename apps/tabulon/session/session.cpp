#include "session/session.h"

#include <cerrno>
#include <cstring>
#include <string>

#include "session/command_table.h"
#include "session/script_error.h"
#include "support/failure.h"

namespace tabulon::cli::session {

int Session::Run(std::istream& script) {
    std::string line;
    std::size_t number = 0;
    for (errno = 0; std::getline(script, line); errno = 0) {
        ++number;
        if (!line.empty() && line.back() == '\r') line.pop_back();
        RunLine(line);
    }
    // A stream that stopped before its end (a folder, an I/O error, a line too long
    // for memory, which the stream turns into a read failure) ran only part of the
    // script: an error, never a clean exit.
    if (!script.eof()) {
        const int cause = errno;
        std::string().swap(line);
        StartIfFirst(false);
        output_.Error("cannot read the script at line " + std::to_string(number + 1) + ": " +
                      (cause == ENOMEM ? "the line does not fit in memory"
                       : cause != 0    ? std::strerror(cause)
                                       : "read error"));
    }
    return output_.hadError() ? 2 : 0;
}

void Session::StartIfFirst(bool createsInstance) {
    if (started_) return;
    started_ = true;
    if (createsInstance) return;
    try {
        instances_.Create(false, std::nullopt, nullptr);
        control().Show();
    } catch (...) {
        output_.Exception(DescribeCurrentException());
    }
}

void Session::RunLine(std::string_view line) {
    const LexResult lexed = SplitScriptLine(line);
    if (!lexed.error.empty()) {
        StartIfFirst(false);
        output_.Error(lexed.error);
        return;
    }
    if (lexed.words.empty()) return;
    const std::string& name = lexed.words.front().text;
    const ScriptCommand* command = FindScriptCommand(name);
    StartIfFirst(command != nullptr && command->createsInstance);
    if (command == nullptr) {
        output_.Error("unknown command \"" + name + "\"");
        return;
    }
    const Args args = Args(lexed.words).subspan(1);
    const auto count = static_cast<int>(args.size());
    if (count < command->minArgs || count > command->maxArgs) {
        output_.Error(UsageText(*command));
        return;
    }
    try {
        command->run(*this, args);
    } catch (const ScriptError& error) {
        output_.Error(error.what());
    } catch (...) {
        output_.Exception(DescribeCurrentException());
    }
}

}  // namespace tabulon::cli::session
