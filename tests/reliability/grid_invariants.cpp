#include "reliability/grid_invariants.h"

#include <cmath>
#include <map>
#include <optional>
#include <thread>
#include <vector>

#include "control/control_access.h"
#include "document/validate_document_text.h"
#include "support/number_format.h"
#include "support/numeric.h"
#include "support/text.h"
#include "support/utf8.h"
#include "testing/recording_host.h"
#include "testing/recording_sink.h"
#include "unitinput/unit_catalogue.h"
#include "units/conversion_table.h"

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

// The keys of the node selected in the tree, as the control read them.
std::optional<TreeNodeInfo> SelectedRecord(const Generic_SP_Control& control) {
    const int selected = FormOf(control).treTreeView.selectedIndex();
    const DocumentModel& doc = CoreOf(control).doc;
    if (selected < 1 || selected > doc.treeRecordCount()) return std::nullopt;
    return doc.udtTreeNodes[static_cast<std::size_t>(selected - 1)];
}

double NumberOr0(std::string_view text) {
    try {
        return ReadNumber(text);
    } catch (const RuntimeFailure&) {
        return 0;
    }
}

// The conversion factor of a unit name; nullopt when the document knows no such unit.
std::optional<double> UnitFactor(const DocumentModel& doc, const std::string& name) {
    for (const CustomUnitRow& unit : doc.arrCustomUnits) {
        if (unit[0] == name || (MetricDocument(doc) && unit[1] == name)) return NumberOr0(unit[2]);
    }
    try {
        const UnitConversion* row = FindBuiltInConversion(ConversionIndex(name));
        if (row == nullptr) return std::nullopt;
        return row->factor;
    } catch (const RuntimeFailure&) {
        return std::nullopt;
    }
}

// Converted texts of a Metric unit row that differ only by rounding. The display pass
// converts the text the fill wrote, and a UnitNum fill first formats the stored English
// value with the row's format, so a refill of a committed value can move by half a
// unit of that format times the conversion factor; UnitDrop values are converted
// unformatted and may only differ in the last digit shown.
bool SameConvertedValue(const DocumentModel& doc, xml::Node rowHeader, const std::string& live,
                        const std::string& fresh) {
    const std::size_t liveOpen = live.find('(');
    const std::size_t freshOpen = fresh.find('(');
    if ((liveOpen == std::string::npos) != (freshOpen == std::string::npos)) return false;
    if (liveOpen != std::string::npos && live.substr(liveOpen) != fresh.substr(freshOpen)) {
        return false;
    }
    const std::string liveNumber = live.substr(0, liveOpen);
    const double a = NumberOr0(liveNumber);
    const double b = NumberOr0(fresh.substr(0, freshOpen));
    const std::size_t point = liveNumber.find('.');
    const int decimals =
        point == std::string::npos ? 0 : static_cast<int>(liveNumber.size() - point - 1);
    const double step = std::pow(10.0, -decimals);
    double tolerance = step + 1e-9 * std::abs(a);
    if (Attr(rowHeader, "ControlType") == "UnitNum") {
        const std::optional<double> factor = UnitFactor(doc, Attr(rowHeader, "Unit"));
        if (!factor) return false;
        tolerance += 0.5 * step * std::abs(*factor);
    }
    return std::abs(a - b) <= tolerance;
}

// --- grid snapshots for the fresh-fill comparison

struct GridSnapshot {
    int rows = 0;
    int cols = 0;
    std::vector<std::string> texts;
    std::vector<std::pair<Rgb, Rgb>> colours;  // fore, back
};

GridSnapshot Snapshot(const FlexGrid& grid) {
    GridSnapshot snapshot{grid.rows(), grid.cols(), {}, {}};
    for (int r = 0; r < grid.rows(); ++r) {
        for (int c = 0; c < grid.cols(); ++c) {
            snapshot.texts.push_back(grid.textMatrix(r, c));
            snapshot.colours.emplace_back(grid.cellForeColor(r, c), grid.cellBackColor(r, c));
        }
    }
    return snapshot;
}

}  // namespace

