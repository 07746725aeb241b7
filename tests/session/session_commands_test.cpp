// Host calls and user gestures in a session: what each prints and in what order,
// and that each reaches the control the way its help says.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>
#include <vector>

#include "common/documents.h"
#include "common/files.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

TEST(SessionHostCalls, EachCallPrintsItsResult) {
    const SessionRun run = RunSession(
        "load samples/english.xml\nxml\nfiltervalue\ndisplaycolwidth\ngeneral\nbuttons\n"
        "set-xml \"ignored\"\nreposition\nrefresh-scrollbars\nmove-next-column\n"
        "set-general intScrollBars=5 blnAllowBigSelection=true\ngeneral\n");
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.lines.size(), 8u);
    EXPECT_TRUE(run.lines[0]["result"].boolean);
    EXPECT_EQ(run.lines[1]["result"].text.rfind("<xml MeasurementUnit=\"ENGLISH\">", 0), 0u);
    EXPECT_EQ(run.lines[2]["result"].text, "All");
    EXPECT_EQ(run.lines[3]["result"].text, "1080,1080,1080,1080");
    EXPECT_EQ(run.lines[4]["result"].keyList(),
              "lngTreeViewWidth lngTreeViewStyle blnFilterVisible strFilterCaption strFilterLabel "
              "blnAllowBigSelection intScrollBars lngRowHeightMin lngColWidthMin");
    EXPECT_EQ(run.lines[5]["result"].keyList(),
              "blnPrintVisible blnOKVisible blnCancelVisible blnHelpVisible blnDefaultPos "
              "lngPrintLeft lngOKLeft lngCancelLeft lngHelpLeft");
    // set-general writes the changed record in one assignment.
    EXPECT_EQ(run.lines[6]["changed"].text, "GeneralProperty");
    EXPECT_EQ(run.lines[7]["result"]["intScrollBars"].number, 1);
    EXPECT_TRUE(run.lines[7]["result"]["blnAllowBigSelection"].boolean);
}

// Undo, redo, the modified flag and the protective switch are host calls; the keys
// reach the same undo (compared with the widget in tests/qt/session_parity_test.cpp).
TEST(SessionHostCalls, UndoRedoAndTheEditStateAnswerAsTheControlDoes) {
    const SessionRun run = RunSession(
        "loadxml samples/english.xml\nprotective\nset-protective true\nprotective\n"
        "undo\nnode PUMPS\nclick 1 1\nset-text \"CHWP-9\"\nkey Enter\nmodified\ncan-undo\n"
        "key z ctrl\nmodified\ncan-redo\nredo\nredo\nmodified\n");
    EXPECT_EQ(run.status, 0);
    std::vector<bool> results;
    for (const JsonValue& line : run.lines) {
        if (line.has("result")) results.push_back(line["result"].boolean);
    }
    // loadxml, protective, protective, undo (nothing yet), modified, can-undo, then
    // after Ctrl+Z: modified, can-redo, redo, redo (nothing left), modified.
    EXPECT_EQ(results, (std::vector<bool>{true, false, true, false, true, true, false, true, true,
                                          false, true}));
}

// MovePreviousCell has no handler of its own: a scroll step above the first row is a
// failure that reaches the host.
TEST(SessionHostCalls, AFailureReachingTheHostPrintsAnException) {
    const std::string tall =
        WriteTempFile("tall.xml", Document(std::vector<std::string>(30, Row("TextBox")),
                                           {Column(std::vector<CellData>(30, CellData("v")))}));
    const SessionRun run =
        RunSession("load \"" + tall + "\"\nclick 25 1\nmove-previous-cell 13\nxml\n");
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.lines.size(), 3u);
    EXPECT_EQ(run.lines[1].keyList(), "exception");
    EXPECT_NE(run.lines[1]["exception"].text, "");
    EXPECT_TRUE(run.lines[2].has("result"));
}

// A message box prints before the result of the call that showed it.
TEST(SessionHostCalls, SaveRefusalAndDocumentLimitAreObservable) {
    const std::string path =
        WriteTempFile("read_only.xml", ReadFileBytes(DataFile("shell_gate.xml")));
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    const SessionRun run = RunSession("load " + path +
                                      "\nlast-save-error\nbutton OK\nlast-save-error\n"
                                      "max-document-bytes\nset-max-document-bytes 10\nload " +
                                      path + "\n");
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.lines.size(), 8u);
    EXPECT_EQ(run.lines[1]["result"].text, "");
    EXPECT_EQ(run.lines[2]["event"].text, "OKClick");
    EXPECT_EQ(run.lines[3]["text"].text, "Unable the save the XML file.");
    EXPECT_EQ(run.lines[4]["result"].text, "Cannot save " + path + ": the file is read-only");
    EXPECT_EQ(run.lines[5]["result"].number, 1073741824);
    EXPECT_EQ(run.lines[6]["text"].text,
              "The file " + path + " is larger than the largest document accepted (10 bytes)");
    EXPECT_FALSE(run.lines[7]["result"].boolean);
}

