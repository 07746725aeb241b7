// Runs the built `tabulon` tool from the repository root (where the samples' icon
// paths resolve) and collects what it printed and how it exited.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "session/json_lines.h"

namespace tabulon::testing {

struct ToolRun {
    int status = -1;
    std::string out;
    std::string err;
};

// `tabulon ARGS` with input on standard input; args is appended to the command line
// as it is (callers quote where needed).
ToolRun RunTool(const std::string& args, const std::string& input = "");

// Expects `tabulon ARGS` to exit with 2, print nothing on standard output and a
// message containing usage on standard error, for each of argsList.
void ExpectUsageErrors(std::span<const char* const> argsList, const std::string& usage);

// `tabulon session` with script on standard input; the JSON lines it printed.
struct SessionRun {
    int status = -1;
    std::vector<JsonValue> lines;
    std::string err;
};
SessionRun RunSession(const std::string& script);

// Writes text to a fresh file under the test's temporary folder; returns its path.
std::string WriteTempFile(const std::string& name, const std::string& text);

}  // namespace tabulon::testing
