// The dumps of `tabulon session`: every dump's fields and how values are written.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

TEST(SessionDumps, EveryDumpHasItsFieldsInOrderAndTheDocumentsUnits) {
    const std::pair<const char*, const char*> dumps[] = {
        {"grid",
         "dump rows cols fixedRows fixedCols row col rowSel colSel topRow leftCol enabled width "
         "height colWidths rowHeights cells"},
        {"tree", "dump nodes style imagesBound images"},
        {"editors", "dump txtTextBoxControl cboComboBoxControl unitNumControl unitDropControl"},
        {"filter", "dump frameVisible frameCaption labelCaption comboEnabled text items"},
        {"scrollbars", "dump hscGrid vscGrid"},
        {"state",
         "dump blnGridLoaded blnEditorActive blnScrollCommit strCurrentHeaderKey "
         "strCurrentValueKey strMeasurementUnit strXMLPath intColWidthMin blnDefaultPos"},
        {"conversion", "dump present entries"},
        {"custom-units", "dump units"},
        {"layout",
         "dump focus UserControl treTreeView imgSplitter fraFilterView lblFilter cboFilter "
         "msgGridView vscGrid hscGrid cmdPrint cmdOK cmdCancel cmdHelp txtTextBoxControl "
         "cboComboBoxControl unitNumControl unitDropControl unitNumForCnv unitDropForCnv"},
    };
    std::string script = "load samples/metric.xml\n";
    for (const auto& [what, keys] : dumps)
        script += std::string("dump ") + what + "\n";
    const SessionRun run = RunSession(script);
    ASSERT_EQ(run.lines.size(), std::size(dumps) + 1);
    for (std::size_t i = 0; i < std::size(dumps); ++i) {
        EXPECT_EQ(run.lines[i + 1].keyList(), dumps[i].second);
        EXPECT_EQ(run.lines[i + 1]["dump"].text, dumps[i].first);
    }
    EXPECT_EQ(run.lines.back()["cmdHelp"]["left"].number, 6935);
    const std::string geometry = "visible enabled left top width height ";
    const JsonValue& editors = run.lines[3];
    EXPECT_EQ(editors["txtTextBoxControl"].keyList(),
              geometry + "text maxLength selStart selLength focus");
    EXPECT_EQ(editors["cboComboBoxControl"].keyList(), geometry + "text items listIndex focus");
    EXPECT_EQ(editors["unitNumControl"].keyList(),
              geometry + "text unit unitCode limits format focus");
    EXPECT_EQ(editors["unitDropControl"].keyList(),
              geometry + "text unit items limits formats numberWidth unitWidth focus");
    const std::string bar = "visible enabled min max value busy ";
    EXPECT_EQ(run.lines[5]["hscGrid"].keyList(), bar + "leftMargin rightMargin");
    EXPECT_EQ(run.lines[5]["vscGrid"].keyList(), bar + "topMargin bottomMargin");

    // The conversion table and the custom units show the document's units.
    const JsonValue& conversion = run.lines[7];
    const JsonValue& entries = conversion["entries"];
    EXPECT_TRUE(conversion["present"].boolean);
    EXPECT_EQ(entries.members.size(), 64u + 3u);
    EXPECT_EQ(entries["HPTON_TO_KWKW"].number, 63);
    EXPECT_EQ(entries["gr/lb"].number, 64);
    EXPECT_EQ(entries["USD/sq ft"].number, 66);
    const JsonValue& units = run.lines[8]["units"];
    ASSERT_EQ(units.items.size(), 3u);
    EXPECT_EQ(units[1]["EUnit"].text, "therm");
    EXPECT_EQ(units[1]["MUnit"].text, "MJ");
    EXPECT_EQ(units[1]["EToMFactor"].text, "105.505585");
}

// Colours are "#rrggbb" in lower case, alignments the grid's codes; tree nodes come in
// tree order with their parents' keys and pictures (the rest is compared with the
// widget in tests/qt).
TEST(SessionDumps, GridCellsAndTreeNodesCarryWhatTheyShow) {
    const SessionRun run = RunSession("load samples/english.xml\ndump grid\ndump tree\n");
    ASSERT_EQ(run.lines.size(), 3u);
    const JsonValue& cells = run.lines[1]["cells"];
    ASSERT_EQ(cells.items.size(), 6u);
    EXPECT_EQ(cells[0][1]["back"].text, "#f0f0f0");
    EXPECT_EQ(cells[1][1]["fore"].text, "#000000");
    EXPECT_EQ(cells[1][1]["align"].number, 0);
    EXPECT_EQ(cells[2][1]["text"].text, "84500");
    EXPECT_EQ(cells[2][1]["align"].number, 6);
    EXPECT_EQ(cells[4][3]["fore"].text, "#808080");
    EXPECT_EQ(run.lines[1]["rowHeights"][5].number, 400);

    const JsonValue& nodes = run.lines[2]["nodes"];
    std::vector<std::string> order, parents;
    for (const JsonValue& node : nodes.items) {
        order.push_back(node["key"].text);
        parents.push_back(node["parent"].text);
    }
    EXPECT_EQ(order, (std::vector<std::string>{"PROJECT", "AHU", "AHU_FANS", "CHILLERS", "PUMPS",
                                               "DESIGN"}));
    EXPECT_EQ(parents, (std::vector<std::string>{"", "PROJECT", "AHU", "PROJECT", "PROJECT", ""}));
    EXPECT_EQ(nodes[2]["image"].number, nodes[1]["image"].number);
    EXPECT_EQ(run.lines[2]["images"].items.size(), 5u);
}

}  // namespace
}  // namespace tabulon::testing
