// The page commands of `tabulon session`: a script opens both pages, edits, types,
// leaves and applies, and reads the pages back.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

// The control of a page dump with that name and index.
const JsonValue& DumpedControl(const JsonValue& dump, const std::string& name, int index = -1) {
    for (const JsonValue& control : dump["controls"].items) {
        if (control["name"].text == name && control["index"].number == index) return control;
    }
    static const JsonValue none;
    ADD_FAILURE() << "no control " << name << " " << index;
    return none;
}

TEST(PageSession, ScriptEditsTypesLeavesAndAppliesBothPages) {
    const SessionRun run = RunSession(
        "page general\n"
        "page-set txtRowHeightMin \"\"\n"
        "page-type txtRowHeightMin \"12\"\n"
        "page-blur txtRowHeightMin\n"
        "page-set txtTreeViewWidth 1499\n"
        "page-apply\n"
        "page-dump\n"
        "page-set txtTreeViewWidth 2000\n"
        "page-apply\n"
        "general\n"
        "page buttons\n"
        "page-set chkDefault 0\n"
        "page-set cboVisible 2 False\n"
        "page-set txtLeft 2 100\n"
        "dump page\n");
    EXPECT_EQ(run.status, 2) << "the edit of a disabled box is refused";
    ASSERT_EQ(run.lines.size(), 7u) << run.err;

    EXPECT_EQ(run.lines[0]["msg"].text, "information");
    EXPECT_EQ(run.lines[0]["text"].text, "Value cannot be less than 350");
    EXPECT_EQ(run.lines[1]["msg"].text, "plain");
    EXPECT_EQ(run.lines[1]["text"].text, "Tree view width cannot be less than 1500");

    const JsonValue& general = run.lines[2];
    EXPECT_EQ(general["caption"].text, "General");
    EXPECT_TRUE(general["changed"].boolean);
    EXPECT_EQ(DumpedControl(general, "txtRowHeightMin")["text"].text, "350");
    const JsonValue& width = DumpedControl(general, "txtTreeViewWidth");
    EXPECT_EQ(width["text"].text, "1499");
    EXPECT_TRUE(width["focus"].boolean);
    EXPECT_EQ(width["min"].number, 1500);
    EXPECT_EQ(DumpedControl(general, "cboScrollBars")["items"].items.size(), 2u);

    EXPECT_EQ(run.lines[3]["changed"].text, "GeneralProperty");
    EXPECT_EQ(run.lines[4]["result"]["lngTreeViewWidth"].number, 2000);
    EXPECT_EQ(run.lines[5]["error"].text, "page-set: txtLeft 2 is hidden or disabled");

    const JsonValue& buttons = run.lines[6];
    EXPECT_EQ(buttons["caption"].text, "Advanced");
    EXPECT_FALSE(DumpedControl(buttons, "chkDefault")["checked"].boolean);
    EXPECT_EQ(DumpedControl(buttons, "cboVisible", 2)["text"].text, "False");
    std::vector<bool> enabled;
    for (int i = 0; i < 4; ++i)
        enabled.push_back(DumpedControl(buttons, "txtLeft", i)["enabled"].boolean);
    EXPECT_EQ(enabled, (std::vector<bool>{true, true, false, true}));
}

}  // namespace
}  // namespace tabulon::testing
