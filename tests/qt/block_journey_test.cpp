// Ranges, copy and paste with real Qt events: Shift+click, a drag, the block keys and
// the desktop's clipboard, against the same steps through the session tool.
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QTest>
#include <regex>

#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

class BlockJourney : public WidgetFixture {
protected:
    QWidget* grid() { return widget().widgetFor(form().msgGridView); }
    std::string ShiftClickCell(int row, int col) {
        QTest::mouseClick(grid(), Qt::LeftButton, Qt::ShiftModifier, CellCentre(row, col));
        ProcessEvents();
        return "shift-click " + std::to_string(row) + " " + std::to_string(col) + "\n";
    }
    // The left button goes down on the first cell and is dragged to the second.
    std::string DragCells(int row1, int col1, int row2, int col2) {
        QTest::mousePress(grid(), Qt::LeftButton, Qt::NoModifier, CellCentre(row1, col1));
        const QPoint to = CellCentre(row2, col2);
        QMouseEvent move(QEvent::MouseMove, to, grid()->mapToGlobal(to), Qt::NoButton,
                         Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(grid(), &move);
        QTest::mouseRelease(grid(), Qt::LeftButton, Qt::NoModifier, to);
        ProcessEvents();
        return "drag " + std::to_string(row1) + " " + std::to_string(col1) + " " +
               std::to_string(row2) + " " + std::to_string(col2) + "\n";
    }
    std::vector<std::string> Cells(int rows, int cols) {
        std::vector<std::string> cells;
        const FlexGrid& g = form().msgGridView;
        const ControlCore& core = CoreOf(widget().control());
        for (int r = 1; r <= rows; ++r) {
            for (int c = 1; c <= cols; ++c) {
                const xml::Node element = core.doc.arrCellNodes.at(r, c);
                cells.push_back(g.textMatrix(r, c) + "|" + element.text() + "|" +
                                std::string(element.attribute("Valid").value()));
            }
        }
        return cells;
    }
};

TEST_F(BlockJourney, SelectCopyPasteFillAndDeleteLikeTheSession) {
    const std::string path = SampleCopy("english.xml");
    ASSERT_TRUE(Load(path));
    const std::string steps =
        Script({DragCells(1, 1, 2, 1), KeyStep("c", "ctrl"), ClickCell(1, 2), KeyStep("v", "ctrl"),
                ClickCell(3, 1), ShiftClickCell(4, 3), KeyStep("d", "ctrl"), ClickCell(5, 1),
                KeyStep("Up", "shift"), KeyStep("Right", "shift"), KeyStep("Delete")});
    const SessionRun run = RunSteps("load \"" + path + "\"\n" + steps + "dump grid\nxml\n");
    ExpectSameOutcome(run);
    const FlexGrid& g = form().msgGridView;
    EXPECT_EQ(g.textMatrix(1, 2), g.textMatrix(1, 1));
    EXPECT_EQ(g.textMatrix(4, 3), "0");  // disabled: skipped and reported
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0],
              "information: 2 cell(s) pasted, 1 skipped:\nDesign occupants, "
              "Central Plant: \"1\" disabled");
    EXPECT_EQ(g.textMatrix(4, 2), "");  // filled down to "3", then deleted
    EXPECT_EQ(g.textMatrix(5, 2), "");
    EXPECT_EQ(std::vector<int>({g.row(), g.col(), g.rowSel(), g.colSel()}),
              std::vector<int>({4, 1, 5, 2}));
}

TEST_F(BlockJourney, TheDesktopClipboardCarriesAWholeGridToAnotherNode) {
    const std::string second =
        R"(<Pnode Name="N2" KeyValue="N2" GridHeaderKey="H" GridValueKey="K2" Filter="0"/>)";
    const std::string blank = CellValues("K2", {{""}, {"a"}, {"1"}});
    const std::vector<std::string> rows = {Row("TextBox"), Row("ComboBox", R"(ListValues="a;b")"),
                                           Row("UnitNum", R"(Unit="FT_TO_M" Format="0.0")")};
    ASSERT_TRUE(Load(WriteTempFile(
        "two_nodes.xml",
        Document(rows,
                 {Column({{"x1"}, {"b"}, {"2.5"}}, blank), Column({{"x2"}, {"a"}, {"7.0"}}, blank)},
                 "METRIC", "", second))));
    ClickCell(1, 1);
    ShiftClickCell(3, 2);
    KeyClick(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->text().toStdString(), "x1\tx2\r\nb\ta\r\n0.8\t2.1");
    EXPECT_TRUE(data->html().contains(QStringLiteral("<td>0.8</td>")));
    const std::vector<std::string> first = Cells(3, 2);

    ClickNode("N2");
    ClickCell(1, 1);
    KeyClick(Qt::Key_V, Qt::ControlModifier);
    const std::vector<std::string> pasted = Cells(3, 2);
    // Texts and pick-list entries stored as they were; the Metric numbers as shown, stored
    // in English again from the shown value.
    EXPECT_EQ(std::vector(pasted.begin(), pasted.begin() + 4),
              std::vector(first.begin(), first.begin() + 4));
    EXPECT_EQ(pasted[4], "0.8|2.6246719|1");
    EXPECT_EQ(pasted[5], "2.1|6.8897638|1");
    EXPECT_TRUE(messages.empty());

    // What a spreadsheet puts there: both formats; the text is what is read.
    auto* spreadsheet = new QMimeData;
    spreadsheet->setText(QStringLiteral("y1\tc\nb\tz\n3\t-\n"));
    spreadsheet->setHtml(QStringLiteral("<table><tr><td>y1</td><td>c</td></tr></table>"));
    QGuiApplication::clipboard()->setMimeData(spreadsheet);
    ClickCell(1, 1);
    KeyClick(Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(form().msgGridView.textMatrix(1, 1), "y1");
    EXPECT_EQ(form().msgGridView.textMatrix(2, 2), "a");  // "z" is no pick-list entry
    EXPECT_EQ(form().msgGridView.textMatrix(3, 1), "3.0");
    ASSERT_EQ(messages.size(), 1u);
    EXPECT_EQ(messages[0],
              "information: 4 cell(s) pasted, 2 skipped:\nR, C: \"z\" not in the list\n"
              "R, C: \"-\" not a number");
}

}  // namespace
}  // namespace tabulon::testing
