// Ranges, copy and paste through `tabulon session`: a whole grid copied into another
// node of its layout, a spreadsheet's clipboard pasted into every editor kind in both
// unit systems, and `paste` telling a number field's paste from a block.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

#include "common/documents.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

const std::vector<std::string> kRows = {
    Row("TextBox", R"(MaxLength="8")"),
    Row("ComboBox", R"(ListValues="Direct;Belt")"),
    Row("UnitNum", R"(Unit="FT_TO_M" Format="0.00" MinVal="0" MaxVal="100")"),
    Row("UnitDrop", R"(Unit="FT_TO_M;INCH_TO_MM" Format="0.0;0" MinVal="0;0" MaxVal="100;1000")"),
};

// N1 and N2 over one layout of two value columns, as loadxml-text takes it.
std::string TwoNodes(std::string_view system) {
    const std::string n2 =
        R"(<Pnode Name="N2" KeyValue="N2" GridHeaderKey="H" GridValueKey="K2" Filter="0"/>)";
    const std::string blank = CellValues("K2", {{""}, {"Belt"}, {"1"}, {"1.0(ft)"}});
    std::string xml =
        Document(kRows,
                 {Column({{"Fan-1"}, {"Direct"}, {"12.50"}, {"3(in)"}}, blank),
                  Column({{"Fan-2"}, {"Belt"}, {"150.00", true, false}, {"2.5(ft)"}}, blank)},
                 system, "", n2);
    return "loadxml-text \"" + std::regex_replace(xml, std::regex("\""), "\\\"") + "\"\n";
}

// The texts and colours of the data cells of a grid dump.
std::vector<std::string> DataCells(const JsonValue& dump) {
    std::vector<std::string> cells;
    for (std::size_t r = 1; r < dump["cells"].items.size(); ++r) {
        for (std::size_t c = 1; c < dump["cells"][r].items.size(); ++c) {
            cells.push_back(dump["cells"][r][c]["text"].text + " " +
                            dump["cells"][r][c]["back"].text);
        }
    }
    return cells;
}

std::string CellValuesOf(const std::string& xml, const std::string& key, int column) {
    const std::regex values("<CellValues GridValueKey=\"" + key + "\">([\\s\\S]*?)</CellValues>");
    auto match = std::sregex_iterator(xml.begin(), xml.end(), values);
    for (int skip = 0; skip < column && match != std::sregex_iterator(); ++skip)
        ++match;
    return match == std::sregex_iterator() ? "(none)" : (*match)[1].str();
}

TEST(SessionBlocks, WholeGridCopiedIntoAnotherNodeAgreesInGridAndDocument) {
    for (const std::string_view system : {"ENGLISH", "METRIC"}) {
        const SessionRun run =
            RunSession(TwoNodes(system) +
                       "drag 1 1 4 2\nkey c ctrl\ndump grid\nnode N2\nclick 1 1\nkey v ctrl\n"
                       "dump grid\nxml\n");
        ASSERT_EQ(run.status, 0) << run.err;
        ASSERT_EQ(run.lines.size(), 4u) << system;  // loadxml-text's result first
        EXPECT_EQ(DataCells(run.lines[2]), DataCells(run.lines[1])) << system;
        EXPECT_EQ(run.lines[2]["rowSel"].number, 4);  // the block pasted is selected
        const std::string xml = run.lines[3]["result"].text;
        for (int column = 0; column < 2; ++column) {
            const std::string source = CellValuesOf(xml, "K", column);
            if (system == "ENGLISH") {
                EXPECT_EQ(CellValuesOf(xml, "K2", column), source);
            }
        }
        if (system == "METRIC") {
            // Stored in English again, through the shown Metric values.
            EXPECT_NE(xml.find(">12.5000000<"), std::string::npos);
        }
    }
}

// What a spreadsheet puts on the clipboard for a 4 x 2 block: text/plain TSV with a
// final line break, and an HTML table of its own making.
const std::string kSpreadsheetCopy =
    "set-clipboard \"Fan-9\\tToo long a tag\\nBelt\\tChain\\n45\\t150\\n"
    "12.5 ft\\t300(mm)\\n\" "
    "\"<!DOCTYPE HTML PUBLIC><html><body><table><tr><td>Fan-9</td><td>Too long a tag</td>"
    "</tr></table></body></html>\"\n";

TEST(SessionBlocks, SpreadsheetClipboardLandsByTheRulesOfTypingInBothSystems) {
    struct Expected {
        std::string_view system;
        std::vector<std::string> cells;
        std::string stored;  // the UnitNum cell of column 1 in the document
        std::string message;
    };
    // A unit label is read in the document's system: "ft" in English, "mm" in Metric.
    const Expected cases[] = {
        {"ENGLISH",
         {"Fan-9 #ffffff", "Too long #ffffff", "Belt #ffffff", "Belt #ffffff", "45.00 #ffffff",
          "150.00 #ff0000", "12.5(ft) #ffffff", "2.5(ft) #ffffff"},
         ">45.00<",
         "6 cell(s) pasted, 2 skipped:\nR, C: \"Too long a tag\" written, cut to 8 characters\n"
         "R, C: \"Chain\" not in the list\nR, C: \"300(mm)\" unit \"mm\" is not offered here"},
        {"METRIC",
         {"Fan-9 #ffffff", "Too long #ffffff", "Belt #ffffff", "Belt #ffffff", "45.00 #ff0000",
          "150.00 #ff0000", "76(mm) #ffffff", "300(mm) #ffffff"},
         ">147.6377953<",
         "6 cell(s) pasted, 2 skipped:\nR, C: \"12.5 ft\" unit \"ft\" is not offered here\n"
         "R, C: \"Too long a tag\" written, cut to 8 characters\nR, C: \"Chain\" not in the "
         "list"},
    };
    for (const Expected& c : cases) {
        const SessionRun run = RunSession(TwoNodes(c.system) + kSpreadsheetCopy +
                                          "click 1 1\nkey v ctrl\ndump grid\nxml\n");
        ASSERT_EQ(run.status, 0) << run.err;
        ASSERT_EQ(run.lines.size(), 4u) << c.system;
        EXPECT_EQ(run.lines[1]["msg"].text, "information");
        EXPECT_EQ(run.lines[1]["text"].text, c.message);
        EXPECT_EQ(DataCells(run.lines[2]), c.cells) << c.system;
        EXPECT_NE(run.lines[3]["result"].text.find(c.stored), std::string::npos) << c.system;
    }
}

TEST(SessionBlocks, PasteIsTheNumberFieldsWithOneCellAndABlockOtherwise) {
    const SessionRun run = RunSession(TwoNodes("ENGLISH") +
                                      "click 3 1\npaste \"7\"\ndump editors\n"
                                      "paste \"1\\t2\"\nselect 1 1 2 2\ncopy 1 1 1 2 captions\n");
    ASSERT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(run.lines.size(), 4u);
    EXPECT_EQ(run.lines[1]["unitNumControl"]["text"].text, "7");  // the field's paste
    EXPECT_EQ(run.lines[2]["result"]["written"].number, 2);
    EXPECT_EQ(run.lines[3]["result"]["text"].text, "Name\tC\tC\r\nR\tFan-1\tFan-2");
}

}  // namespace
}  // namespace tabulon::testing
