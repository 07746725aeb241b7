#include "document/report.h"

#include "support/failure.h"
#include "support/text.h"

namespace tabulon {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

void AppendLine(std::string& report, std::string_view line) {
    report.append(line);
    report.append(kLineEnd);
}

// One element on one line, its text copied unescaped.
void AppendElement(std::string& report, std::string_view tag, std::string_view text) {
    report.append("<").append(tag).append(">");
    report.append(Trim(text));
    report.append("</").append(tag).append(">");
    report.append(kLineEnd);
}

}  // namespace

std::string BuildReportXML(const FlexGrid& grid, MessageSink& sink) {
    std::string report;
    try {
        const int cols = grid.cols();
        const int rows = grid.rows();
        if ((rows - 1) + (cols - 1) <= 1) return report;

        AppendLine(report, "<Column_Header>");
        for (int c = 1; c < cols; ++c) {
            if (grid.colWidth(c) >= 1)
                AppendElement(report, "ColumnCaption", grid.textMatrix(0, c));
        }
        AppendLine(report, "</Column_Header>");

        // Row captions start at the corner cell (row 0) while the data starts at
        // row 1: the report format keeps that asymmetry.
        AppendLine(report, "<Row_Header>");
        for (int r = 0; r < rows; ++r)
            AppendElement(report, "RowCaption", grid.textMatrix(r, 0));
        AppendLine(report, "</Row_Header>");

        AppendLine(report, "<Grid_Data>");
        for (int c = 1; c < cols; ++c) {
            if (grid.colWidth(c) < 1) continue;
            AppendLine(report, "<Column_Value>");
            for (int r = 1; r < rows; ++r)
                AppendElement(report, "CellValue", grid.textMatrix(r, c));
            AppendLine(report, "</Column_Value>");
        }
        AppendLine(report, "</Grid_Data>");
    } catch (...) {
        sink.Critical(DescribeCurrentException());
    }
    return report;
}

}  // namespace tabulon