Problems CheckGridAgainstDocument(const Generic_SP_Control& control) {
    Problems problems;
    const DocumentModel& doc = CoreOf(control).doc;
    if (!doc.blnGridLoaded) return problems;
    const std::optional<TreeNodeInfo> record = SelectedRecord(control);
    if (!record) return {"a grid is shown but no tree node is selected"};
    if (doc.strCurrentHeaderKey != record->GridHeaderKey ||
        doc.strCurrentValueKey != record->GridValueKey) {
        return {"the grid shows other keys than node " + Quoted(record->KeyValue) + " has"};
    }
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
    const auto checkCaption = [&](int r, int c, xml::Node header) {
        const std::string caption = Attr(header, "HName");
        if (grid.textMatrix(r, c) != caption) {
            problems.push_back("caption " + Cell(r, c) + " is " + Quoted(grid.textMatrix(r, c)) +
                               ", expected " + Quoted(caption));
        }
    };
    for (int c = 0; c < grid.cols(); ++c)
        checkCaption(0, c, expected.columns[static_cast<std::size_t>(c)]);
    for (int r = 1; r < grid.rows(); ++r)
        checkCaption(r, 0, expected.rows[static_cast<std::size_t>(r - 1)]);
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

Problems CheckAgainstFreshFill(const Generic_SP_Control& control) {
    const std::string text = control.XML();
    const int node = FormOf(control).treTreeView.selectedIndex();
    const GridSnapshot live = Snapshot(FormOf(control).msgGridView);
    GridSnapshot fresh;
    // The counts of values that need correcting, in all and per tree node, are kept
    // as the control works; a fresh load counts them from the document.
    const auto counts = [](const Generic_SP_Control& c) {
        std::string all = std::to_string(c.ProblemCount());
        const TreeView& tree = FormOf(c).treTreeView;
        for (int n = 1; n <= tree.count(); ++n)
            all += " " + std::to_string(tree.node(n).problems);
        return all;
    };
    const std::string liveCounts = counts(control);
    std::string freshCounts;
    Problems problems;
    std::thread([&] {
        try {
            RecordingSink sink;
            RecordingHost host;
            Generic_SP_Control other(sink, host);
            other.InitProperties();
            other.Show();
            if (!other.LoadXML(text)) {
                problems.push_back("a fresh control does not load XML()");
                return;
            }
            freshCounts = counts(other);
            if (node > 1) FormOf(other).treTreeView.userClickNode(node);
            fresh = Snapshot(FormOf(other).msgGridView);
        } catch (...) {
            problems.push_back("a fresh control failed: " + DescribeCurrentException());
        }
    }).join();
    if (!problems.empty()) return problems;
    if (liveCounts != freshCounts) {
        problems.push_back("the problem counts (all, then per node) are " + liveCounts +
                           ", a fresh load counts " + freshCounts);
    }
    if (live.rows != fresh.rows || live.cols != fresh.cols) {
        return {"the grid is " + std::to_string(live.rows) + " x " + std::to_string(live.cols) +
                ", a fresh fill gives " + std::to_string(fresh.rows) + " x " +
                std::to_string(fresh.cols)};
    }
    const DocumentModel& doc = CoreOf(control).doc;
    const DocumentGrid shown =
        ReadDocumentGrid(doc, doc.strCurrentHeaderKey, doc.strCurrentValueKey);
    const auto roundedOnly = [&](int r, std::size_t i) {
        if (r < 1 || static_cast<std::size_t>(r) > shown.rows.size()) return false;
        const xml::Node rowHeader = shown.rows[static_cast<std::size_t>(r - 1)];
        return IsConvertedRow(MetricDocument(doc), rowHeader) &&
               SameConvertedValue(doc, rowHeader, live.texts[i], fresh.texts[i]);
    };
    for (std::size_t i = 0; i < live.texts.size(); ++i) {
        const int r = static_cast<int>(i) / live.cols;
        const int c = static_cast<int>(i) % live.cols;
        if (live.texts[i] != fresh.texts[i] && !roundedOnly(r, i)) {
            problems.push_back("cell " + Cell(r, c) + " shows " + Quoted(live.texts[i]) +
                               ", a fresh fill shows " + Quoted(fresh.texts[i]));
        }
        if (live.colours[i] != fresh.colours[i]) {
            problems.push_back("cell " + Cell(r, c) + " colours differ from a fresh fill");
        }
    }
    return problems;
}

}  // namespace tabulon::reliability
