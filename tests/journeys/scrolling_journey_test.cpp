// A person scrolls a grid far wider and taller than the window with the control's own
// scroll bars and the wheel, types into its first, last and middle cells and saves.
#include <string>

#include "journeys/journey.h"

namespace tabulon::testing {
namespace {

constexpr int kRows = 60;
constexpr int kCols = 30;

using Scrolling = JourneyFixture;

TEST_F(Scrolling, BarsAndWheelReachEveryCell) {
    Start(GridDocument(kRows, kCols));
    UseScrollBars();

    const std::string script = ScriptFile("scrolling.session");
    const std::size_t lastCell = script.find("click 60 30");
    Play(script.substr(0, lastCell));
    const FlexGrid& grid = form().msgGridView;
    EXPECT_EQ(grid.leftCol(), grid.maxLeftCol());
    EXPECT_EQ(grid.topRow(), grid.maxTopRow());

    Play(script.substr(lastCell));

    EXPECT_EQ(grid.textMatrix(1, 1), "first");
    EXPECT_EQ(grid.textMatrix(kRows, kCols), "last");
    EXPECT_EQ(grid.textMatrix(kRows - 1, kCols), "above the last");
    EXPECT_EQ(grid.textMatrix(8, 2), "middle");
    Finish(script, "set-general intScrollBars=1\n");
}

}  // namespace
}  // namespace tabulon::testing
