// Reading the View/Print report back into a table, and the table as a document.
#include <gtest/gtest.h>

#include <QTest>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextTable>

#include "common/qt_images.h"
#include "report_preview.h"
#include "report_table.h"

namespace tabulon::demo {
namespace {

// Captions A and B over two data columns, rows x and y, as the control writes it.
const QString kReport = QStringLiteral(
    "<Column_Header>\r\n"
    "<ColumnCaption>A</ColumnCaption>\r\n"
    "<ColumnCaption>B</ColumnCaption>\r\n"
    "</Column_Header>\r\n"
    "<Row_Header>\r\n"
    "<RowCaption></RowCaption>\r\n"
    "<RowCaption>x</RowCaption>\r\n"
    "<RowCaption>y</RowCaption>\r\n"
    "</Row_Header>\r\n"
    "<Grid_Data>\r\n"
    "<Column_Value>\r\n"
    "<CellValue>1</CellValue>\r\n"
    "<CellValue>2</CellValue>\r\n"
    "</Column_Value>\r\n"
    "<Column_Value>\r\n"
    "<CellValue>3</CellValue>\r\n"
    "<CellValue>4</CellValue>\r\n"
    "</Column_Value>\r\n"
    "</Grid_Data>\r\n");

TEST(ParseReport, CaptionsAndColumnsComeBackInTheirPlaces) {
    const ReportTable table = ParseReport(kReport);

    EXPECT_EQ(table.columnCaptions, QStringList({"A", "B"}));
    EXPECT_EQ(table.rowCaptions, QStringList({"", "x", "y"}));
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.columnCount(), 2);
    EXPECT_EQ(table.cell(0, 0), QStringLiteral("1"));
    EXPECT_EQ(table.cell(1, 0), QStringLiteral("2"));
    EXPECT_EQ(table.cell(0, 1), QStringLiteral("3"));
    EXPECT_EQ(table.cell(1, 1), QStringLiteral("4"));
    EXPECT_EQ(table.cell(2, 0), QString());
    EXPECT_EQ(table.cell(0, 2), QString());
}

TEST(ParseReport, UnescapedTextIsTakenAsItIs) {
    const ReportTable table = ParseReport(
        QStringLiteral("<Grid_Data>\r\n<Column_Value>\r\n<CellValue>a<b & </c></CellValue>\r\n"
                       "</Column_Value>\r\n</Grid_Data>\r\n"));
    ASSERT_EQ(table.columnCount(), 1);
    EXPECT_EQ(table.cell(0, 0), QStringLiteral("a<b & </c>"));
}

TEST(ParseReport, ATextWithALineBreakRunsOnToItsClosingTag) {
    const ReportTable table = ParseReport(QStringLiteral(
        "<Row_Header>\r\n<RowCaption>first\r\nsecond</RowCaption>\r\n<RowCaption>z</RowCaption>\r\n"
        "</Row_Header>\r\n"));
    EXPECT_EQ(table.rowCaptions, QStringList({"first\nsecond", "z"}));
}

TEST(ParseReport, LinesOutsideTheirSectionAreSkipped) {
    const ReportTable table = ParseReport(QStringLiteral(
        "<CellValue>stray</CellValue>\r\n<Grid_Data>\r\n<CellValue>no column</CellValue>\r\n"
        "<ColumnCaption>wrong section</ColumnCaption>\r\n</Grid_Data>\r\nnoise\r\n"));
    EXPECT_TRUE(table.empty());
}

TEST(ParseReport, AShortColumnShowsEmptyCellsBelowItsLast) {
    QString report = kReport;
    report.replace(QStringLiteral("<CellValue>4</CellValue>\r\n"), QString());
    const ReportTable table = ParseReport(report);
    EXPECT_EQ(table.rowCount(), 2);
    EXPECT_EQ(table.cell(1, 1), QString());
}

TEST(ParseReport, AnEmptyReportIsAnEmptyTable) {
    EXPECT_TRUE(ParseReport(QString()).empty());
}

TEST(ReportDocument, HoldsTheTitleThenTheTableWithCaptionRowAndColumn) {
    const auto document = ReportDocument(ParseReport(kReport), QStringLiteral("Plant"));
    EXPECT_TRUE(document->toPlainText().startsWith(QStringLiteral("Plant")));

    QTextTable* table = nullptr;
    for (QTextFrame* frame : document->rootFrame()->childFrames()) {
        if (auto* found = qobject_cast<QTextTable*>(frame)) table = found;
    }
    ASSERT_NE(table, nullptr);
    ASSERT_EQ(table->rows(), 3);
    ASSERT_EQ(table->columns(), 3);
    const auto text = [table](int row, int column) {
        const QTextTableCell cell = table->cellAt(row, column);
        QTextCursor cursor = cell.firstCursorPosition();
        cursor.setPosition(cell.lastCursorPosition().position(), QTextCursor::KeepAnchor);
        return cursor.selectedText();
    };
    EXPECT_EQ(text(0, 0), QString());
    EXPECT_EQ(text(0, 1), QStringLiteral("A"));
    EXPECT_EQ(text(0, 2), QStringLiteral("B"));
    EXPECT_EQ(text(2, 0), QStringLiteral("y"));
    EXPECT_EQ(text(1, 2), QStringLiteral("3"));
    EXPECT_EQ(text(2, 1), QStringLiteral("2"));
}

// The preview lays the table out on printer pages without a printer installed.
TEST(ReportPreviewDialog, ShowsTheReportOnPages) {
    ReportPreviewDialog preview(ReportDocument(ParseReport(kReport), QStringLiteral("Plant")));
    preview.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&preview));
    EXPECT_GT(testing::DistinctColours(preview.grab().toImage()), 16);
}

}  // namespace
}  // namespace tabulon::demo
