// Snapshots put an element's content back byte for byte; changed elements are found at
// the smallest element that holds a change. Undo as a whole is checked on random edits
// (tests/reliability/undo_property_test.cpp).
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
        ContentCase{R"(<c E="1">12</c>)", R"(<c E="1" V="0">12</c>)"},          // attribute added
        ContentCase{R"(<c A="1" B="2"/>)", R"(<c B="2" A="1"/>)"},              // reordered
        ContentCase{R"(<c/>)", R"(<c>a<!--n-->b<![CDATA[<x>]]><?pi d?></c>)"},  // mixed
        ContentCase{R"(<g><v k="1"><c>1</c></v></g>)", R"(<g><v k="2"><c>1</c><c>2</c></v></g>)"}));

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
        ChangeCase{
            "<g><!--a--><v/></g>", "<g><!--b--><v/></g>", {"<g>\n  <!--b-->\n  <v/>\n</g>"}}));

}  // namespace
}  // namespace tabulon::xml
