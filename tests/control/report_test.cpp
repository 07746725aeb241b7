// View/Print: the report text built from the grid on screen, byte for byte (the tool's
// report command shows the whole text, the filter and the gate: tests/session).
#include <gtest/gtest.h>

#include "common/control_harness.h"
#include "common/documents.h"

namespace tabulon {
namespace {

using testing::ControlHarness;
using testing::Information;

// Lines joined with CR LF after each, the last one included.
std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (std::string_view line : lines)
        text.append(line).append("\r\n");
    return text;
}

class ViewPrint : public ControlHarness {
protected:
    // The report of one View/Print, or "" when PrintClick was not raised.
    std::string Print() {
        host.clear();
        form().cmdPrint.userClick();
        const std::vector<RecordedEvent> printed = host.eventsOf(HostEventKind::PrintClick);
        return printed.empty() ? "" : printed.back().text;
    }
};

TEST_F(ViewPrint, TextsAreTrimmedAndNeverEscaped) {
    ASSERT_TRUE(LoadDataFile("shell_report.xml"));
    const std::string report = Print();
    EXPECT_NE(report.find("<ColumnCaption>P-102 <spare></ColumnCaption>\r\n"), std::string::npos);
    EXPECT_NE(report.find("<RowCaption>Service</RowCaption>\r\n"), std::string::npos);
    EXPECT_NE(report.find("<RowCaption>Head & flow</RowCaption>\r\n"), std::string::npos);
    EXPECT_NE(report.find("<CellValue>12.5</CellValue>\r\n"), std::string::npos);
    EXPECT_NE(report.find("<CellValue>30 m & 5 l/s</CellValue>\r\n"), std::string::npos);
}

TEST_F(ViewPrint, OneDataCellIsReportedAndNoDataColumnIsNot) {
    // Node P1: one value under the captions; node P2: a layout without a value column.
    const std::string row = R"(<RowHeader HName="Row" ControlType="TextBox"/>)";
    ASSERT_TRUE(LoadText(testing::Doc(
        testing::Pnode("P1", "K", "Filter=\"0\"", "G1") +
            testing::Pnode("P2", "K", "Filter=\"0\"", "G2"),
        testing::Header("G1", R"(<ColumnHeader HName="Corner"/><ColumnHeader HName="Only"/>)",
                        row) +
            testing::Header("G2", R"(<ColumnHeader HName="Corner"/>)", row),
        testing::Column({{"42"}}))));
    EXPECT_EQ(Print(), Lines({"<Column_Header>", "<ColumnCaption>Only</ColumnCaption>",
                              "</Column_Header>", "<Row_Header>", "<RowCaption>Corner</RowCaption>",
                              "<RowCaption>Row</RowCaption>", "</Row_Header>", "<Grid_Data>",
                              "<Column_Value>", "<CellValue>42</CellValue>", "</Column_Value>",
                              "</Grid_Data>"}));
    form().treTreeView.userClickNode(2);
    sink.clear();
    EXPECT_EQ(Print(), "");
    ExpectMessages({Information("No data defined in grid.")});
}

}  // namespace
}  // namespace tabulon
