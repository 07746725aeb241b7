// Instances in a session: the implied new and show, several instances on one thread,
// replacing, and settings saved to and restored from a property-bag file.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

// After the first showing the buttons stand where Reposition_Button puts them (Help
// at 8200 - 1265); before it they keep their design positions (Help at 6945).
TEST(SessionInstances, AScriptStartingWithAnotherCommandGetsNewAndShow) {
    const SessionRun run = RunSession("buttons\n");
    ASSERT_EQ(run.lines.size(), 1u);
    EXPECT_EQ(run.lines[0]["result"]["lngHelpLeft"].number, 6935);
}

TEST(SessionInstances, AScriptStartingWithNewIsNotShownUntilItSaysSo) {
    const SessionRun run = RunSession("new\nbuttons\nshow\nbuttons\n");
    ASSERT_EQ(run.lines.size(), 2u);
    EXPECT_EQ(run.lines[0]["result"]["lngHelpLeft"].number, 6945);
    EXPECT_EQ(run.lines[1]["result"]["lngHelpLeft"].number, 6935);
}

TEST(SessionInstances, NewWithASizeGivesTheControlThatSize) {
    const SessionRun run = RunSession("new 10000 7000\ndump layout\n");
    ASSERT_EQ(run.lines.size(), 1u);
    EXPECT_EQ(run.lines[0]["UserControl"]["width"].number, 10000);
    EXPECT_EQ(run.lines[0]["UserControl"]["height"].number, 7000);
}

TEST(SessionInstances, SeveralInstancesKeepTheirOwnDocuments) {
    const SessionRun run = RunSession(
        "load samples/english.xml\n"
        "add-instance\nshow\nload samples/filtered.xml\n"
        "use 1\ndump state\nuse 2\ndump state\n");
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.lines.size(), 4u);
    EXPECT_EQ(run.lines[2]["strXMLPath"].text, "samples/english.xml");
    EXPECT_EQ(run.lines[3]["strXMLPath"].text, "samples/filtered.xml");
}

TEST(SessionInstances, NewReplacesTheCurrentInstanceUnderItsNumber) {
    const SessionRun run = RunSession("load samples/english.xml\nnew\ndump state\nuse 1\nuse 2\n");
    EXPECT_EQ(run.status, 2);
    ASSERT_EQ(run.lines.size(), 3u);
    EXPECT_EQ(run.lines[1]["strXMLPath"].text, "");
    EXPECT_EQ(run.lines[2]["error"].text.rfind("use: there is no instance 2", 0), 0u);
}

// The per-thread conversion table belongs to the last instance created or ended.
TEST(SessionInstances, TerminatingOneInstanceReleasesTheThreadsTable) {
    const SessionRun run =
        RunSession("new\nadd-instance\nuse 1\nterminate\nuse 2\ndump conversion\n");
    ASSERT_EQ(run.lines.size(), 1u);
    EXPECT_FALSE(run.lines[0]["present"].boolean);
    EXPECT_TRUE(run.lines[0]["entries"].members.empty());
}

TEST(SessionInstances, SaveBagAndNewRestoreCarryTheSettings) {
    const std::string bag = WriteTempFile("settings_bag.json", "");
    const SessionRun run = RunSession(
        "set-general lngTreeViewStyle=3 strFilterCaption=\"Kept\"\n"
        "save-bag \"" +
        bag +
        "\"\n"
        "new-restore \"" +
        bag + "\"\ngeneral\n");
    EXPECT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(run.lines.size(), 2u);
    EXPECT_EQ(run.lines[1]["result"]["lngTreeViewStyle"].number, 3);
    EXPECT_EQ(run.lines[1]["result"]["strFilterCaption"].text, "Kept");

    std::ifstream in(bag);
    const std::string stored{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    EXPECT_NE(stored.find("\"GeneralProperty.lngTreeViewStyle\": 3"), std::string::npos) << stored;
}

}  // namespace
}  // namespace tabulon::testing
