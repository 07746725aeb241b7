// Documents the Qt tests generate: one tree node over a grid of TextBox rows.
#pragma once

#include <string>

namespace tabulon::testing {

// One node "N" over rows x cols data cells; cell (r, c) holds "r.c". The cells of
// row 1 ask for the host's validation when validatedFirstRow is set. imageName, when
// given, is the node's picture file.
inline std::string GridDocument(int rows, int cols, bool validatedFirstRow = false,
                                const std::string& imageName = "") {
    std::string xml =
        "<xml MeasurementUnit=\"ENGLISH\">\n<TreeStructure>\n"
        "<Pnode Name=\"Node\" KeyValue=\"N\" GridHeaderKey=\"H\" "
        "GridValueKey=\"V\" Filter=\"0\"";
    if (!imageName.empty()) xml += " ImageName=\"" + imageName + "\"";
    xml +=
        "/>\n</TreeStructure>\n<GridStructure>\n<GridHeaders>\n<GridHeader Key=\"H\">\n"
        "<ColumnHeaders>\n<ColumnHeader HName=\"Item\"/>\n";
    for (int c = 1; c <= cols; ++c) {
        xml += "<ColumnHeader HName=\"C" + std::to_string(c) + "\"/>\n";
    }
    xml += "</ColumnHeaders>\n<RowHeaders>\n";
    for (int r = 1; r <= rows; ++r) {
        xml += "<RowHeader HName=\"R" + std::to_string(r) +
               "\" ControlType=\"TextBox\" MaxLength=\"20\"/>\n";
    }
    xml += "</RowHeaders>\n</GridHeader>\n</GridHeaders>\n<GridValues>\n";
    for (int c = 1; c <= cols; ++c) {
        xml += "<GridValue>\n<CellValues GridValueKey=\"V\">\n";
        for (int r = 1; r <= rows; ++r) {
            const bool validated = validatedFirstRow && r == 1;
            xml += std::string("<CellValue Enabled=\"1\" Valid=\"1\" ApplicationValidation=\"") +
                   (validated ? "1" : "0") + "\">" + std::to_string(r) + "." + std::to_string(c) +
                   "</CellValue>\n";
        }
        xml += "</CellValues>\n</GridValue>\n";
    }
    xml += "</GridValues>\n</GridStructure>\n</xml>\n";
    return xml;
}

}  // namespace tabulon::testing
