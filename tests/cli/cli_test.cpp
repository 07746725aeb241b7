// Runs the built `tabulon` executable and checks what it prints and how it exits, beyond
// the examples docs/cli.md shows (which tests/docs runs as shown).
#include <gtest/gtest.h>

#include <string>

#include "common/files.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

TEST(TabulonCli, DtdAndConvertPrintTheirResult) {
    const std::pair<std::string, std::string> cases[] = {
        {"dtd", ReadFileBytes(DataFile("dtd/builtin.dtd"))},
        {"convert --to-english 100 F_TO_C", "212 F\n"},
        {"convert 7 ''", "7\n"},
    };
    for (const auto& [args, out] : cases) {
        const ToolRun r = RunTool(args);
        EXPECT_EQ(r.status, 0) << args;
        EXPECT_EQ(r.err, "") << args;
        EXPECT_EQ(r.out, out) << args;
    }
}

TEST(TabulonCli, UsageErrorsExitWithTwoAndAUsageLine) {
    const char* bad[] = {
        "",
        "frobnicate",
        "convert 10",
        "convert 1e999 FT_TO_M",
    };
    ExpectUsageErrors(bad, "usage: tabulon");
}

}  // namespace
}  // namespace tabulon::testing
