// The script syntax of `tabulon session`: words, quotes and escapes, comments, the
// error lines for malformed commands and the exit status.
#include <gtest/gtest.h>

#include <cstdio>

#include <ostream>
#include <string>
#include <vector>

#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

// Blank lines and comments print nothing; quoted words keep blanks and resolve escapes.
TEST(SessionScript, QuotedWordsKeepBlanksAndResolveEveryEscape) {
    const SessionRun run = RunSession(
        "# a comment\n\n   \n  # an indented comment\nxml\n"
        "set-general strFilterCaption=\"a \\\"b\\\"  \\\\ c\\td\\r\\n\"\n"
        "general\n");
    ASSERT_EQ(run.status, 0);
    ASSERT_EQ(run.lines.size(), 3u);
    EXPECT_EQ(run.lines[0]["result"].text, "");
    EXPECT_EQ(run.lines[2]["result"]["strFilterCaption"].text, "a \"b\"  \\ c\td\r\n");
}

TEST(SessionScript, BackslashOutsideQuotesIsAnOrdinaryCharacter) {
    const SessionRun run = RunSession("loadxml /nonexistent/a\\tb\n");
    ASSERT_EQ(run.lines.size(), 1u);
    EXPECT_EQ(run.lines[0]["error"].text, "loadxml: cannot read \"/nonexistent/a\\tb\"");
}

// Each malformed command prints one error line, changes nothing, and the session goes
// on with the next command; the exit status becomes 2.
struct MalformedCase {
    const char* command;
    const char* errorStart;
};

void PrintTo(const MalformedCase& c, std::ostream* os) {
    *os << c.command;
}

class MalformedCommand : public ::testing::TestWithParam<MalformedCase> {};

TEST_P(MalformedCommand, PrintsOneErrorAndTheSessionGoesOn) {
    const SessionRun run = RunSession(std::string(GetParam().command) + "\ndisplaycolwidth\n");
    EXPECT_EQ(run.status, 2);
    ASSERT_EQ(run.lines.size(), 2u) << GetParam().command;
    EXPECT_EQ(run.lines[0].keys(), std::vector<std::string>{"error"});
    EXPECT_EQ(run.lines[0]["error"].text.rfind(GetParam().errorStart, 0), 0u)
        << run.lines[0]["error"].text;
    EXPECT_TRUE(run.lines[1].has("result"));
}

INSTANTIATE_TEST_SUITE_P(
    SessionScript, MalformedCommand,
    ::testing::Values(MalformedCase{"frobnicate", "unknown command \"frobnicate\""},
                      MalformedCase{"click 1", "usage: click R C"},
                      MalformedCase{"xml extra", "usage: xml"},
                      MalformedCase{"load \"samples/english.xml", "unterminated quoted word"},
                      MalformedCase{"loadxml-text \"a\\qb\"", "unknown escape \\q"},
                      MalformedCase{"click 1 x", "click: C must be an integer"},
                      MalformedCase{"move-next-cell 40000", "move-next-cell: N must be"},
                      MalformedCase{"set-general nosuch=1", "set-general: unknown field"},
                      MalformedCase{"set-general strFilterCaption=abc",
                                    "set-general: strFilterCaption takes a string"},
                      MalformedCase{"set-general intScrollBars=\"1\"",
                                    "set-general: intScrollBars takes an integer"},
                      MalformedCase{"set-buttons blnOKVisible=maybe",
                                    "set-buttons: blnOKVisible takes true or false"},
                      MalformedCase{"set-buttons lngOKLeft", "set-buttons: expected FIELD=VALUE"},
                      MalformedCase{"key Tab meta", "key: modifiers are"},
                      MalformedCase{"key PageDown", "key: unknown key \"PageDown\""},
                      MalformedCase{"button Apply", "button: unknown button"},
                      MalformedCase{"focus editor", "focus: unknown target"},
                      MalformedCase{"dump everything", "dump: unknown dump"},
                      MalformedCase{"use 3", "use: there is no instance 3"},
                      MalformedCase{"node NOWHERE", "node: no tree node with key"},
                      MalformedCase{"hscroll +2", "hscroll: expected +1, -1 or =N"},
                      MalformedCase{"hscroll +1", "hscroll: the bar is hidden"},
                      MalformedCase{"filter \"Pumps\"", "filter: "},
                      MalformedCase{"on-appgrid \"CellValues[\" Valid 0", "invalid XPath"},
                      MalformedCase{"loadxml /nonexistent/doc.xml", "loadxml: cannot read"},
                      MalformedCase{"new\nnew-restore /nonexistent/bag.json", "new-restore: "},
                      MalformedCase{"page advanced", "page: unknown page \"advanced\""},
                      MalformedCase{"dump page", "dump page: no property page is open"},
                      MalformedCase{"set-text \"1\"", "set-text: no component has the focus"},
                      MalformedCase{"pick \"Yes\"", "pick: the pick-list editor is not open"},
                      MalformedCase{"pick-unit \"ft\"", "pick-unit: the unit drop-down editor"},
                      MalformedCase{"drag-col-border 0 10",
                                    "drag-col-border: the grid has no column"},
                      MalformedCase{"set-protective 1", "set-protective: expected true or false"}));

