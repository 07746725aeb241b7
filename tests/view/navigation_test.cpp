#include "view/navigation.h"

#include <gmock/gmock.h>

#include <utility>

#include "view_fixture.h"

namespace tabulon::testing {
namespace {

constexpr int kShift = 1;
constexpr int kCtrl = 2;

// A grid of 1080 x 350 twips cells with one fixed row and column, driven directly.
class Navigation : public ViewTest {
protected:
    void MakeGrid(int rows, int cols, std::int32_t height = 4740) {
        grid().setCols(cols);
        grid().setRows(rows);
        grid().setFixedRows(1);
        grid().setFixedCols(1);
        grid().setHeight(height);
    }
    void Goto(int row, int col) {
        grid().setRow(row);
        grid().setCol(col);
    }
    std::pair<int, int> Current() { return {grid().row(), grid().col()}; }
    int KeyUp(int keyCode, int shift) {
        control().KeyUp(keyCode, shift);
        return keyCode;
    }
    int KeyPress(int keyAscii) {
        control().KeyPress(keyAscii);
        return keyAscii;
    }
};

TEST_F(Navigation, KeysMoveAsTheirTableSaysUnlessAHeaderIsSelected) {
    MakeGrid(5, 5);
    const struct {
        int keyCode;
        int shift;
        std::pair<int, int> to;
    } cases[] = {{116, 0, {2, 1}},    {117, kShift, {2, 3}}, {118, kCtrl, {1, 2}},
                 {119, 0, {3, 2}},    {9, kCtrl, {2, 1}},    {13, kCtrl, {1, 2}},
                 {9, kShift, {2, 2}}, {9, 0, {2, 2}},        {65, 0, {2, 2}}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keyCode);
        Goto(2, 2);
        EXPECT_EQ(KeyUp(c.keyCode, c.shift), 0);  // every key-up is consumed
        EXPECT_EQ(Current(), c.to);
    }
    Goto(2, 2);
    EXPECT_EQ(KeyPress(9), 0);
    EXPECT_EQ(Current(), std::make_pair(2, 3));
    EXPECT_EQ(KeyPress(13), 0);
    EXPECT_EQ(Current(), std::make_pair(3, 3));
    EXPECT_EQ(KeyPress('a'), 'a');
    Goto(0, 2);  // keys pass through while a header is selected
    EXPECT_EQ(KeyPress(9), 9);
    EXPECT_EQ(KeyUp(117, 0), 117);
    EXPECT_EQ(KeyUp(9, kShift), 9);
    EXPECT_EQ(Current(), std::make_pair(0, 2));
}

TEST_F(Navigation, MovingOffTheBottomScrollsExactlyOneRow) {
    MakeGrid(20, 3, 2000);  // rows 1-3 end within 2000 - 300, row 4 does not
    form().vscGrid.SetScrollEnabled(false);
    Goto(3, 1);
    MoveNextRow(core());
    EXPECT_EQ(grid().row(), 4);
    EXPECT_EQ(grid().topRow(), 2);
    EXPECT_TRUE(form().vscGrid.ScrollEnabled());
    Goto(12, 1);  // far below the view: still one step
    MovePreviousRow(core());
    EXPECT_EQ(grid().topRow(), 1);
}

TEST_F(Navigation, MovingRightPastTheEdgeScrollsOneColumn) {
    MakeGrid(3, 8);  // 5360 twips wide: columns 1-3 end within 5060, column 4 does not
    form().hscGrid.SetScrollEnabled(false);
    Goto(1, 3);
    control().MoveNextCell(9);
    EXPECT_EQ(grid().col(), 4);
    EXPECT_EQ(grid().leftCol(), 2);
    EXPECT_TRUE(form().hscGrid.ScrollEnabled());
    grid().setCol(2);
    control().MovePreviousCell(9);
    EXPECT_EQ(grid().col(), 1);
    EXPECT_EQ(grid().leftCol(), 1);  // column 1 was scrolled out: one step back
}

}  // namespace
}  // namespace tabulon::testing
