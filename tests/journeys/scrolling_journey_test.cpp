// A person scrolls a grid far wider and taller than the window with the control's own
// scroll bars and the wheel, types into its first, last and middle cells and saves.
#include <QScreen>
#include <QWheelEvent>
#include <functional>
#include <map>
#include <sstream>
#include <string>

#include "journeys/journey.h"

namespace tabulon::testing {
namespace {

constexpr int kRows = 60;
constexpr int kCols = 30;

class Scrolling : public JourneyFixture {
protected:
    // A width for every column (the caption column too) for which the last column,
    // scrolled as far as it would go if the vertical bar were not counted, would end
    // as far under that bar as can be.
    std::int16_t WidthEndingUnderTheBar() {
        const std::int32_t width = form().msgGridView.width();
        std::int16_t best = 1000;
        for (std::int16_t n = 1000; n < 2000; ++n) {
            if (width % n < width % best) best = n;
        }
        const std::int32_t covered = form().msgGridView.left() + width - form().vscGrid.left();
        EXPECT_LT(width % best, covered / 2)
            << "no column width puts the last column under the bar";
        return best;
    }

    // Every row and column in view has the size in pixels it had when first seen
    // (sizes holds columns at their index, rows at -1 - row).
    void ExpectSizesKept(std::map<int, int>& sizes, const std::string& where) {
        for (const int row : view().rowsInView()) {
            const int height = view().cellRect(row, 0).height();
            EXPECT_EQ(height, sizes.emplace(-1 - row, height).first->second)
                << where << ", row " << row;
        }
        for (const int col : view().colsInView()) {
            const int width = view().cellRect(0, col).width();
            EXPECT_EQ(width, sizes.emplace(col, width).first->second) << where << ", col " << col;
        }
    }