TEST(SessionScript, ReadsAScriptFileWithCrLfLineEnds) {
    const std::string script =
        WriteTempFile("crlf_script.txt", "# settings\r\nbuttons\r\ngeneral\r\n");
    const ToolRun run = RunTool("session '" + script + "'");
    EXPECT_EQ(run.status, 0);
    const std::vector<JsonValue> lines = ParseJsonLines(run.out);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["result"]["lngHelpLeft"].number, 6935);
    EXPECT_EQ(lines[1]["result"]["strFilterLabel"].text, "Filter Label");
}

TEST(SessionScript, MissingScriptFileIsAUsageError) {
    const ToolRun run = RunTool("session /nonexistent/script.txt");
    EXPECT_EQ(run.status, 2);
    EXPECT_NE(run.err.find("cannot open script"), std::string::npos) << run.err;
    EXPECT_EQ(run.out, "");
}

TEST(SessionScript, ScriptThatCannotBeReadToItsEndIsAnError) {
    const ToolRun folder = RunTool("session /tmp");
    EXPECT_EQ(folder.status, 2);
    EXPECT_NE(folder.out.find(R"({"error": "cannot read the script at line 1: Is a directory"})"),
              std::string::npos)
        << folder.out;
#if !defined(__SANITIZE_ADDRESS__)  // the sanitizer needs more address space than allowed
    // A line of 300 MB with 200 MB of address space: nothing of it runs.
    const std::string command =
        std::string("ulimit -v 200000; head -c 300000000 /dev/zero | tr '\\0' x | '") +
        TABULON_BINARY_DIR + "/apps/tabulon/tabulon' session";
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::string out;
    char buffer[256];
    while (fgets(buffer, sizeof buffer, pipe) != nullptr)
        out += buffer;
    const int status = pclose(pipe);
    EXPECT_EQ(WEXITSTATUS(status), 2);
    EXPECT_EQ(
        out,
        "{\"error\": \"cannot read the script at line 1: the line does not fit in memory\"}\n");
#endif
}

TEST(SessionScript, HelpDocumentsHowAClickIsRouted) {
    const ToolRun run = RunTool("session --help");
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("click R C"), std::string::npos);
    EXPECT_NE(run.out.find("the pointer first moves over the cell"), std::string::npos);
    EXPECT_NE(run.out.find("on-appgrid-text XPATH"), std::string::npos);
}

TEST(SessionScript, EveryOutputLineIsOneJsonObject) {
    const SessionRun run = RunSession(
        "load samples/english.xml\nset-general strFilterLabel=\"tab\\there\\r\\n\"\n"
        "general\ndump grid\ndump tree\n");
    EXPECT_EQ(run.status, 0);
    for (const JsonValue& line : run.lines) {
        EXPECT_EQ(line.parseError, "");
        EXPECT_EQ(line.type, JsonValue::Type::Object);
    }
    ASSERT_GE(run.lines.size(), 4u);
}

}  // namespace
}  // namespace tabulon::testing
