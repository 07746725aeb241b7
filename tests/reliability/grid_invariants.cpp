#include "reliability/grid_invariants.h"

#include <map>
#include <optional>
#include <vector>

#include "control/control_access.h"
#include "document/validate_document_text.h"
#include "support/failure.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "support/text.h"
#include "support/utf8.h"
#include "testing/recording_sink.h"

namespace tabulon::reliability {

namespace {

constexpr Rgb kBlack = 0x000000;
constexpr Rgb kGrey = 0x808080;
constexpr Rgb kWhite = 0xFFFFFF;
constexpr Rgb kRed = 0xFF0000;

std::string Cell(int row, int col) {
    return "(" + std::to_string(row) + ", " + std::to_string(col) + ")";
}

std::string Quoted(std::string_view text) {
    return "\"" + std::string(text) + "\"";
}

std::vector<xml::Node> ElementsNamed(xml::Node parent, std::string_view name) {
    std::vector<xml::Node> found;
    for (xml::Node child = parent.firstChild(); child; child = child.nextSibling()) {
        if (child.type() == xml::NodeType::Element && child.name() == name) found.push_back(child);
    }
    return found;
}

std::string Attr(xml::Node element, std::string_view name) {
    return std::string(element.attribute(name).value());
}

xml::Node GridStructure(const DocumentModel& doc) {
    if (!doc.objXMLDoc) return {};
    return doc.objXMLDoc->documentElement().firstChildElement("GridStructure");
}

// The node's grid as the document describes it.
struct DocumentGrid {
    bool headerFound = false;
    std::vector<xml::Node> columns;  // ColumnHeader elements
    std::vector<xml::Node> rows;     // RowHeader elements, row r at r - 1
    std::map<std::pair<int, int>, xml::Node> cells;
};

DocumentGrid ReadDocumentGrid(const DocumentModel& doc, const std::string& headerKey,
                              const std::string& valueKey) {
    DocumentGrid grid;
    const xml::Node headers = GridStructure(doc).firstChildElement("GridHeaders");
    for (const xml::Node& header : ElementsNamed(headers, "GridHeader")) {
        if (Attr(header, "Key") != headerKey) continue;
        grid.headerFound = true;
        grid.columns = ElementsNamed(header.firstChildElement("ColumnHeaders"), "ColumnHeader");
        grid.rows = ElementsNamed(header.firstChildElement("RowHeaders"), "RowHeader");
        break;
    }
    const int rowCount = static_cast<int>(grid.rows.size()) + 1;
    const int colCount = static_cast<int>(grid.columns.size());
    // Every child of every matching CellValues of GridValue c fills column c, row after
    // row; later matching CellValues overwrite earlier ones, cell by cell, as the fill does.
    const std::vector<xml::Node> gridValues =
        ElementsNamed(GridStructure(doc).firstChildElement("GridValues"), "GridValue");
    for (int col = 1; col <= static_cast<int>(gridValues.size()) && col < colCount; ++col) {
        for (xml::Node values = gridValues[static_cast<std::size_t>(col - 1)].firstChild(); values;
             values = values.nextSibling()) {
            if (Trim(Attr(values, "GridValueKey")) != valueKey) continue;
            int row = 1;
            for (xml::Node cell = values.firstChild(); cell && row < rowCount;
                 cell = cell.nextSibling(), ++row) {
                grid.cells[{row, col}] = cell;
            }
        }
    }
    return grid;
}

std::string StoredText(xml::Node cell) {
    return std::string(cell.firstChild().value());
}

bool IsConvertedRow(bool metric, xml::Node rowHeader) {
    const std::string type = Attr(rowHeader, "ControlType");
    return metric &&
           (type == "UnitDrop" || (type == "UnitNum" && !Attr(rowHeader, "Unit").empty()));
}

// The text the grid fill writes for stored text t in a row; nullopt where the fill
// itself fails (the value is then not judged here).
std::optional<std::string> FilledText(xml::Node rowHeader, const std::string& t) {
    const std::string type = Attr(rowHeader, "ControlType");
    try {
        if (type == "UnitNum") return FormatNumber(ReadNumber(t), Attr(rowHeader, "Format"));
        if (type == "UnitDrop") {
            const std::size_t open = t.find('(');
            if (open == std::string::npos) return t;
            const std::string_view unit = std::string_view(t).substr(open + 1);
            if (unit.empty()) return std::nullopt;
            const std::size_t lastCharacter = Utf8Offset(unit, CountUtf8(unit) - 1);
            return t.substr(0, open) + "(" + std::string(unit.substr(0, lastCharacter)) + ")";
        }
    } catch (const RuntimeFailure&) {
        return std::nullopt;
    }
    return t;
}

bool MetricDocument(const DocumentModel& doc) {
    return doc.strMeasurementUnit == "METRIC";
}

}  // namespace

Problems CheckGridAgainstDocument(const Generic_SP_Control& control) {
    Problems problems;
    const DocumentModel& doc = CoreOf(control).doc;
    if (!doc.blnGridLoaded) return problems;
    const DocumentGrid expected =
        ReadDocumentGrid(doc, doc.strCurrentHeaderKey, doc.strCurrentValueKey);
    const FlexGrid& grid = FormOf(control).msgGridView;
    if (!expected.headerFound) return {"the grid is loaded for a missing GridHeader"};
    if (grid.cols() != static_cast<int>(expected.columns.size()) ||
        grid.rows() != static_cast<int>(expected.rows.size()) + 1) {
        return {"grid is " + std::to_string(grid.rows()) + " x " + std::to_string(grid.cols()) +
                ", its GridHeader describes " + std::to_string(expected.rows.size() + 1) + " x " +
                std::to_string(expected.columns.size())};
    }
    const bool metric = MetricDocument(doc);
    for (const auto& [at, element] : expected.cells) {
        const auto [r, c] = at;
        const xml::Node rowHeader = expected.rows[static_cast<std::size_t>(r - 1)];
        const std::string shown = grid.textMatrix(r, c);
        const std::optional<std::string> filled = FilledText(rowHeader, StoredText(element));
        if (!IsConvertedRow(metric, rowHeader) && filled && shown != *filled) {
            problems.push_back("cell " + Cell(r, c) + " shows " + Quoted(shown) + ", its value " +
                               Quoted(StoredText(element)) + " fills as " + Quoted(*filled));
        }
        const Rgb fore = Attr(element, "Enabled") == "1" ? kBlack : kGrey;
        const Rgb back = Attr(element, "Valid") == "1" ? kWhite : kRed;
        if (grid.cellForeColor(r, c) != fore || grid.cellBackColor(r, c) != back) {
            problems.push_back("cell " + Cell(r, c) + " colours do not follow Enabled=" +
                               Quoted(Attr(element, "Enabled")) +
                               " Valid=" + Quoted(Attr(element, "Valid")));
        }
    }
    return problems;
}

Problems CheckDocumentValidates(const Generic_SP_Control& control) {
    const std::string text = control.XML();
    if (text.empty()) return {"XML() is empty"};
    RecordingSink sink;
    if (ValidateDocumentText(text, sink)) return {};
    Problems problems{"XML() does not validate"};
    for (const RecordedMessage& message : sink.messages())
        problems.push_back(message.text);
    return problems;
}

}  // namespace tabulon::reliability
