#include "view/tree_builder.h"

#include <gmock/gmock.h>

#include "view_fixture.h"

namespace tabulon::testing {
namespace {

const std::string kOneColumnLayout =
    Header("H", R"(<ColumnHeader HName="Item"/><ColumnHeader HName="A"/>)",
           R"(<RowHeader HName="R1" ControlType="TextBox"/>)");

// A document whose tree is tree and whose values answer every key the tree uses.
std::string TreeDoc(std::string_view tree) {
    return Doc(tree, kOneColumnLayout,
               "<GridValue><CellValues GridValueKey=\"V1\">" + Cell("a") +
                   "</CellValues><CellValues GridValueKey=\"V2\">" + Cell("b") +
                   "</CellValues></GridValue>");
}

std::string Pnode(std::string_view key, std::string_view extra = "") {
    return "<Pnode Name=\"" + std::string(key) + "\" KeyValue=\"" + std::string(key) +
           "\" GridHeaderKey=\"H\" GridValueKey=\"V1\" Filter=\"0\" " + std::string(extra) + "/>";
}

using TreeBuilding = ViewTest;

TEST_F(TreeBuilding, OptionalAttributesInheritAndEmptyHeaderKeyEmptiesValueKey) {
    ASSERT_TRUE(LoadText(TreeDoc(
        R"(<Pnode Name="P1" KeyValue="p1" GridHeaderKey="H" GridValueKey="V1" Filter="1"
                  FilterCaption="Size" FilterProperty="Prop">
             <Cnode Name="C1" KeyValue="c1" GridHeaderKey="H" Filter="1">
               <Cnode Name="C11" KeyValue="c11" GridHeaderKey="" GridValueKey="V2" Filter="0"/>
             </Cnode>
             <Cnode Name="C2" KeyValue="c2" GridHeaderKey="H" Filter="0" FilterCaption="Kind"/>
           </Pnode>
           <Pnode Name="P2" KeyValue="p2" GridHeaderKey="H" GridValueKey="V2" Filter="0"/>)")));
    struct Expected {
        const char* key;
        int level;
        const char* valueKey;
        const char* caption;
        const char* property;
        int parent;
    };
    const Expected expected[] = {{"p1", 0, "V1", "Size", "Prop", 0},
                                 {"c1", 1, "V1", "Size", "Prop", 1},
                                 {"c11", 2, "", "Size", "Prop", 2},
                                 {"c2", 1, "", "Kind", "Prop", 1},
                                 {"p2", 0, "V2", "Kind", "Prop", 0}};
    ASSERT_EQ(doc().treeRecordCount(), 5);
    for (int i = 0; i < 5; ++i) {
        const TreeNodeInfo& record = doc().udtTreeNodes[static_cast<std::size_t>(i)];
        SCOPED_TRACE(expected[i].key);
        EXPECT_EQ(record.KeyValue, expected[i].key);
        EXPECT_EQ(record.Level, expected[i].level);
        EXPECT_EQ(record.GridValueKey, expected[i].valueKey);
        EXPECT_EQ(record.FilterCaption, expected[i].caption);
        EXPECT_EQ(record.FilterProperty, expected[i].property);
        EXPECT_EQ(form().treTreeView.node(i + 1).key, expected[i].key);
        EXPECT_EQ(form().treTreeView.node(i + 1).parent, expected[i].parent);
    }
}

TEST_F(TreeBuilding, MissingPicturesAreListedOnceInFirstSeenOrder) {
    // "a.png" is already contained in "xa.png", so the substring test leaves it out.
    ASSERT_TRUE(LoadText(TreeDoc(Pnode("p1", R"(ImageName="/nowhere/xa.png")") +
                                 Pnode("p2", R"(ImageName="/nowhere/b.png")") +
                                 Pnode("p3", R"(ImageName="/nowhere/xa.png")") +
                                 Pnode("p4", R"(ImageName="a.png")"))));
    ExpectMessages(
        {Information("There are following images not found in defined location:\r\n"
                     "/nowhere/xa.png\r\n/nowhere/b.png\r\n")});
    for (int i = 1; i <= 4; ++i)
        EXPECT_EQ(form().treTreeView.node(i).image, 0);
    EXPECT_EQ(form().treTreeView.imageList(), nullptr);
}

}  // namespace
}  // namespace tabulon::testing
