// The index must give, for any key and column, exactly what a scan of that column's
// children in document order gives.
#include "document/cell_values_index.h"

#include <gtest/gtest.h>

#include <span>
#include <string>
#include <vector>

#include "platform/xml/xml_document.h"

namespace tabulon {
namespace {

std::vector<std::string> Texts(std::span<const xml::Node> nodes) {
    std::vector<std::string> texts;
    for (const xml::Node& node : nodes)
        texts.emplace_back(node.attribute("Tag").value());
    return texts;
}

TEST(CellValuesIndex, EachColumnKeepsItsOwnMatchesInDocumentOrder) {
    xml::Document document;
    ASSERT_TRUE(document.Parse(R"(<GridValues>
<GridValue>
  <CellValues GridValueKey="A" Tag="a1"/>
  <!-- a comment is no CellValues -->
  <CellValues GridValueKey=" B " Tag="b1"/>
  <CellValues GridValueKey="A " Tag="a2"/>
</GridValue>
<GridValue/>
<GridValue>
  <CellValues GridValueKey="B" Tag="b3"/>
  <CellValues Tag="none"/>
  <CellValues GridValueKey="A" Tag="a3"/>
</GridValue>
</GridValues>)"));
    CellValuesIndex index;
    index.Build(document.documentElement().children());
    ASSERT_EQ(index.columns(), 3u);

    EXPECT_EQ(Texts(index.matching(0, "A")), (std::vector<std::string>{"a1", "a2"}));
    EXPECT_EQ(Texts(index.matching(0, "B")), (std::vector<std::string>{"b1"}));
    EXPECT_TRUE(index.matching(1, "A").empty());
    EXPECT_EQ(Texts(index.matching(2, "A")), (std::vector<std::string>{"a3"}));
    EXPECT_EQ(Texts(index.matching(2, "B")), (std::vector<std::string>{"b3"}));
    EXPECT_EQ(Texts(index.matching(2, "")), (std::vector<std::string>{"none"}));
    EXPECT_TRUE(index.matching(0, "C").empty());
    EXPECT_TRUE(index.matching(3, "A").empty());

    index.clear();
    EXPECT_EQ(index.columns(), 0u);
    EXPECT_TRUE(index.matching(0, "A").empty());
}

}  // namespace
}  // namespace tabulon
