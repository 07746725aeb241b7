// `tabulon validate` and `tabulon report`: exit codes, the summary line, messages on
// stderr and the report bytes.
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "common/documents.h"
#include "common/files.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

constexpr const char* kTwoByTwo = "shell_two_by_two.xml";

struct SampleCase {
    const char* path;
    const char* summary;
};

void PrintTo(const SampleCase& c, std::ostream* os) {
    *os << c.path;
}

class ValidateSample : public ::testing::TestWithParam<SampleCase> {};

TEST_P(ValidateSample, LoadsWithoutAnyMessageFromFileAndFromText) {
    for (const std::string option : {"", " --text"}) {
        const ToolRun run = RunTool(std::string("validate ") + GetParam().path + option);
        EXPECT_EQ(run.status, 0) << option;
        EXPECT_EQ(run.err, "") << option;
        EXPECT_EQ(run.out, std::string(GetParam().summary) + "\n") << option;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Samples, ValidateSample,
    ::testing::Values(
        SampleCase{"samples/english.xml",
                   "tree 6 nodes; grid 6 rows x 4 cols for node \"PROJECT\""},
        SampleCase{"samples/metric.xml", "tree 4 nodes; grid 8 rows x 3 cols for node \"SUITE\""},
        SampleCase{"samples/filtered.xml", "tree 2 nodes; grid 7 rows x 9 cols for node \"CHW\""}));

TEST(Validate, AMalformedOrMissingDocumentFailsWithItsMessageOnStderr) {
    const std::string broken = WriteTempFile("broken.xml", "<xml MeasurementUnit=\"ENGLISH\">\n");
    const ToolRun run = RunTool("validate '" + broken + "'");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err.rfind("critical: ", 0), 0u) << run.err;
    EXPECT_EQ(run.out, "tree 0 nodes; no grid shown\n");
    const ToolRun missing = RunTool("validate /nonexistent/doc.xml");
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "critical: XML file not found\n");
}

// A valid document whose first node names a layout that is not there loads, but no
// grid is shown.
TEST(Validate, AValidDocumentWhoseGridCannotBeShownFails) {
    const std::string path = WriteTempFile(
        "no_header.xml",
        Replaced(ReadFileBytes(DataFile(kTwoByTwo)), "HeaderKey=\"G1\"", "HeaderKey=\"Z\""));
    const ToolRun run = RunTool("validate '" + path + "'");
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "information: Grid header key 'Z' not found in XML.\n");
}

TEST(Validate, BadArgumentsAreUsageErrors) {
    EXPECT_EQ(RunTool("validate").status, 2);
    EXPECT_EQ(RunTool("validate a.xml b.xml").status, 2);
    EXPECT_EQ(RunTool("validate a.xml --html").status, 2);
    EXPECT_EQ(RunTool("validate /nonexistent/doc.xml --text").status, 2);
}

TEST(Report, WritesThePrintClickTextByteForByte) {
    const ToolRun run = RunTool("report " + DataFile(kTwoByTwo).string());
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.out, ReadFileBytes(DataFile("shell_two_by_two_report.txt")));
}

TEST(Report, SelectsTheNodeAndAppliesTheFilter) {
    const ToolRun run = RunTool("report samples/filtered.xml --node HW --filter 'Split case'");
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_NE(run.out.find("<Column_Header>\r\n<ColumnCaption>SC-150</ColumnCaption>\r\n"
                           "<ColumnCaption>SC-200</ColumnCaption>\r\n</Column_Header>\r\n"),
              std::string::npos)
        << run.out;
    EXPECT_NE(run.out.find("<CellValue>900</CellValue>"), std::string::npos);
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

    EXPECT_EQ(RunTool("report samples/english.xml --node NOWHERE").status, 1);
    EXPECT_EQ(RunTool("report samples/filtered.xml --filter Nothing").status, 1);
    EXPECT_EQ(RunTool("report /nonexistent/doc.xml").status, 1);
    EXPECT_EQ(RunTool("report samples/english.xml --node").status, 2);
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
