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

// `tabulon ARGS` (quoted by the caller) with input on standard input.
ToolRun RunTool(const std::string& args, const std::string& input = "");

// Each of argsList exits with 2, prints nothing and usage on standard error.
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
