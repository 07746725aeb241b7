// Snapshots put an element's content back byte for byte; changed elements are found at
// the smallest element that holds a change; paths find a node again.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/xml/xml_changes.h"
#include "platform/xml/xml_snapshot.h"
#include "xml/parsed.h"

namespace tabulon::xml {
namespace {

struct ContentCase {
    std::string was;  // the element as it is
    std::string put;  // the content put back into it (the element's name stays)
};

void PrintTo(const ContentCase& c, std::ostream* out) {
    *out << c.was << " <- " << c.put;
}

class SnapshotRestore : public ::testing::TestWithParam<ContentCase> {};

TEST_P(SnapshotRestore, PutsBackExactlyWhatWasTaken) {
    const Document source = Parsed("<r>" + GetParam().put + "</r>");
    const Document target = Parsed("<r>" + GetParam().was + "</r>");
    const Node from = source.documentElement().firstChild();
    const Node into = target.documentElement().firstChild();
    const Snapshot snapshot = Snapshot::Of(from);
    snapshot.RestoreInto(into);
    const Document expected = Parsed("<r>" + GetParam().put + "</r>");
    EXPECT_EQ(target.Serialize(), expected.Serialize());
    EXPECT_TRUE(snapshot.Matches(into));
    EXPECT_TRUE(SameContent(from, into));
    EXPECT_TRUE(ChangedElements(from, into).empty());
}

INSTANTIATE_TEST_SUITE_P(
    Contents, SnapshotRestore,
    ::testing::Values(
        ContentCase{R"(<c V="1">12</c>)", R"(<c V="1">12.50</c>)"},             // text only
        ContentCase{R"(<c E="1">12</c>)", R"(<c E="1" V="0">12</c>)"},          // attribute added
        ContentCase{R"(<c E="1" V="0">12</c>)", R"(<c E="1">12</c>)"},          // and removed
        ContentCase{R"(<c A="1" B="2"/>)", R"(<c B="2" A="1"/>)"},              // reordered
        ContentCase{R"(<c>12</c>)", R"(<c/>)"},                                 // emptied
        ContentCase{R"(<c/>)", R"(<c>a<!--n-->b<![CDATA[<x>]]><?pi d?></c>)"},  // mixed
        ContentCase{R"(<c>a<!--n-->b</c>)", R"(<c>a<!--m-->b</c>)"},            // same shape
        ContentCase{R"(<g><v k="1"><c>1</c></v></g>)", R"(<g><v k="2"><c>1</c><c>2</c></v></g>)"},
        ContentCase{R"(<g><v><c>&amp;&lt;</c></v></g>)", R"(<g><v><c> &#10; </c></v></g>)"}));

TEST(Snapshot, ValuesAloneKeepEveryHandleAndTheShape) {
    const Document document = Parsed(R"(<r><c E="1" V="1">12</c></r>)");
    Node cell = document.documentElement().firstChild();
    const Snapshot before = Snapshot::Of(cell);
    cell.setAttribute("V", "0");
    cell.setText("13");
    const Node text = cell.firstChild();
    const std::uint64_t shape = StructureVersion();
    before.RestoreInto(cell);
    EXPECT_EQ(StructureVersion(), shape);
    EXPECT_EQ(cell.firstChild(), text);
    EXPECT_EQ(cell.serialize(), R"(<c E="1" V="1">12</c>)");
    EXPECT_LT(before.Bytes(), 1024u);
}

TEST(Snapshot, EmptyHandlesAndOtherNodesTakeAndRestoreNothing) {
    const Document document = Parsed("<r><!--x--><c>1</c></r>");
    EXPECT_TRUE(Snapshot::Of(Node()).empty());
    EXPECT_TRUE(Snapshot::Of(document.documentElement().firstChild()).empty());
    Snapshot::Of(document.documentElement().child(1)).RestoreInto(Node());
    Snapshot().RestoreInto(document.documentElement().child(1));
    EXPECT_EQ(document.documentElement().serialize(), "<r>\n  <!--x-->\n  <c>1</c>\n</r>");
}

TEST(NodePath, LeadsBackToTheSameNode) {
    const Document document = Parsed("<?pi?><r><!--x--><a/><b><c/><d>t</d></b></r>");
    const Node d = document.documentElement().child(2).child(1);
    EXPECT_EQ(PathOf(d), (NodePath{1, 2, 1}));
    EXPECT_EQ(NodeAt(document.root(), PathOf(d)), d);
    EXPECT_TRUE(PathOf(document.root()).empty());
    EXPECT_TRUE(NodeAt(document.root(), NodePath{1, 9}).empty());
}

struct ChangeCase {
    std::string before;
    std::string after;
    std::vector<std::string> changed;  // the reported elements, as they are after
};

void PrintTo(const ChangeCase& c, std::ostream* out) {
    *out << c.before << " -> " << c.after;
}

class ChangedElementsFound : public ::testing::TestWithParam<ChangeCase> {};

TEST_P(ChangedElementsFound, AreTheSmallestElementsHoldingAChange) {
    const Document before = Parsed(GetParam().before);
    const Document after = Parsed(GetParam().after);
    std::vector<std::string> changed;
    for (const auto& [was, now] :
         ChangedElements(before.documentElement(), after.documentElement())) {
        EXPECT_EQ(PathOf(was), PathOf(now));
        changed.push_back(now.serialize());
    }
    EXPECT_EQ(changed, GetParam().changed);
}

INSTANTIATE_TEST_SUITE_P(
    Changes, ChangedElementsFound,
    ::testing::Values(
        ChangeCase{"<g><v><c>1</c><c>2</c></v></g>", "<g><v><c>1</c><c>2</c></v></g>", {}},
        ChangeCase{"<g><v><c>1</c><c>2</c></v></g>",
                   "<g><v><c V=\"0\">1</c><c>3</c></v></g>",
                   {"<c V=\"0\">1</c>", "<c>3</c>"}},
        ChangeCase{"<g><v><c>1</c></v><v><c>2</c></v></g>",
                   "<g><v><c>1</c></v><v><c>2</c><c>3</c></v></g>",
                   {"<v>\n  <c>2</c>\n  <c>3</c>\n</v>"}},  // a child more: the parent whole
        ChangeCase{"<g k=\"1\"><v/></g>", "<g k=\"2\"><v/></g>", {"<g k=\"2\">\n  <v/>\n</g>"}},
        ChangeCase{
            "<g><!--a--><v/></g>", "<g><!--b--><v/></g>", {"<g>\n  <!--b-->\n  <v/>\n</g>"}}));

}  // namespace
}  // namespace tabulon::xml
