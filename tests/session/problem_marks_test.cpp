// Tree nodes that show the same values (one GridValueKey) carry the same problem mark,
// from the load on and after each commit on either of them.
#include <gtest/gtest.h>

#include <string>

#include "common/files.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

// The marks of a `dump problems` line, as "KEY=count" joined by spaces.
std::string Marks(const JsonValue& dump) {
    std::string marks;
    for (const JsonValue& mark : dump["marks"].items)
        marks += (marks.empty() ? "" : " ") + mark["key"].text + "=" +
                 std::to_string(static_cast<int>(mark["count"].number));
    return marks;
}

TEST(ProblemMarks, NodesSharingAKeyAreMarkedAndClearedTogether) {
    // The pumps node shows the chillers' values, laid out as the chillers' node does,
    // and both chillers' capacities (row 2) are marked invalid in the file.
    std::string shared = Replaced(
        ReadFileBytes(std::filesystem::path(TABULON_SOURCE_DIR) / "samples" / "english.xml"),
        R"(GridHeaderKey="PUMP_SCHEDULE" GridValueKey="PUMPS")",
        R"(GridHeaderKey="CHILLER_SCHEDULE" GridValueKey="CHILLERS")");
    shared = Replaced(shared,
                      "GridValueKey=\"CHILLERS\">\n"
                      "          <CellValue Enabled=\"1\" Valid=\"1\" "
                      "ApplicationValidation=\"0\">Centrifugal</CellValue>\n"
                      "          <CellValue Enabled=\"1\" Valid=\"1\"",
                      "GridValueKey=\"CHILLERS\">\n"
                      "          <CellValue Enabled=\"1\" Valid=\"1\" "
                      "ApplicationValidation=\"0\">Centrifugal</CellValue>\n"
                      "          <CellValue Enabled=\"1\" Valid=\"0\"");
    const std::string path = WriteTempFile("shared_key.xml", shared);
    const SessionRun run =
        RunSession("load " + path +
                   "\ndump problems\n"
                   "node PUMPS\nclick 2 1\ntype \"400\"\nkey Tab\ndump problems\n"
                   "node CHILLERS\nclick 2 1\ntype \"4009\"\nkey Tab\ndump problems\n");
    EXPECT_EQ(run.status, 0);
    std::vector<const JsonValue*> dumps;
    for (const JsonValue& line : run.lines) {
        if (line["dump"].text == "problems") dumps.push_back(&line);
    }
    ASSERT_EQ(dumps.size(), 3u);
    // Counted by the load, one corrected on the one node, typed beyond the maximum
    // again on the other.
    EXPECT_EQ(Marks(*dumps[0]), "CHILLERS=2 PUMPS=2");
    EXPECT_EQ(Marks(*dumps[1]), "CHILLERS=1 PUMPS=1");
    EXPECT_EQ((*dumps[1])["count"].number, 1);
    EXPECT_EQ(Marks(*dumps[2]), "CHILLERS=2 PUMPS=2");
}

}  // namespace
}  // namespace tabulon::testing
