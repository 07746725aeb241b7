// Blocks of cells as tab-separated text, CSV and HTML: what spreadsheets write and read.
#include <gmock/gmock.h>

#include "support/cell_table_text.h"

namespace tabulon {
namespace {

struct ParseCase {
    std::string text;
    CellTable cells;
};

TEST(CellTableText, ReadsWhatSpreadsheetsWrite) {
    const ParseCase cases[] = {
        {"", {}},
        {"a", {{"a"}}},
        {"a\tb\r\nc\td\r\n", {{"a", "b"}, {"c", "d"}}},  // CRLF, one final line break
        {"a\tb\nc", {{"a", "b"}, {"c"}}},
        {"a\t\t\n\n", {{"a", "", ""}, {""}}},  // empty cells and an empty row kept
        {"\"x\ty\"\t\"say \"\"hi\"\"\"\n\"two\nlines\"", {{"x\ty", "say \"hi\""}, {"two\nlines"}}},
        {"12.5(ft)\t3 in\r", {{"12.5(ft)", "3 in"}}}};
    for (const ParseCase& c : cases)
        EXPECT_EQ(ParseTabSeparated(c.text), c.cells) << c.text;
}

TEST(CellTableText, WritesQuotingOnlyWhatNeedsItAndReadsItBack) {
    const CellTable table = {{"a", "b,c", "x\ty"}, {"\"q\"", "", "two\nlines"}};
    const std::string tsv = ToTabSeparated(table);
    EXPECT_EQ(tsv, "a\tb,c\t\"x\ty\"\r\n\"\"\"q\"\"\"\t\t\"two\nlines\"");
    EXPECT_EQ(ParseTabSeparated(tsv), table);
    EXPECT_EQ(ToCsv(table), "a,\"b,c\",\"x\ty\"\r\n\"\"\"q\"\"\",,\"two\nlines\"");
    EXPECT_THAT(ToHtmlTable({{"<a&b>"}}), ::testing::HasSubstr("<td>&lt;a&amp;b&gt;</td>"));
    EXPECT_TRUE(HoldsSeveralCells("a\tb"));
    EXPECT_FALSE(HoldsSeveralCells("12.5 ft"));
}

}  // namespace
}  // namespace tabulon
