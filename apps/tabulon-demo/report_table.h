// The View/Print report (the text PrintClick hands the host) read back into a table,
// and that table as a printable document.
//
// The report is a sequence of CR LF lines: column captions, row captions (the
// top-left corner cell first), then the grid's data column by column. Its texts are
// not escaped, so it is not always well-formed XML; it is read line by line, each
// line one element with its text between the opening and the closing tag.
//
// Decisions:
// - A text holding a line break (its element does not close on its own line) runs on
//   over the following lines, joined with "\n", up to the line that ends with its
//   closing tag.
// - Lines that are none of the report's elements, and elements outside their
//   section, are skipped.
// - A column with fewer cells than there are data rows shows empty cells below its
//   last one.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

class QTextDocument;

namespace tabulon::demo {

struct ReportTable {
    QStringList columnCaptions;        // the data columns' captions, left to right
    QStringList rowCaptions;           // the corner's text first, then one per data row
    std::vector<QStringList> columns;  // each data column's cells, top to bottom

    // Data rows and columns (without the caption row and column).
    int rowCount() const;
    int columnCount() const;
    // The text of data cell (row, column), 0-based; "" outside the table.
    QString cell(int row, int column) const;
    bool empty() const { return rowCount() == 0 && columnCount() == 0; }
};

ReportTable ParseReport(const QString& report);

// The table as a document: title (when not empty) above a bordered table whose first
// row holds the corner and the column captions and whose first column holds the row
// captions.
std::unique_ptr<QTextDocument> ReportDocument(const ReportTable& table, const QString& title);

}  // namespace tabulon::demo
