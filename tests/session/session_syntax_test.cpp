// The script syntax of `tabulon session`: words, quotes and escapes, comments, the
// error lines for malformed commands and the exit status.
#include <gtest/gtest.h>

#include <cstdio>

#include <string>
#include <utility>
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

// Each malformed command prints one error line, changes nothing, and the session goes
// on with the next command; the exit status becomes 2. One command per kind of check
// (a backslash outside quotes is an ordinary character).
TEST(SessionScript, AMalformedCommandPrintsOneErrorAndTheSessionGoesOn) {
    const std::pair<const char*, const char*> cases[] = {
        {"frobnicate", "unknown command \"frobnicate\""},
        {"loadxml /nonexistent/a\\tb", "loadxml: cannot read \"/nonexistent/a\\tb\""},
        {"click 1", "usage: click R C"},
        {"load \"samples/english.xml", "unterminated quoted word"},
        {"click 1 x", "click: C must be an integer"},
        {"set-general nosuch=1", "set-general: unknown field"},
        {"set-general strFilterCaption=abc", "set-general: strFilterCaption takes a string"},
        {"key PageDown", "key: unknown key \"PageDown\""},
        {"node NOWHERE", "node: no tree node with key"},
        {"on-appgrid \"CellValues[\" Valid 0", "invalid XPath"},
    };
    for (const auto& [command, errorStart] : cases) {
        SCOPED_TRACE(command);
        const SessionRun run = RunSession(std::string(command) + "\ndisplaycolwidth\n");
        EXPECT_EQ(run.status, 2);
        ASSERT_EQ(run.lines.size(), 2u);
        EXPECT_EQ(run.lines[0].keyList(), "error");
        EXPECT_EQ(run.lines[0]["error"].text.rfind(errorStart, 0), 0u)
            << run.lines[0]["error"].text;
        EXPECT_TRUE(run.lines[1].has("result"));
    }
}

// A script file may end its lines in CR LF; one that cannot be read to its end is an
// error.
TEST(SessionScript, ReadsAScriptFileWithCrLfLineEndsAndRefusesOneItCannotRead) {
    const std::string script =
        WriteTempFile("crlf_script.txt", "# settings\r\nbuttons\r\ngeneral\r\n");
    const ToolRun run = RunTool("session '" + script + "'");
    EXPECT_EQ(run.status, 0);
    const std::vector<JsonValue> lines = ParseJsonLines(run.out);
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0]["result"]["lngHelpLeft"].number, 6935);
    EXPECT_EQ(lines[1]["result"]["strFilterLabel"].text, "Filter Label");

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

}  // namespace
}  // namespace tabulon::testing
