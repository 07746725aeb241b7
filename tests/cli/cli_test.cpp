// Runs the built `tabulon` executable and checks what it prints and how it exits.
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>

#include "common/files.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

TEST(TabulonCli, DtdIsTheBuiltInDefinitionByteForByte) {
    const ToolRun r = RunTool("dtd");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, ReadFileBytes(DataFile("dtd/builtin.dtd")));
    EXPECT_EQ(r.err, "");
}

TEST(TabulonCli, UnitsTsvHasAHeaderAndOneLinePerConversion) {
    const ToolRun r = RunTool("units --tsv");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(std::count(r.out.begin(), r.out.end(), '\n'), 64);
    std::istringstream lines(r.out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "index\tname\tfactor\toffset\tenglish\tmetric");
    std::getline(lines, line);
    EXPECT_EQ(line, "1\tSQFT_TO_SQM\t0.09290304\t0\tsq ft\tsq m");
}

TEST(TabulonCli, ConvertPrintsTheValueAndTheTargetLabel) {
    struct Case {
        const char* args;
        const char* out;
    };
    const Case cases[] = {
        {"convert 10 FT_TO_M", "3.048 m\n"},
        {"convert 3.048 ft_to_m --to-english", "10 ft\n"},
        {"convert --to-english 100 F_TO_C", "212 F\n"},
        {"convert -40 F_TO_C", "-40 C\n"},
        {"convert 7 ''", "7\n"},
    };
    for (const Case& c : cases) {
        const ToolRun r = RunTool(c.args);
        EXPECT_EQ(r.status, 0) << c.args << ": " << r.err;
        EXPECT_EQ(r.out, c.out) << c.args;
    }
}

// One CSV per node showing a grid, in tree order: captions with the row's unit in the
// document's system, values as shown, quoted where a comma needs it.
TEST(TabulonCli, ExportWritesEveryGridAsShown) {
    const TempDir dir;
    const ToolRun r = RunTool("export samples/metric.xml --csv " + (dir.path() / "out").string());
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "4 file(s) written to " + (dir.path() / "out").string() + "\n");
    const std::string suite = ReadFileBytes(dir.path() / "out" / "000001_SUITE.csv");
    EXPECT_EQ(suite.substr(0, suite.find("Air")),
              "Room,Zone A,Zone B\r\nFloor area (sq m),223.0,167.2\r\n"
              "Ceiling height,3.05(m),3.05(m)\r\n");
    EXPECT_TRUE(std::filesystem::exists(dir.path() / "out" / "000004_UTILITIES.csv"));
    EXPECT_EQ(RunTool("export samples/metric.xml").status, 2);

    // Exported again, the files are replaced as a document is saved: a file keeps its
    // permissions, a read-only one is refused and left as it was.
    using std::filesystem::perms;
    const std::string replaced = dir.write("out/000001_SUITE.csv", "old");
    std::filesystem::permissions(replaced, perms::owner_read | perms::owner_write);
    const std::string kept = dir.write("out/000004_UTILITIES.csv", "old");
    std::filesystem::permissions(kept, perms::owner_read | perms::group_read);
    const ToolRun again = RunTool("export samples/metric.xml --csv " + dir.file("out"));
    EXPECT_EQ(again.status, 1);
    EXPECT_EQ(again.err, "Cannot save " + kept + ": the file is read-only\n");
    EXPECT_EQ(ReadFileBytes(replaced), suite);
    EXPECT_EQ(std::filesystem::status(replaced).permissions(),
              perms::owner_read | perms::owner_write);
    EXPECT_EQ(ReadFileBytes(kept), "old");
}

TEST(TabulonCli, UsageErrorsExitWithTwoAndAUsageLine) {
    const char* bad[] = {
        "",
        "frobnicate",
        "units --csv",
        "dtd extra",
        "convert 10",
        "convert abc FT_TO_M",
        "convert 10m FT_TO_M",
        "convert 10 NO_SUCH_CONVERSION",
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
