#include "session/tool_runner.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "common/files.h"

namespace tabulon::testing {

namespace {

// Tests of one executable may run in parallel processes: names carry the process id.
std::filesystem::path TempPath(const std::string& name) {
    return std::filesystem::path(::testing::TempDir()) / (std::to_string(::getpid()) + "_" + name);
}

}  // namespace

std::string WriteTempFile(const std::string& name, const std::string& text) {
    const auto path = TempPath(name);
    std::ofstream(path, std::ios::binary) << text;
    return path.string();
}

ToolRun RunTool(const std::string& args, const std::string& input) {
    const std::string in = WriteTempFile("tabulon_session_in.txt", input);
    const auto out = TempPath("tabulon_session_out.txt");
    const auto err = TempPath("tabulon_session_err.txt");
    const std::string command = std::string("cd '") + TABULON_SOURCE_DIR + "' && '" +
                                TABULON_BINARY_DIR + "/apps/tabulon/tabulon' " + args + " <'" + in +
                                "' >'" + out.string() + "' 2>'" + err.string() + "'";
    const int raw = std::system(command.c_str());
    ToolRun run;
    run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
    run.out = ReadFileBytes(out);
    run.err = ReadFileBytes(err);
    return run;
}

SessionRun RunSession(const std::string& script) {
    const ToolRun tool = RunTool("session", script);
    SessionRun run{tool.status, ParseJsonLines(tool.out), tool.err};
    return run;
}

void ExpectUsageErrors(std::span<const char* const> argsList, const std::string& usage) {
    for (const char* args : argsList) {
        const ToolRun r = RunTool(args);
        EXPECT_EQ(r.status, 2) << args;
        EXPECT_NE(r.err.find(usage), std::string::npos) << args;
        EXPECT_EQ(r.out, "") << args;
    }
}

}  // namespace tabulon::testing
