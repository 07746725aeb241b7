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

TEST(Snapshot, PutsBackExactlyWhatWasTaken) {
    const std::pair<std::string, std::string> cases[] = {
        // the element as it is, and the content put back into it (its name stays)
        {R"(<c E="1">12</c>)", R"(<c E="1" V="0">12</c>)"},          // attribute added
        {R"(<c A="1" B="2"/>)", R"(<c B="2" A="1"/>)"},              // reordered
        {R"(<c/>)", R"(<c>a<!--n-->b<![CDATA[<x>]]><?pi d?></c>)"},  // mixed
        {R"(<g><v k="1"><c>1</c></v></g>)", R"(<g><v k="2"><c>1</c><c>2</c></v></g>)"}};
    for (const auto& [was, put] : cases) {
        SCOPED_TRACE(was + " <- " + put);
        const Document source = Parsed("<r>" + put + "</r>");
        const Document target = Parsed("<r>" + was + "</r>");
        const Node from = source.documentElement().firstChild();
        const Node into = target.documentElement().firstChild();
        const Snapshot snapshot = Snapshot::Of(from);
        snapshot.RestoreInto(into);
        EXPECT_EQ(target.Serialize(), Parsed("<r>" + put + "</r>").Serialize());
        EXPECT_TRUE(snapshot.Matches(into));
        EXPECT_TRUE(SameContent(from, into));
        EXPECT_TRUE(ChangedElements(from, into).empty());
    }
}

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

// The reported elements are given as they are after the change.
TEST(ChangedElements, AreTheSmallestElementsHoldingAChange) {
    const struct {
        std::string before, after;
        std::vector<std::string> changed;
    } cases[] = {{"<g><v><c>1</c><c>2</c></v></g>", "<g><v><c>1</c><c>2</c></v></g>", {}},
                 {"<g><v><c>1</c><c>2</c></v></g>",
                  "<g><v><c V=\"0\">1</c><c>3</c></v></g>",
                  {"<c V=\"0\">1</c>", "<c>3</c>"}},
                 {"<g><v><c>1</c></v><v><c>2</c></v></g>",
                  "<g><v><c>1</c></v><v><c>2</c><c>3</c></v></g>",
                  {"<v>\n  <c>2</c>\n  <c>3</c>\n</v>"}},  // a child more: the parent whole
                 {"<g><!--a--><v/></g>", "<g><!--b--><v/></g>", {"<g>\n  <!--b-->\n  <v/>\n</g>"}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.before + " -> " + c.after);
        const Document before = Parsed(c.before);
        const Document after = Parsed(c.after);
        std::vector<std::string> changed;
        for (const auto& [was, now] :
             ChangedElements(before.documentElement(), after.documentElement())) {
            EXPECT_EQ(PathOf(was), PathOf(now));
            changed.push_back(now.serialize());
        }
        EXPECT_EQ(changed, c.changed);
    }
}

}  // namespace
}  // namespace tabulon::xml
