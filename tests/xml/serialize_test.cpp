#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "xml/parsed.h"

namespace tabulon::xml {
namespace {

// Compares two models node by node: kind, name, value and attributes.
void ExpectSameModel(Node expected, Node actual, const std::string& where = "/") {
    ASSERT_EQ(expected.type(), actual.type()) << where;
    EXPECT_EQ(expected.name(), actual.name()) << where;
    EXPECT_EQ(expected.value(), actual.value()) << where;
    ASSERT_EQ(expected.attributeCount(), actual.attributeCount()) << where;
    for (std::size_t i = 0; i < expected.attributeCount(); ++i) {
        EXPECT_EQ(expected.attribute(i).name(), actual.attribute(i).name()) << where;
        EXPECT_EQ(expected.attribute(i).value(), actual.attribute(i).value()) << where;
    }
    ASSERT_EQ(expected.childCount(), actual.childCount()) << where;
    for (std::size_t i = 0; i < expected.childCount(); ++i) {
        ExpectSameModel(expected.child(i), actual.child(i),
                        where + std::string(expected.name()) + "[" + std::to_string(i) + "]/");
    }
}

void ExpectRoundTrip(const Document& document) {
    Document again;
    ParseError error;
    ASSERT_TRUE(again.Parse(document.Serialize(), &error)) << error.reason << "\n"
                                                           << document.Serialize();
    ExpectSameModel(document.root(), again.root());
}

TEST(Serialize, IndentsTwoSpacesAndKeepsTextOnlyElementsOnOneLine) {
    Document document;
    ASSERT_TRUE(
        document.Parse("<!-- c --><xml a=\"1\"><GridValue><CellValues K=\"V\">"
                       "<CellValue Enabled=\"1\">12</CellValue><CellValue Enabled=\"0\"/>"
                       "</CellValues></GridValue><?pi x?><p> x <b>y <i/>. </b> z </p></xml>"));
    EXPECT_EQ(document.Serialize(),
              "<!-- c -->\n"
              "<xml a=\"1\">\n"
              "  <GridValue>\n"
              "    <CellValues K=\"V\">\n"
              "      <CellValue Enabled=\"1\">12</CellValue>\n"
              "      <CellValue Enabled=\"0\"/>\n"
              "    </CellValues>\n"
              "  </GridValue>\n"
              "  <?pi x?>\n"
              "  <p> x <b>y <i/>. </b> z </p>\n"
              "</xml>\n");
}

TEST(Serialize, EscapesWhatTheParserWouldOtherwiseChange) {
    struct Case {
        std::string value;
        std::string attributeText;
        std::string elementText;
    };
    const std::vector<Case> cases = {
        {"a&b<c>d\"e'f", "a&amp;b&lt;c&gt;d&quot;e'f", "a&amp;b&lt;c&gt;d\"e'f"},
        {"cr\r\nlf", "cr&#13;&#10;lf", "cr&#13;\nlf"},
        {"bell\x07", "bell&#7;", "bell&#7;"},
        {"  ", "  ", "&#32;&#32;"},
        {"]]>", "]]&gt;", "]]&gt;"}};
    for (const Case& c : cases) {
        Document document;
        ASSERT_TRUE(document.Parse("<a/>"));
        Node a = document.documentElement();
        a.setAttribute("v", c.value);
        a.setText(c.value);
        EXPECT_EQ(document.Serialize(),
                  "<a v=\"" + c.attributeText + "\">" + c.elementText + "</a>\n")
            << c.value;
        // XML has no way to write a BEL: its reference is refused when read back.
        if (c.value.find('\x07') == std::string::npos) {
            ExpectRoundTrip(document);
        } else {
            EXPECT_FALSE(Document().Parse(document.Serialize()));
        }
    }
}

TEST(Serialize, RoundTripsEveryKindOfNode) {
    const Document document = Parsed(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!DOCTYPE xml [\n<!ELEMENT xml ANY>\n]>\n"
        "<!--top--><?app data?>\n<xml k=\"&amp;other;\"> lead <![CDATA[a]]b<c>]]>"
        "<e/>&other; tail <f>\n<g/></f></xml>\n<!--after-->");
    ExpectRoundTrip(document);
    EXPECT_NE(document.Serialize().find("<![CDATA[a]]b<c>]]>"), std::string::npos);
}

TEST(Serialize, DeepNestingStaysLinearInSizeAndRoundTrips) {
    constexpr int kDepth = 100000;
    std::string text;
    for (int i = 0; i < kDepth; ++i)
        text += "<n>";
    text += "x";
    for (int i = 0; i < kDepth; ++i)
        text += "</n>";
    const Document document = Parsed(text);
    const std::string serialized = document.Serialize();
    EXPECT_LT(serialized.size(), 2 * text.size());

    EXPECT_EQ(Parsed(serialized).documentElement().text(), "x");
}

// A document written in many runs, in text as the writer writes it: blocks nested below
// the levels where runs start and end, runs that start inside text-holding content, and
// nodes around the document element.
std::string ManyRunsText() {
    std::string text = "<!--head-->\n<?app x?>\n<xml a=\"&amp;&lt;\">\n";
    for (int grid = 0; grid < 3; ++grid) {
        text += "  <GridValues K=\"" + std::to_string(grid) + "\">\n";
        for (int column = 0; column < 40; ++column) {
            text += "    <GridValue>\n";
            for (int block = 0; block < 20; ++block) {
                const std::string n = std::to_string((grid * 40 + column) * 20 + block);
                text += "      <CellValues Key=\"k" + n + "\">\n";
                text += "        <CellValue Valid=\"1\">v" + n + " a&lt;b</CellValue>\n";
                text += "        <Deep>\n          <Deeper d=\"" + n + "\"/>\n        </Deep>\n";
                text += "      </CellValues>\n";
            }
            text += "    </GridValue>\n";
        }
        text += "  </GridValues>\n";
    }
    text += "  <p>lead";
    for (int i = 0; i < 600; ++i)
        text += "<b>" + std::to_string(i) + "</b> &amp; ";
    text += "tail</p>\n  <!--last-->\n</xml>\n<!--after-->\n";
    return text;
}

// Where the two differ, briefly: a failure on texts of megabytes stays readable.
::testing::AssertionResult SameText(const std::string& actual, const std::string& expected) {
    if (actual == expected) return ::testing::AssertionSuccess();
    std::size_t at = 0;
    while (at < actual.size() && at < expected.size() && actual[at] == expected[at])
        ++at;
    const std::size_t from = at < 40 ? 0 : at - 40;
    return ::testing::AssertionFailure()
           << "texts of " << actual.size() << " and " << expected.size()
           << " bytes differ from byte " << at << ":\n  actual:   " << actual.substr(from, 100)
           << "\n  expected: " << expected.substr(from, 100);
}

std::string Joined(Node node, int* parts = nullptr) {
    std::string text;
    EXPECT_TRUE(node.serialize([&](std::string_view piece) {
        text.append(piece);
        if (parts != nullptr) ++*parts;
        return true;
    }));
    return text;
}

TEST(Serialize, ALargeDocumentIsWrittenInRunsThatJoinToTheSameText) {
    const std::string expected = ManyRunsText();
    const Document document = Parsed(expected);
    EXPECT_TRUE(SameText(document.Serialize(), expected));
    int parts = 0;
    EXPECT_TRUE(SameText(Joined(document.root(), &parts), expected));
    EXPECT_GT(parts, 4);  // handed on as runs are done, not whole

    // An element below the top, from column 0.
    const Node grid = document.documentElement().child(1);
    std::string gridText;
    std::istringstream lines(expected.substr(
        expected.find("  <GridValues K=\"1\">"),
        expected.find("  <GridValues K=\"2\">") - expected.find("  <GridValues K=\"1\">")));
    for (std::string line; std::getline(lines, line);)
        gridText += (gridText.empty() ? "" : "\n") + line.substr(2);
    EXPECT_TRUE(SameText(grid.serialize(), gridText));
    EXPECT_TRUE(SameText(Joined(grid), gridText));

    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / "tabulon_many_runs_test.xml";
    std::string reason;
    ASSERT_TRUE(document.SaveAtomic(path.string(), &reason)) << reason;
    std::stringstream saved;
    saved << std::ifstream(path, std::ios::binary).rdbuf();
    std::filesystem::remove(path);
    EXPECT_TRUE(SameText(saved.str(), expected));
}

TEST(Serialize, APieceRefusedStopsTheWritingWhereverItComes) {
    const std::string expected = ManyRunsText();
    const Document document = Parsed(expected);
    for (const int accepted : {0, 1, 3, 10, 30}) {
        std::string text;
        int handed = 0;
        const bool complete = document.root().serialize([&](std::string_view piece) {
            if (handed++ == accepted) return false;
            text.append(piece);
            return true;
        });
        EXPECT_FALSE(complete) << accepted;
        EXPECT_EQ(handed, accepted + 1) << "parts handed on after the refusal";
        EXPECT_EQ(expected.compare(0, text.size(), text), 0) << "not the start of the text";
    }
}

}  // namespace
}  // namespace tabulon::xml
