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

// Exported again, the files are replaced as a document is saved: a file keeps its
// permissions, a read-only one is refused and left as it was.
TEST(TabulonCli, ExportReplacesFilesAsASaveDoes) {
    using std::filesystem::perms;
    const TempDir dir;
    const std::string replaced = dir.write("000001_SUITE.csv", "old");
    std::filesystem::permissions(replaced, perms::owner_read | perms::owner_write);
    const std::string kept = dir.write("000004_UTILITIES.csv", "old");
    std::filesystem::permissions(kept, perms::owner_read | perms::group_read);
    const ToolRun r = RunTool("export samples/metric.xml --csv " + dir.path().string());
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Cannot save " + kept + ": the file is read-only\n");
    EXPECT_TRUE(ReadFileBytes(replaced).starts_with("Room,Zone A,Zone B\r\n"));
    EXPECT_EQ(std::filesystem::status(replaced).permissions(),
              perms::owner_read | perms::owner_write);
    EXPECT_EQ(ReadFileBytes(kept), "old");
    EXPECT_EQ(RunTool("export samples/metric.xml").status, 2);
}

TEST(TabulonCli, UsageErrorsExitWithTwoAndAUsageLine) {
    const char* bad[] = {
        "",
        "frobnicate",
        "dtd extra",
        "convert 10",
        "convert 10m FT_TO_M",
        "convert 10 FT_TO_M --to-metric",
        "convert 1e999 FT_TO_M",
    };
    ExpectUsageErrors(bad, "usage: tabulon");
}

TEST(TabulonCli, HelpListsTheSubcommands) {
    const ToolRun r = RunTool("--help");
    EXPECT_EQ(r.status, 0);
    for (const char* name : {"convert", "dtd", "units"}) {
        EXPECT_NE(r.out.find(std::string("  ") + name), std::string::npos) << name;
    }
}

}  // namespace
}  // namespace tabulon::testing
