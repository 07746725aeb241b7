// A person fills a whole grid far wider and taller than the window with the keyboard
// alone: one click on the first cell, then typing and Tab/Enter/F-keys, snaking right
// and left row by row to the bottom, then back up the first column; OK saves.
#include <string>
#include <vector>

#include "journeys/journey.h"

namespace tabulon::testing {
namespace {

constexpr int kRows = 100;
constexpr int kCols = 30;

// Rows take turns: free text, a number in feet, a number with a choice of units.
enum class Kind { Text, Number, Units };

Kind KindOf(int row) {
    return static_cast<Kind>(row % 3);
}

std::string GridOfEveryKind() {
    const std::string kinds[] = {
        Row("TextBox", R"(MaxLength="20")"),
        Row("UnitNum", R"(Unit="FT_TO_M" Format="0" MinVal="0" MaxVal="1000")"),
        Row("UnitDrop",
            R"(Unit="FT_TO_M;INCH_TO_MM" Format="0;0" MinVal="0;0" MaxVal="1000;1000")")};
    const std::string initial[] = {"x", "1", "1(ft)"};
    std::vector<std::string> rows;
    std::vector<CellData> cells;
    for (int r = 1; r <= kRows; ++r) {
        rows.push_back(kinds[static_cast<int>(KindOf(r))]);
        cells.emplace_back(initial[static_cast<int>(KindOf(r))]);
    }
    return Document(rows, std::vector<std::string>(kCols, Column(cells)));
}

// What is typed into cell (r, c).
std::string Typed(int r, int c) {
    const std::string number = std::to_string((r * 31 + c * 7) % 97 + 1);
    return KindOf(r) == Kind::Text ? "t" + number : number;
}

// Down the rows, right along the odd ones and left along the even ones, each move
// with the next of its two keys; then back up the first column.
std::string KeyboardOnlyScript() {
    std::string script = "click 1 1\n";
    for (int r = 1; r <= kRows; ++r) {
        const bool right = r % 2 == 1;
        for (int i = 0; i < kCols; ++i) {
            const int c = right ? 1 + i : kCols - i;
            script += "type \"" + Typed(r, c) + "\"\n";
            if (i + 1 == kCols) break;
            if (right) {
                script += i % 2 == 0 ? "key Tab\n" : "key F6\n";
            } else {
                script += i % 2 == 0 ? "key Tab ctrl\n" : "key F5\n";
            }
        }
        if (r < kRows) script += r % 2 == 0 ? "key Enter\n" : "key F8\n";
    }
    for (int r = kRows - 1; r >= 1; --r) {
        script += r % 2 == 0 ? "key F7\n" : "key Enter ctrl\n";
    }
    return script + "button OK\n";
}

class KeyboardEntry : public JourneyFixture {};

TEST_F(KeyboardEntry, AWholeGridWiderAndTallerThanTheWindowIsEnteredWithoutTheMouse) {
    Start(GridOfEveryKind());
    const std::string script = KeyboardOnlyScript();
    Play(script);
    EXPECT_TRUE(messages.empty()) << messages.front();
    ASSERT_EQ(events, std::vector<std::string>{"OKClick"});
    Finish(script);  // the grid and the saved file too
}

}  // namespace
}  // namespace tabulon::testing
