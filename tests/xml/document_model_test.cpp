#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "platform/xml/xml_document.h"
#include "xml/parsed.h"

namespace tabulon::xml {
namespace {

std::vector<std::string> Names(const std::vector<Node>& nodes) {
    std::vector<std::string> names;
    for (const Node& node : nodes) {
        names.emplace_back(node.name());
    }
    return names;
}

TEST(DocumentModel, WhitespaceOnlyTextIsNeverAChild) {
    const Document document = Parsed("<a>\n  <b/>\r\n\t<c> </c>  <!--m-->\n<c> x </c>\n</a>");
    const Node a = document.documentElement();
    EXPECT_EQ(Names(a.children()), (std::vector<std::string>{"b", "c", "#comment", "c"}));
    EXPECT_EQ(a.child(1).childCount(), 0U);
    EXPECT_EQ(a.child(3).text(), " x ");  // other text is kept with its blanks
    EXPECT_TRUE(a.child(4).empty());
    EXPECT_EQ(a.firstChildElement("c"), a.child(1));
    EXPECT_TRUE(a.firstChildElement("#comment").empty());
    EXPECT_EQ(a.child(2).nextSibling().parent(), a);
}

TEST(DocumentModel, PrologNodesAreKeptInOrder) {
    const Document document = Parsed(
        "<?xml version=\"1.0\"?>\n<!DOCTYPE xml [ <!ELEMENT xml ANY> ]>\n<!-- note -->\n"
        "<?app run fast?>\n<xml><!--inside--><?pi?>t<![CDATA[<raw>]]></xml>");
    const std::vector<Node> top = document.root().children();
    ASSERT_EQ(top.size(), 5U);
    const std::vector<std::pair<NodeType, std::string>> expected = {
        {NodeType::Declaration, "xml"},
        {NodeType::Doctype, "xml"},
        {NodeType::Comment, "#comment"},
        {NodeType::ProcessingInstruction, "app"},
        {NodeType::Element, "xml"}};
    for (std::size_t i = 0; i < top.size(); ++i) {
        EXPECT_EQ(top[i].type(), expected[i].first) << i;
        EXPECT_EQ(top[i].name(), expected[i].second) << i;
    }
    EXPECT_EQ(top[0].attribute("version").value(), "1.0");
    EXPECT_EQ(top[1].value(), "xml [ <!ELEMENT xml ANY> ]");
    EXPECT_EQ(top[2].value(), " note ");
    EXPECT_EQ(top[3].value(), "run fast");
    EXPECT_EQ(document.documentElement(), top[4]);
    EXPECT_EQ(Names(top[4].children()),
              (std::vector<std::string>{"#comment", "pi", "#text", "#cdata-section"}));
    EXPECT_EQ(top[4].text(), "t<raw>");
    EXPECT_EQ(document.root().type(), NodeType::Document);
    EXPECT_EQ(document.root().name(), "#document");
}

TEST(DocumentModel, OnlyPredefinedAndNumericReferencesAreExpanded) {
    const Document document = Parsed("<a v=\"&lt;&#65;&#x42;&quot;\">&amp;&other; &</a>");
    const Node a = document.documentElement();
    EXPECT_EQ(a.attribute("v").value(), "<AB\"");
    EXPECT_EQ(a.text(), "&&other; &");
}

TEST(DocumentModel, AttributesKeepDocumentOrderAndAreFoundByExactName) {
    Document document = Parsed("<r Zeta=\"1\" alpha=\"2\" Mid=\"3\"/>");
    Node r = document.documentElement();
    ASSERT_EQ(r.attributeCount(), 3U);
    EXPECT_EQ(r.attribute(std::size_t{0}).name(), "Zeta");
    EXPECT_EQ(r.attribute(std::size_t{2}).value(), "3");
    EXPECT_TRUE(r.attribute(std::size_t{3}).empty());
    EXPECT_EQ(r.attribute("alpha").value(), "2");
    EXPECT_TRUE(r.attribute("ALPHA").empty());

    r.setAttribute("alpha", "changed");
    r.setAttribute("New", "4");
    r.setAttribute("", "ignored");
    ASSERT_EQ(r.attributeCount(), 4U);
    EXPECT_EQ(r.attribute(std::size_t{1}).value(), "changed");
    EXPECT_EQ(r.attribute(std::size_t{3}).name(), "New");
}

TEST(DocumentModel, SetTextReplacesEveryChild) {
    Document document = Parsed("<a>one<b>two</b><!--c--></a>");
    Node a = document.documentElement();
    a.setText("12.5");
    EXPECT_EQ(a.childCount(), 1U);
    EXPECT_EQ(a.firstChild().type(), NodeType::Text);
    EXPECT_EQ(a.text(), "12.5");
    a.setText("");
    EXPECT_EQ(a.childCount(), 0U);

    Document comment = Parsed("<a><!--old--></a>");
    comment.documentElement().firstChild().setText("new");
    EXPECT_EQ(comment.documentElement().firstChild().value(), "new");
}

TEST(DocumentModel, SelectReturnsNodesInDocumentOrder) {
    const Document document =
        Parsed("<xml><T><P K=\"a\"><C K=\"b\"/></P><P K=\"c\"/></T><G K=\"d\"/></xml>");
    const Node root = document.documentElement();
    std::vector<std::string> keys;
    for (const Node& node : root.select("//*[@K]")) {
        keys.emplace_back(node.attribute("K").value());
    }
    EXPECT_EQ(keys, (std::vector<std::string>{"a", "b", "c", "d"}));
    EXPECT_EQ(root.select("T/P").size(), 2U);
    EXPECT_TRUE(root.select("//@K").empty());  // attributes are not nodes here
    EXPECT_TRUE(root.select("missing").empty());
}

TEST(DocumentModel, SelectRejectsBadExpressionsEvenOnAnEmptyHandle) {
    const Document document = Parsed("<a/>");
    for (const char* bad : {"//b[", "count(//a)", "", "a/@"}) {
        EXPECT_THROW(document.documentElement().select(bad), std::invalid_argument) << bad;
        EXPECT_THROW(Node().select(bad), std::invalid_argument) << bad;
    }
    EXPECT_TRUE(Node().select("a").empty());
}

TEST(DocumentModel, EveryMemberIsSafeOnAnEmptyHandle) {
    Node empty;
    EXPECT_EQ(empty.type(), NodeType::None);
    EXPECT_EQ(empty.name(), "");
    EXPECT_EQ(empty.value(), "");
    EXPECT_TRUE(empty.firstChild().empty() && empty.nextSibling().empty() &&
                empty.parent().empty() && empty.child(0).empty() &&
                empty.firstChildElement("a").empty() && empty.children().empty());
    EXPECT_EQ(empty.childCount() + empty.attributeCount(), 0U);
    EXPECT_TRUE(empty.attribute(std::size_t{0}).empty() && empty.attribute("a").empty());
    EXPECT_EQ(empty.attribute("a").name(), "");
    EXPECT_EQ(empty.attribute("a").value(), "");
    empty.setAttribute("a", "1");
    empty.setText("x");
    EXPECT_EQ(empty.text(), "");
    EXPECT_EQ(empty.serialize(), "");
    // Chained look-ups through missing nodes stay empty.
    const Document document = Parsed("<a/>");
    EXPECT_TRUE(document.documentElement().firstChildElement("x").child(3).parent().empty());
}

TEST(DocumentModel, ParseErrorsGiveReasonLineAndColumn) {
    struct Case {
        std::string text;
        int line;
        int column;
    };
    const std::vector<Case> cases = {
        {"<a>\n  <b>\n</a>", 3, 3},
        {"<a>\r\n\xC3\xA9<b></c></a>", 2, 7},  // columns count characters, not bytes
        {"\xEF\xBB\xBF<a></b>", 1, 6},         // the byte order mark takes no column
    };
    for (const Case& c : cases) {
        Document document;
        ParseError error;
        EXPECT_FALSE(document.Parse(c.text, &error)) << c.text;
        EXPECT_EQ(error.line, c.line) << c.text;
        EXPECT_EQ(error.column, c.column) << c.text;
        EXPECT_EQ(error.reason, "Start-end tags mismatch at line " + std::to_string(c.line) +
                                    ", column " + std::to_string(c.column));
        EXPECT_EQ(document.root().childCount(), 0U) << "a failed parse leaves the document empty";
    }
}

TEST(DocumentModel, TextWithoutAnElementIsAParseError) {
    for (const char* text : {"", "  \n", "<!-- only a comment -->", "just text"}) {
        Document document;
        ParseError error;
        EXPECT_FALSE(document.Parse(text, &error)) << text;
        EXPECT_EQ(error.reason.rfind("No document element found at line ", 0), 0U) << error.reason;
    }
}

}  // namespace
}  // namespace tabulon::xml