// Typed tab characters are Tab keys (the keys themselves are compared with the widget
// in tests/qt/session_parity_test.cpp).
TEST(SessionGestures, TypedTabsMoveLikeTabKeys) {
    const SessionRun run = RunSession(
        "load samples/english.xml\nclick 2 1\ntype \"\\t\\t\"\ndump grid\nkey Enter\ndump grid\n");
    ASSERT_EQ(run.lines.size(), 3u);
    EXPECT_EQ(run.lines[1]["col"].number, 3);
    EXPECT_EQ(run.lines[2]["row"].number, 3);
    EXPECT_EQ(run.lines[2]["col"].number, 3);
}

// `paste` is the open number field's paste for one cell and a block paste otherwise.
TEST(SessionGestures, PasteIsTheNumberFieldsWithOneCellAndABlockOtherwise) {
    const SessionRun run = RunSession(
        "load samples/english.xml\nclick 2 1\npaste \"7\"\ndump editors\npaste \"1\\t2\"\n"
        "select 1 1 2 2\ncopy 1 1 1 2 captions\n");
    ASSERT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(run.lines.size(), 4u);
    EXPECT_EQ(run.lines[1]["unitNumControl"]["text"].text, "7");
    EXPECT_EQ(run.lines[2]["result"]["written"].number, 2);
    EXPECT_EQ(run.lines[3]["result"]["text"].text,
              "Building\tNorth Wing\tSouth Wing\r\nOccupancy\tMedical office\tOffice");
}

// The scripted host changes the element it receives; the control then refills the
// column from it.
TEST(SessionGestures, OnAppGridActsAsTheHostWhileTheEventRuns) {
    const SessionRun run = RunSession(
        "load samples/english.xml\nnode PUMPS\n"
        "on-appgrid \"CellValues[@GridValueKey='PUMPS']/CellValue[1]\" Valid 0\n"
        "on-appgrid-text \"CellValues[@GridValueKey='PUMPS']/CellValue[2]\" \"Condenser water\"\n"
        "click 1 1\nset-text \"CHWP-9\"\nkey Enter\ndump grid\n"
        "on-appgrid-clear\nclick 1 1\nset-text \"CHWP-1\"\nkey Enter\ndump grid\n");
    EXPECT_EQ(run.status, 0);
    ASSERT_EQ(run.lines.size(), 5u);
    EXPECT_EQ(run.lines[1]["event"].text, "AppGridEventHandler");
    EXPECT_NE(run.lines[1]["xml"].text.find(">CHWP-9</CellValue>"), std::string::npos);
    EXPECT_EQ(run.lines[2]["cells"][1][1]["back"].text, "#ff0000");
    EXPECT_EQ(run.lines[2]["cells"][2][1]["text"].text, "Condenser water");
    EXPECT_EQ(run.lines[3]["event"].text, "AppGridEventHandler");
    EXPECT_EQ(run.lines[4]["cells"][1][1]["text"].text, "CHWP-1");
    EXPECT_EQ(run.lines[4]["cells"][1][1]["back"].text, "#ff0000");
}

// A capacity above its maximum: find's hits and the walk back to it (F9, find and
// find-next are compared with the widget in tests/qt/session_parity_test.cpp).
TEST(SessionProblems, FindHitsAndTheWalkBackAreReachable) {
    const SessionRun run = RunSession(
        "loadxml samples/english.xml\nnode CHILLERS\nclick 2 1\ntype \"9999\"\nclick 2 2\n"
        "node PROJECT\nfind \"ch-1\" whole-cell\ngo-to-hit 0\ndump state\nprevious-invalid\n"
        "find-previous\n");
    ASSERT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(run.lines.size(), 6u);
    ASSERT_EQ(run.lines[1]["result"].items.size(), 1u);
    EXPECT_EQ(run.lines[1]["result"][0]["node"].text, "CHILLERS");
    EXPECT_EQ(run.lines[1]["result"][0]["col"].number, 1);
    EXPECT_TRUE(run.lines[2]["result"].boolean);
    EXPECT_EQ(run.lines[3]["strCurrentValueKey"].text, "CHILLERS");
    EXPECT_TRUE(run.lines[4]["result"].boolean);
    EXPECT_TRUE(run.lines[5]["result"].boolean);
}

}  // namespace
}  // namespace tabulon::testing