    // An open editor lies on its cell's pixels, up to the bars it is cut at.
    void ExpectEditorOnItsCell(const std::string& where) {
        const QWidget* editor = widget().widgetFor(form().txtTextBoxControl);
        if (!editor->isVisible()) return;
        const FlexGrid& grid = form().msgGridView;
        const QRect cell = view().cellRect(grid.row(), grid.col()).translated(view().pos());
        const QRect right = widget().widgetFor(form().vscGrid)->geometry();
        const QRect below = widget().widgetFor(form().hscGrid)->geometry();
        const QRect at = editor->geometry();
        EXPECT_EQ(at.left(), cell.left()) << where;
        EXPECT_EQ(at.top(), cell.top()) << where;
        EXPECT_EQ(at.right(), std::min(cell.right(), right.left() - 1)) << where;
        EXPECT_EQ(at.bottom(), std::min(cell.bottom(), below.top() - 1)) << where;
    }
};

TEST_F(Scrolling, BarsAndWheelReachEveryCellAndTheLastColumnClearsTheVerticalBar) {
    Start(GridDocument(kRows, kCols));
    gGeneralProperty_type general = widget().GeneralProperty();
    general.intScrollBars = 1;
    general.lngColWidthMin = WidthEndingUnderTheBar();
    widget().setGeneralProperty(general);

    const std::string script = ScriptFile("scrolling.session");
    const std::size_t lastCell = script.find("click 60 30");
    Play(script.substr(0, lastCell));
    const FlexGrid& grid = form().msgGridView;
    EXPECT_EQ(grid.leftCol(), grid.maxLeftCol());
    EXPECT_EQ(grid.topRow(), grid.maxTopRow());
    const QRect last = view().cellRect(kRows, kCols).translated(view().pos());
    const QWidget* bar = widget().widgetFor(form().vscGrid);
    EXPECT_LT(last.right(), bar->x()) << "the last column ends under the vertical bar";

    const std::size_t middle = script.find("wheel 3\nbutton OK");
    Play(script.substr(lastCell, middle - lastCell));
    // The last wheel turns over the open editor of the middle cell.
    const QPoint centre = view().geometry().center();
    EXPECT_EQ(widget().childAt(centre), widget().widgetFor(form().txtTextBoxControl))
        << view().rowAt(centre.y() - view().y()) << " " << view().colAt(centre.x() - view().x());
    Play(script.substr(middle));

    EXPECT_EQ(grid.textMatrix(1, 1), "first");
    EXPECT_EQ(grid.textMatrix(kRows, kCols), "last");
    EXPECT_EQ(grid.textMatrix(kRows - 1, kCols), "above the last");
    EXPECT_EQ(grid.textMatrix(8, 2), "middle");
    Finish(script, "set-general intScrollBars=1 lngColWidthMin=" +
                       std::to_string(general.lngColWidthMin) + "\n");
}

// Scrolling moves the pixels that stay in view and paints only what comes in. After
// every step the screen must show what painting the whole window afresh shows, every
// row and column keeps its size in pixels, and an open editor lies on its cell: with
// rows and columns on whole pixels, and between them (all alike, and rows of mixed
// heights), with and without an open editor, by bar, wheel and keys.
TEST_F(Scrolling, AfterEveryStepTheScreenShowsWhatAFreshPaintShows) {
    // What the window shows (its backing store), and the window painted afresh.
    const auto shown = [this] {
        QWidget* window = widget().window();
        return window->screen()
            ->grabWindow(window->winId())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    };
    const auto fresh = [this] {
        return widget().window()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    };
    const std::string steps =
        "hscroll +1\nhscroll +1\nvscroll +1\nvscroll +1\nwheel -3\nhscroll -1\nvscroll -1\n"
        "wheel 3\nclick 9 4\nhscroll +1\nvscroll +1\nkey Escape\nhscroll +1\nkey Tab\n"
        "key Tab\nkey Tab\nkey Tab\nkey Tab\nkey Tab\nkey Down shift\nvscroll +1\n"
        "hscroll -1\nvscroll +1\nvscroll +1\nwheel -6\n";
    struct Layout {
        const char* name;
        std::function<int(int)> rowHeight;
        std::int16_t colWidth;
    };
    const std::vector<Layout> layouts = {
        {"whole pixels", [](int) { return 360; }, 1200},
        {"between pixels", [](int) { return 350; }, 1210},
        {"mixed rows", [](int r) { return r % 3 == 0 ? 350 : 355 + 20 * (r % 4); }, 1200},
    };
    for (const Layout& layout : layouts) {
        std::map<int, int> pixelSizes;
        events.clear();  // the session plays the last layout only
        gGeneralProperty_type general = widget().GeneralProperty();
        general.intScrollBars = 1;
        general.lngColWidthMin = layout.colWidth;
        widget().setGeneralProperty(general);
        std::vector<std::string> columns;
        for (int c = 1; c <= kCols; ++c) {
            std::vector<CellData> cells;
            for (int r = 1; r <= kRows; ++r)
                cells.emplace_back(r % 7 == 0 ? "a text too long for its cell " + std::to_string(r)
                                              : std::to_string(r * c),
                                   true, r % 5 != 0, false);
            columns.push_back(Column(cells));
        }
        std::vector<std::string> rows;
        for (int r = 1; r <= kRows; ++r) {
            rows.push_back(
                Row("TextBox", "Height=\"" + std::to_string(layout.rowHeight(r)) + "\""));
        }
        Start(Document(rows, columns));
        std::istringstream lines(steps);
        for (std::string line; std::getline(lines, line);) {
            Play(line);
            EXPECT_TRUE(shown() == fresh()) << layout.name << ", after " << line;
            ExpectSizesKept(pixelSizes, layout.name + (", " + line));
            ExpectEditorOnItsCell(layout.name + (", " + line));
        }
        if (&layout == &layouts.back()) break;  // the session plays the steps alone
        // The column (row) the vertical (horizontal) bar lies over: its editor is cut
        // where the bar begins, at three scroll positions (pixels land differently).
        for (int step = 0; step < 3; ++step) {
            const int col = view().colAt(widget().widgetFor(form().vscGrid)->x() - view().x());
            const int row = view().rowAt(widget().widgetFor(form().hscGrid)->y() - view().y());
            ASSERT_GE(col, 1) << layout.name;
            ASSERT_GE(row, 1) << layout.name;
            Play("click " + std::to_string(form().msgGridView.topRow()) + " " +
                 std::to_string(col) + "\n");
            ExpectEditorOnItsCell(std::string(layout.name) + ", under the vertical bar");
            Play("click " + std::to_string(row) + " " +
                 std::to_string(form().msgGridView.leftCol()) + "\n");
            ExpectEditorOnItsCell(std::string(layout.name) + ", under the horizontal bar");
            Play("hscroll -1\nvscroll +1\n");
        }
    }
    Finish(steps, "set-general intScrollBars=1 lngColWidthMin=1200\n");
}

}  // namespace
}  // namespace tabulon::testing
