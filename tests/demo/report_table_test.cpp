// Reading the View/Print report back into a table, and its preview.
#include <gtest/gtest.h>

#include <QTest>
#include <QTextDocument>

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

// The table as text: column captions, row captions, then each data row's cells.
std::string Shown(const ReportTable& table) {
    QString text = table.columnCaptions.join('|') + " / " + table.rowCaptions.join('|') + " /";
    for (int r = 0; r < table.rowCount(); ++r) {
        text += ' ';
        for (int c = 0; c < table.columnCount(); ++c)
            text += (c == 0 ? "" : ",") + table.cell(r, c);
    }
    return text.toStdString();
}

TEST(ParseReport, CaptionsAndColumnsComeBackInTheirPlaces) {
    QString shortColumn = kReport;
    shortColumn.replace(QStringLiteral("<CellValue>4</CellValue>\r\n"), QString());
    const struct {
        const char* what;
        QString report;
        std::string shown;
    } cases[] = {
        {"a line break runs on to the closing tag",
         "<Row_Header>\r\n<RowCaption>first\r\nsecond</RowCaption>\r\n<RowCaption>z</RowCaption>"
         "\r\n</Row_Header>\r\n",
         " / first\nsecond|z / "},
        {"lines outside their section are skipped",
         "<CellValue>stray</CellValue>\r\n<Grid_Data>\r\n<CellValue>no column</CellValue>\r\n"
         "<ColumnCaption>wrong section</ColumnCaption>\r\n</Grid_Data>\r\nnoise\r\n",
         " /  /"},
        {"a short column ends in empty cells", shortColumn, "A|B / |x|y / 1,3 2,"},
    };
    for (const auto& c : cases) {
        const ReportTable table = ParseReport(c.report);
        EXPECT_EQ(Shown(table), c.shown) << c.what;
        EXPECT_EQ(table.empty(), c.shown == " /  /") << c.what;
    }
}

// The preview lays the title and the table out on printer pages without a printer
// installed (this also pins how the two-by-two report is read).
TEST(ReportPreviewDialog, ShowsTheReportOnPages) {
    ReportPreviewDialog preview(ReportDocument(ParseReport(kReport), QStringLiteral("Plant")));
    // The title, then the table row by row: the caption row, then x and y.
    EXPECT_EQ(preview.document().toPlainText().toStdString(),
              "Plant\n\n\nA\nB\nx\n1\n3\ny\n2\n4\n");
    preview.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&preview));
    EXPECT_GT(testing::DistinctColours(preview.grab().toImage()), 16);
}

}  // namespace
}  // namespace tabulon::demo
