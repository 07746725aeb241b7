// `tabulon export --xlsx`: the workbook read back (unzip, then its XML parts) holds
// what the CSV export writes, cell for cell, with plain numbers as number cells, and
// worksheet names follow the naming rule.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "common/files.h"
#include "platform/xml/xml_document.h"
#include "session/tool_runner.h"
#include "support/cell_table_text.h"

namespace tabulon::testing {
namespace {

std::string Unzipped(const std::filesystem::path& zip, const std::string& part) {
    const std::filesystem::path out = zip.parent_path() / "part.xml";
    const std::string command =
        "unzip -p '" + zip.string() + "' '" + part + "' > '" + out.string() + "'";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    return ReadFileBytes(out);
}

xml::Document Parsed(const std::string& text) {
    xml::Document document;
    EXPECT_TRUE(document.Parse(text));
    return document;
}

struct Workbook {
    std::vector<std::string> names;
    std::vector<CellTable> sheets;
};

// Every worksheet as the texts a spreadsheet shows: shared strings, and numbers with
// as many decimals as their number format ("0", "0.0", ...) has.
Workbook ReadWorkbook(const std::filesystem::path& zip) {
    Workbook book;
    const xml::Document strings = Parsed(Unzipped(zip, "xl/sharedStrings.xml"));
    std::vector<std::string> shared;
    for (const xml::Node& si : strings.root().select("//si"))
        shared.push_back(si.text());
    const xml::Document styles = Parsed(Unzipped(zip, "xl/styles.xml"));
    std::map<std::string, std::string> codes{{"0", ""}, {"1", "0"}, {"2", "0.00"}};
    for (const xml::Node& format : styles.root().select("//numFmt"))
        codes[std::string(format.attribute("numFmtId").value())] =
            format.attribute("formatCode").value();
    std::vector<std::string> styleCodes;
    for (const xml::Node& xf : styles.root().select("//cellXfs/xf"))
        styleCodes.push_back(codes[std::string(xf.attribute("numFmtId").value())]);
    const xml::Document workbook = Parsed(Unzipped(zip, "xl/workbook.xml"));
    for (const xml::Node& sheet : workbook.root().select("//sheet")) {
        book.names.emplace_back(sheet.attribute("name").value());
        const std::string part = "xl/worksheets/sheet" + std::to_string(book.names.size()) + ".xml";
        const xml::Document cells = Parsed(Unzipped(zip, part));
        CellTable& table = book.sheets.emplace_back();
        std::size_t width = 0;
        for (const xml::Node& c : cells.root().select("//c")) {
            const std::string ref(c.attribute("r").value());
            const std::size_t digits = ref.find_first_of("0123456789");
            const auto row = static_cast<std::size_t>(std::stoi(ref.substr(digits)) - 1);
            std::size_t col = 0;
            for (std::size_t i = 0; i < digits; ++i)
                col = col * 26 + static_cast<std::size_t>(ref[i] - 'A' + 1);
            const std::string value = c.firstChildElement("v").text();
            std::string text;
            if (c.attribute("t").value() == "s") {
                text = shared.at(std::stoul(value));
            } else {
                const std::string code =
                    styleCodes.at(std::stoul(std::string(c.attribute("s").value())));
                const std::size_t point = code.find('.');
                const int decimals =
                    point == std::string::npos ? 0 : static_cast<int>(code.size() - point - 1);
                char buffer[64];
                std::snprintf(buffer, sizeof buffer, "%.*f", decimals, std::stod(value));
                text = buffer;
            }
            table.resize(std::max(table.size(), row + 1));
            width = std::max(width, col);
            table[row].resize(width);
            table[row][col - 1] = text;
        }
        for (auto& cellsOfRow : table)
            cellsOfRow.resize(width);
    }
    return book;
}

// Both sample documents (every editor kind, English and Metric): each worksheet is
// the node's CSV file, in the CSV files' order.
TEST(TabulonExport, WorkbookHoldsTheCsvExportCellForCell) {
    for (const char* sample : {"samples/english.xml", "samples/metric.xml"}) {
        SCOPED_TRACE(sample);
        const TempDir dir;
        const std::filesystem::path book = dir.path() / "grids.xlsx";
        const ToolRun r = RunTool(std::string("export ") + sample + " --csv " +
                                  (dir.path() / "csv").string() + " --xlsx " + book.string());
        ASSERT_EQ(r.status, 0) << r.err;
        std::vector<std::filesystem::path> csv;
        for (const auto& entry : std::filesystem::directory_iterator(dir.path() / "csv"))
            csv.push_back(entry.path());
        std::sort(csv.begin(), csv.end());
        EXPECT_NE(r.out.find(std::to_string(csv.size()) + " worksheet(s) written to"),
                  std::string::npos);
        const Workbook read = ReadWorkbook(book);
        ASSERT_EQ(read.sheets.size(), csv.size());
        for (std::size_t i = 0; i < csv.size(); ++i)
            EXPECT_EQ(ToCsv(read.sheets[i]) + "\r\n", ReadFileBytes(csv[i])) << csv[i];
    }
}

// Names: ":" made "_", cut to 31 characters, a clash without regard to case and the
// reserved "History" numbered.
TEST(TabulonExport, WorksheetNamesFollowTheRule) {
    const TempDir dir;
    std::string xml =
        ReadFileBytes(std::filesystem::path(TABULON_SOURCE_DIR) / "samples/metric.xml");
    xml = Replaced(xml, "KeyValue=\"SUITE\"", "KeyValue=\"Zone:Alpha\"");
    xml = Replaced(xml, "KeyValue=\"GOWNING\"", "KeyValue=\"ZONE_ALPHA\"");
    xml = Replaced(xml, "KeyValue=\"BAY\"", "KeyValue=\"B123456789C123456789D123456789E1234\"");
    xml = Replaced(xml, "KeyValue=\"UTILITIES\"", "KeyValue=\"history\"");
    const std::string document = dir.write("names.xml", xml);
    const std::filesystem::path book = dir.path() / "names.xlsx";
    ASSERT_EQ(RunTool("export " + document + " --xlsx " + book.string()).status, 0);
    const std::vector<std::string> expected = {"Zone_Alpha", "ZONE_ALPHA~2",
                                               "B123456789C123456789D123456789E", "history~2"};
    EXPECT_EQ(ReadWorkbook(book).names, expected);
}

}  // namespace
}  // namespace tabulon::testing
