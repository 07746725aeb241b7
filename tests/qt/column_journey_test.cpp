// A person resizes the window and the grid's columns with the mouse while entering
// values, then saves with OK; the session runs the same steps and saves the same file.
#include <QTest>

#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

class ColumnJourney : public WidgetFixture {
protected:
    FlexGrid& grid() { return form().msgGridView; }
    std::string Twips(int pixels) { return std::to_string(widget().scale().toTwipsX(pixels)); }

    // The pointer on the right border of column col's header.
    QPoint Border(int col) {
        const QRect rect = view().cellRect(0, col);
        EXPECT_FALSE(rect.isEmpty()) << "column " << col << " is not in view";
        return {rect.right(), rect.center().y()};
    }
    std::string DragBorder(int col, int dx) {
        const QPoint from = Border(col);
        QTest::mousePress(&view(), Qt::LeftButton, Qt::NoModifier, from);
        QTest::mouseMove(&view(), from + QPoint(dx / 2, 30));  // the way down does not matter
        QTest::mouseMove(&view(), from + QPoint(dx, 0));
        QTest::mouseRelease(&view(), Qt::LeftButton, Qt::NoModifier, from + QPoint(dx, 0));
        ProcessEvents();
        return "drag-col-border " + std::to_string(col) + " " + Twips(dx) + "\n";
    }
    // A double click on the border fits the column; the session drags it as far.
    std::string FitBorder(int col) {
        const std::int32_t before = grid().colWidth(col);
        QTest::mouseDClick(&view(), Qt::LeftButton, Qt::NoModifier, Border(col));
        ProcessEvents();
        return "drag-col-border " + std::to_string(col) + " " +
               std::to_string(grid().colWidth(col) - before) + "\n";
    }
    std::string ResizeWindow(int width, int height) {
        widget().resize(width, height);
        ProcessEvents();
        return "resize " + Twips(widget().width()) + " " +
               std::to_string(widget().scale().toTwipsY(widget().height())) + "\n";
    }
};

TEST_F(ColumnJourney, ResizingWindowAndColumnsWhileEditingSavesWhatTheSessionSaves) {
    UseScrollBars();
    const std::string path = SampleCopy("english.xml");
    const TempDir sessionDir;
    const std::string sessionPath = sessionDir.write("english.xml", ReadFileBytes(path));
    ASSERT_TRUE(Load(path));
    std::string steps = "set-general intScrollBars=1\nload \"" + sessionPath + "\"\n";

    steps += Script({ClickCell(3, 1), TypeStep("12")});
    const std::int32_t narrow = grid().colWidth(1);
    steps += DragBorder(1, 60);
    EXPECT_EQ(grid().colWidth(1), narrow + widget().scale().toTwipsX(60));
    EXPECT_FALSE(form().anyEditorVisible()) << "the editor over the old geometry stayed";
    steps += FitBorder(2);
    EXPECT_FALSE(view().textCut(1, 2));
    EXPECT_FALSE(view().textCut(0, 2));
    steps += DragBorder(0, -40);
    steps += Script({ClickCell(4, 2), TypeStep("48")});

    // Smaller than the control's minimum: the window stops there, every button whole.
    steps += ResizeWindow(300, 200);
    EXPECT_EQ(widget().size(), widget().minimumSize());
    for (const Button* button : {&form().cmdPrint, &form().cmdOK, &form().cmdCancel}) {
        EXPECT_TRUE(widget().rect().contains(widget().widgetFor(*button)->geometry()))
            << button->name() << " is cut off";
    }
    steps += Script({ClickCell(5, 1), TypeStep("east stair core")});
    steps += ResizeWindow(760, 520);
    steps += DragBorder(3, -20);
    steps += Script({ClickCell(5, 3), TypeStep("checked on site")});
    steps += ButtonStep("OK");

    const SessionRun run = RunSteps(steps + "displaycolwidth\ndump grid\nxml\n");
    ExpectSameOutcome(run);
    const std::vector<JsonValue> results = Results(run);
    ASSERT_GE(results.size(), 2u);
    EXPECT_EQ(widget().DisplayColWidth().toStdString(), results[results.size() - 2].text);
    EXPECT_EQ(events.back(), "OKClick");
    EXPECT_TRUE(messages.empty()) << messages.front();
    EXPECT_EQ(ReadFileBytes(path), ReadFileBytes(sessionPath));
    EXPECT_NE(ReadFileBytes(path).find("checked on site"), std::string::npos);
}

}  // namespace
}  // namespace tabulon::testing
