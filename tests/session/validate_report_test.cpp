// `tabulon validate`, `tabulon report` and `tabulon find`: exit codes, the listed
// invalid values, messages on stderr and the report bytes (the node and filter
// choices are run by the documentation's examples).
#include <gtest/gtest.h>

#include <string>

#include "common/documents.h"
#include "common/files.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

constexpr const char* kTwoByTwo = "shell_two_by_two.xml";

TEST(Validate, BadArgumentsAreUsageErrors) {
    const char* bad[] = {"validate", "validate a.xml b.xml", "validate a.xml --html",
                         "validate /nonexistent/doc.xml --text",
                         "report samples/english.xml --node"};
    ExpectUsageErrors(bad, "usage: tabulon");
}

TEST(Report, WritesThePrintClickTextByteForByte) {
    const ToolRun run = RunTool("report " + DataFile(kTwoByTwo).string());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, ReadFileBytes(DataFile("shell_two_by_two_report.txt")));
}

TEST(Report, FailsWhenNoPrintClickIsRaised) {
    const std::string invalid = WriteTempFile(
        "invalid.xml", Replaced(ReadFileBytes(DataFile(kTwoByTwo)), "Valid=\"1\"", "Valid=\"0\""));
    const ToolRun blocked = RunTool("report '" + invalid + "'");
    EXPECT_EQ(blocked.status, 1);
    EXPECT_EQ(blocked.out, "");
    EXPECT_EQ(blocked.err,
              "critical: Validation Error(s). You must correct all data highlighted in red before "
              "saving.\n");
}

// One value beyond its row's maximum, one marked by the document and one under a key
// no tree node shows.
TEST(ValidateAndFind, ValidateListsEveryInvalidValueAndFindPrintsEveryHit) {
    const std::string number = R"(Unit="TONS_TO_KW" Format="0" MinVal="0" MaxVal="3000")";
    const std::string path = WriteTempFile(
        "invalid.xml", Document({Row("TextBox"), Row("UnitNum", number)},
                                {Column({{"pump", true, false}, {"5000", true, false}},
                                        CellValues("NOWHERE", {{"x", true, false}}))}));
    const ToolRun validate = RunTool("validate '" + path + "'");
    EXPECT_EQ(validate.status, 0);
    EXPECT_EQ(validate.out,
              "tree 1 nodes; grid 3 rows x 2 cols for node \"N1\"\n"
              "invalid: node \"N1\", row \"R\", column \"C\": Marked invalid in the document\n"
              "invalid: node \"N1\", row \"R\", column \"C\": Above the maximum of 3000 ton\n"
              "invalid: GridValue 1, GridValueKey \"NOWHERE\", row 1 (no node shows it): Marked "
              "invalid in the document\n");

    const ToolRun found = RunTool("find '" + path + "' PUMP");
    EXPECT_EQ(found.status, 0);
    EXPECT_EQ(found.out, "node \"N1\", row 1, column 1: pump\n");
    EXPECT_EQ(RunTool("find '" + path + "' PUMP --match-case").status, 1);
    EXPECT_EQ(RunTool("find '" + path + "'").status, 2);
}

}  // namespace
}  // namespace tabulon::testing
