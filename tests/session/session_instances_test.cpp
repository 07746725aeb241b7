// Instances in a session: the implied new and show, several instances on one thread and
// replacing (saving and restoring settings is run by the documentation's examples).
#include <gtest/gtest.h>

#include <string>

#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

// A script that starts with another command gets "new" and "show" first; one that
// starts with "new" is not shown until it says so. After the first showing the buttons
// stand where Reposition_Button puts them (Help at 8200 - 1265), before it at their
// design positions (Help at 6945).
TEST(SessionInstances, NewAndShowAreImpliedOnlyWithoutAnExplicitNew) {
    const SessionRun implied = RunSession("buttons\n");
    ASSERT_EQ(implied.lines.size(), 1u);
    EXPECT_EQ(implied.lines[0]["result"]["lngHelpLeft"].number, 6935);
    const SessionRun run = RunSession("new\nbuttons\nshow\nbuttons\n");
    ASSERT_EQ(run.lines.size(), 2u);
    EXPECT_EQ(run.lines[0]["result"]["lngHelpLeft"].number, 6945);
    EXPECT_EQ(run.lines[1]["result"]["lngHelpLeft"].number, 6935);
}

// Each instance keeps its own document; "new" replaces the current one under its
// number.
TEST(SessionInstances, SeveralInstancesKeepTheirOwnDocumentsAndNewReplacesOne) {
    const SessionRun run = RunSession(
        "load samples/english.xml\nadd-instance\nshow\nload samples/filtered.xml\n"
        "use 1\ndump state\nuse 2\ndump state\nnew\ndump state\nuse 3\n");
    EXPECT_EQ(run.status, 2);
    ASSERT_EQ(run.lines.size(), 6u);
    EXPECT_EQ(run.lines[2]["strXMLPath"].text, "samples/english.xml");
    EXPECT_EQ(run.lines[3]["strXMLPath"].text, "samples/filtered.xml");
    EXPECT_EQ(run.lines[4]["strXMLPath"].text, "");
    EXPECT_EQ(run.lines[5]["error"].text.rfind("use: there is no instance 3", 0), 0u);
}

}  // namespace
}  // namespace tabulon::testing
