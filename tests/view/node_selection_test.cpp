#include "view/node_selection.h"

#include <gmock/gmock.h>

#include "view_fixture.h"

namespace tabulon::testing {
namespace {

const std::string kLayout = Header("H", R"(<ColumnHeader HName="I"/><ColumnHeader HName="A"/>)",
                                   R"(<RowHeader HName="R" ControlType="TextBox"/>)");

std::string Node(std::string_view element, std::string_view key, std::string_view valueKey,
                 std::string_view filter, std::string_view children = "") {
    return "<" + std::string(element) + " Name=\"" + std::string(key) + "\" KeyValue=\"" +
           std::string(key) + "\" GridHeaderKey=\"H\" GridValueKey=\"" + std::string(valueKey) +
           "\" " + std::string(filter) + ">" + std::string(children) + "</" + std::string(element) +
           ">";
}

std::string TwoValues() {
    return "<GridValue>" + CellValues("V1", {{"one"}}) + CellValues("V2", {{"two"}}) +
           "</GridValue>";
}

using NodeSelection = ViewTest;

TEST_F(NodeSelection, FilterFrameAndCaptionFollowTheSelectedNode) {
    ASSERT_TRUE(LoadText(Doc(Node("Pnode", "p1", "V1", R"(Filter="1" FilterCaption="  Size  ")",
                                  Node("Cnode", "c1", "V1", R"(Filter="1")")) +
                                 Node("Pnode", "p2", "V1", R"(Filter="0" FilterCaption="Other")") +
                                 Node("Pnode", "p3", "V1", R"(Filter="1" FilterCaption="   ")"),
                             kLayout, TwoValues())));
    const Frame& frame = form().fraFilterView;
    // The caption is shown as written; trimming only decides whether it counts.
    EXPECT_TRUE(frame.visible());
    EXPECT_EQ(form().lblFilter.caption(), "  Size  ");
    EXPECT_EQ(grid().top(), 840);
    const std::int32_t gridHeight = grid().height();

    ClickNode("p2");  // hides the frame, leaves the label alone
    EXPECT_FALSE(frame.visible());
    EXPECT_EQ(form().lblFilter.caption(), "  Size  ");
    EXPECT_EQ(grid().top(), 0);
    EXPECT_EQ(grid().height(), gridHeight + 840);

    ClickNode("p3");  // shown again; a blank caption does not count
    EXPECT_TRUE(frame.visible());
    EXPECT_EQ(grid().height(), gridHeight);

    form().lblFilter.setCaption("Mine");
    ClickNode("c1");  // inherits p1's caption
    EXPECT_EQ(form().lblFilter.caption(), "  Size  ");
    ExpectMessages({});
}

TEST_F(NodeSelection, CollapseSelectsAgainForTheNodeSelectedAfterwards) {
    ASSERT_TRUE(LoadText(
        Doc(Node("Pnode", "p1", "V1", R"(Filter="0")", Node("Cnode", "c1", "V2", R"(Filter="0")")),
            kLayout, TwoValues())));
    ClickNode("c1");
    EXPECT_EQ(grid().textMatrix(1, 1), "two");
    form().treTreeView.userCollapse(1);
    EXPECT_EQ(form().treTreeView.selectedIndex(), 1);
    EXPECT_EQ(grid().textMatrix(1, 1), "one");
}

}  // namespace
}  // namespace tabulon::testing
