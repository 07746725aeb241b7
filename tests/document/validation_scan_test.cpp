// The saving gate's scan keeps the rows it found between scans; whatever happens to the
// document in between, its answer must be the one a fresh walk of the document gives.
#include "document/validation_scan.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "common/documents.h"
#include "document/document_reading.h"
#include "platform/xml/xml_document.h"
#include "support/failure.h"

namespace tabulon {
namespace {

// Column 2 of key B holds a row without Valid; a comment sits among the columns.
const std::string kDocument = testing::Doc(
    testing::Pnode("N1", "A"),
    testing::Header("H", "<ColumnHeader HName=\"P\"/>", testing::Row("TextBox")),
    "<GridValue><!-- column 1 -->" + testing::CellValues("A", {{"a"}, {"b"}}) +
        testing::CellValues("B", {{"c"}, {""}}) + "</GridValue><GridValue>" +
        testing::CellValues("A", {{"d"}}) + "<CellValues GridValueKey=\"B\">" + testing::Cell("e") +
        "<CellValue Enabled=\"1\" "
        "ApplicationValidation=\"0\">f</CellValue></CellValues></GridValue>");

struct Loaded {
    DocumentModel doc;

    explicit Loaded(const std::string& text = kDocument) {
        doc.objXMLDoc = std::make_unique<xml::Document>();
        EXPECT_TRUE(doc.objXMLDoc->Parse(text));
        IndexGridStructure(doc,
                           doc.objXMLDoc->documentElement().firstChildElement("GridStructure"));
    }
    xml::Node Column(std::size_t gridValue, std::size_t index) const {
        std::vector<xml::Node> columns;
        for (xml::Node c = doc.arrGridValueNodes[gridValue].firstChild(); c; c = c.nextSibling()) {
            if (c.type() == xml::NodeType::Element) columns.push_back(c);
        }
        return columns.at(index);
    }
    xml::Node Cell(std::size_t gridValue, std::size_t column, std::size_t row) const {
        return Column(gridValue, column).child(row);
    }
};

// What the gate answers, written as a walk of the document as it is now.
struct Answer {
    bool fails = false;  // the scan throws
    std::optional<InvalidCell> cell;
    bool operator==(const Answer& other) const {
        if (fails != other.fails || cell.has_value() != other.cell.has_value()) return false;
        return !cell || (cell->gridValue == other.cell->gridValue && cell->key == other.cell->key &&
                         cell->row == other.cell->row);
    }
};

Answer FreshWalk(const DocumentModel& doc) {
    for (std::size_t i = 0; i < doc.arrGridValueNodes.size(); ++i) {
        for (xml::Node column = doc.arrGridValueNodes[i].firstChild(); column;
             column = column.nextSibling()) {
            if (column.type() != xml::NodeType::Element) continue;
            int row = 0;
            for (xml::Node cell = column.firstChild(); cell; cell = cell.nextSibling()) {
                ++row;
                if (cell.attribute("Valid").value() == "1") continue;
                if (cell.type() != xml::NodeType::Element) return {true, std::nullopt};
                return {false,
                        InvalidCell{i, std::string(column.attribute("GridValueKey").value()), row}};
            }
        }
    }
    return {};
}

Answer Scan(DocumentModel& doc) {
    try {
        return {false, FindFirstInvalidCell(doc)};
    } catch (const RuntimeFailure&) {
        return {true, std::nullopt};
    }
}

// Many random edits of values, commits and changes of shape, each followed by a scan
// compared with a fresh walk of the document in GridValue, then column, then row order
// (a scan that found all valid is remembered).
TEST(ValidationScan, AgreesWithAFreshWalkAfterAnyChange) {
    Loaded loaded;
    std::uint64_t state = 12345;
    const auto next = [&state](std::uint64_t bound) {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return (state >> 33) % bound;
    };
    const char* values[] = {"1", "0", "", " 1"};
    const char* texts[] = {"", "x", "12(ft)"};
    for (int step = 0; step < 400; ++step) {
        if (step % 50 == 0) loaded = Loaded();  // a document afresh, as a new load
        std::vector<xml::Node> nodes;           // every element of GridValues, in order
        for (const xml::Node& gridValue : loaded.doc.arrGridValueNodes) {
            for (const xml::Node& node : gridValue.select("descendant-or-self::*")) {
                nodes.push_back(node);
            }
        }
        xml::Node target = nodes[next(nodes.size())];
        switch (next(6)) {
            case 0:
                target.setAttribute("Valid", values[next(4)]);
                break;
            case 4:  // as a commit sets it
                SetValidFlag(loaded.doc, target, next(3) != 0);
                break;
            case 5:  // as a load gathers the rows
                GatherValidityIndex(loaded.doc);
                break;
            case 1:
                target.setText(texts[next(3)]);
                break;
            case 2:
                if (xml::Node child = target.firstChild()) child.setText(texts[next(3)]);
                break;
            default:
                target.setAttribute("Other", "1");
                break;
        }
        ASSERT_EQ(Scan(loaded.doc), FreshWalk(loaded.doc)) << "step " << step;
    }
}

}  // namespace
}  // namespace tabulon
