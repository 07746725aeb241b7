#include "view/filter.h"

#include <gmock/gmock.h>

#include "view_fixture.h"

namespace tabulon::testing {
namespace {

using ::testing::ElementsAre;

const char* const kFiltered = R"(Filter="1")";

// Four value columns; column 3 starts hidden (it has a Width).
const std::string kLayout =
    Header("H",
           R"(<ColumnHeader HName="I" Width="1200"/><ColumnHeader HName="A"/>
              <ColumnHeader HName="B"/><ColumnHeader HName="C" Width="900"/>
              <ColumnHeader HName="D"/>)",
           R"(<RowHeader HName="R" ControlType="TextBox"/>)");

// One GridValue per entry of tags: the FilterValue of key V1's column there (null:
// no FilterValue); key V2 is tagged "B" everywhere and V3 "Z".
std::string Columns(std::initializer_list<const char*> tags) {
    std::string out;
    for (const char* tag : tags) {
        const std::string attribute = tag ? std::string(" FilterValue=\"") + tag + "\"" : "";
        out += "<GridValue><CellValues GridValueKey=\"V1\"" + attribute + ">" + Cell("v") +
               "</CellValues><CellValues GridValueKey=\"V2\" FilterValue=\"B\">" + Cell("w") +
               "</CellValues><CellValues GridValueKey=\"V3\" FilterValue=\"Z\">" + Cell("z") +
               "</CellValues></GridValue>";
    }
    return out;
}

class Filter : public ViewTest {
protected:
    void SetUp() override {
        ASSERT_TRUE(LoadText(Doc(Pnode("p1", "V1", kFiltered) + Pnode("p2", "V2", kFiltered) +
                                     Pnode("p3", "V3", kFiltered),
                                 kLayout, Columns({" A", "B", "A ", nullptr}))));
    }
};

TEST_F(Filter, EntriesAreTrimmedDistinctValuesAfterAll) {
    EXPECT_THAT(form().cboFilter.items(), ElementsAre("All", "A", "B"));
    EXPECT_EQ(form().cboFilter.text(), "All");
    EXPECT_THAT(ColWidths(), ElementsAre(1200, 1080, 1080, 900, 1080));
    ExpectMessages({});
}

TEST_F(Filter, AnEntryShowsOnlyItsColumnsAndAllRestoresEveryWidth) {
    ASSERT_TRUE(form().cboFilter.userPick("A"));
    EXPECT_THAT(ColWidths(), ElementsAre(1200, 1080, 0, 900, 0));  // untagged D hidden too
    ASSERT_TRUE(form().cboFilter.userPick("All"));
    EXPECT_THAT(ColWidths(), ElementsAre(1200, 1080, 1080, 900, 1080));
}

TEST_F(Filter, AChosenEntrySurvivesANodeWhoseColumnsCarryIt) {
    ASSERT_TRUE(form().cboFilter.userPick("B"));
    ClickNode("p2");
    EXPECT_EQ(form().cboFilter.text(), "B");
    EXPECT_THAT(form().cboFilter.items(), ElementsAre("All", "B"));
    EXPECT_THAT(ColWidths(), ElementsAre(1200, 1080, 1080, 900, 1080));
    ClickNode("p3");
    EXPECT_EQ(form().cboFilter.text(), "All");
    EXPECT_THAT(form().cboFilter.items(), ElementsAre("All", "Z"));
}

}  // namespace
}  // namespace tabulon::testing
