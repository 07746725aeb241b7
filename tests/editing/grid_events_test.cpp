// The grid's and the scroll bars' notifications that commit and hide the editors.
#include "editing/editing_fixture.h"

namespace tabulon::testing {
namespace {

class GridEvents : public EditingTest {
protected:
    // Thirty text rows in one column; the editor open on (1, 1) with "typed" in it.
    void OpenOnTallGrid() {
        Load(std::vector<std::string>(30, Row("TextBox")),
             {Column(std::vector<CellData>(30, CellData("v")))});
        Click(1, 1);
        Paste("typed");
    }
    void ExpectCommittedAndHidden() {
        EXPECT_THAT(VisibleEditors(), IsEmpty());
        EXPECT_EQ(Stored(1, 1), "typed");
    }
};

TEST_F(GridEvents, ScrollCommitsAndHides) {
    OpenOnTallGrid();
    grid().userScroll(1, 0);
    ExpectCommittedAndHidden();
}

TEST_F(GridEvents, ScrollBarRefreshAfterCellChangeDoesNotCommit) {
    gGeneralProperty_type general = control().GeneralProperty();
    general.intScrollBars = 1;
    control().SetGeneralProperty(general);
    // A commit of the cell just entered would hand its column to the host.
    Load({Row("TextBox")}, {Column({{"a"}}), Column({{"b", true, true, true}}), Column({{"c"}})});
    // The last column shows partly, so the bar's refresh probes by scrolling the grid.
    for (const int c : {1, 2, 3})
        grid().setColWidth(c, 2000);
    Click(1, 2);
    EXPECT_THAT(VisibleEditors(), ElementsAre("txtTextBoxControl"));
    EXPECT_THAT(host.events(), IsEmpty());
    EXPECT_TRUE(core().blnScrollCommit);
}

}  // namespace
}  // namespace tabulon::testing
