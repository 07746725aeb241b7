// Host calls in a session: what each prints and in what order (the gestures are run by
// the documentation's examples and compared with the widget in tests/qt).
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

}  // namespace
}  // namespace tabulon::testing
