// GridView: what is painted where, and what the pointer hits.
#include <QApplication>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <optional>

#include "support/numeric.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

class GridViewTest : public WidgetFixture {
protected:
    GridViewTest() {
        EXPECT_TRUE(widget().LoadXML(QString::fromStdString(GridDocument(40, 8))));
        ProcessEvents();
    }
    FlexGrid& grid() { return form().msgGridView; }
    Qt::Alignment TextAlignment(int col) {
        return GridView::TextAlignment(grid().cellAlignment(2, col), grid().textMatrix(2, col));
    }
    // Narrows the data columns so that the grid ends before the view's right edge.
    void NarrowColumns() {
        for (int c = 1; c < grid().cols(); ++c)
            grid().setColWidth(c, 300);
        ProcessEvents();
    }
};

// Scrolled down, with a hidden column: every pixel of a cell in view hits that cell.
TEST_F(GridViewTest, EveryPixelOfACellHitsThatCellAndAHiddenColumnNone) {
    grid().setTopRow(5);
    grid().setColWidth(2, 0);
    const std::vector<int> cols = view().colsInView();
    EXPECT_EQ(std::count(cols.begin(), cols.end(), 2), 0);
    EXPECT_TRUE(view().cellRect(3, 1).isEmpty());  // scrolled out above
    for (const int row : view().rowsInView()) {
        for (const int col : view().colsInView()) {
            const QRect rect = view().cellRect(row, col);
            EXPECT_EQ(view().rowAt(rect.top()), row);
            EXPECT_EQ(view().rowAt(rect.bottom()), row);
            EXPECT_EQ(view().colAt(rect.left()), col);
            EXPECT_EQ(view().colAt(rect.right()), col);
        }
    }
}

TEST_F(GridViewTest, ClickingPastTheLastColumnOnlyMovesThePointer) {
    NarrowColumns();
    ClickCell(2, 1);
    const QRect last = view().cellRect(2, view().colsInView().back());
    ASSERT_LT(last.right() + 5, view().width()) << "the grid has no room past its last column";
    QTest::mouseClick(&view(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(last.right() + 5, last.center().y()));
    ProcessEvents();
    EXPECT_EQ(grid().row(), 2);
    EXPECT_EQ(grid().col(), 1);
    EXPECT_EQ(grid().mouseCol(), -1);
}

// Whole notches are compared with the session by the scrolling journey; half notches
// add up.
TEST_F(GridViewTest, HalfWheelNotchesAddUpToTheConfiguredNumberOfRows) {
    const QPoint centre = view().rect().center();
    for (int half = 1; half <= 2; ++half) {
        QWheelEvent wheel(centre, view().mapToGlobal(centre), QPoint(), QPoint(0, -60),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&view(), &wheel);
        EXPECT_EQ(grid().topRow(), 1 + (half / 2) * QApplication::wheelScrollLines());
    }
}
TEST_F(GridViewTest, PaintsCellColoursGridLinesAndTheAreaPastTheCells) {
    grid().setCellBackColor(2, 2, 0xFF0000);
    NarrowColumns();
    const QImage image = view().grab().toImage();
    const QRect red = view().cellRect(2, 2);
    EXPECT_EQ(image.pixel(red.left() + 1, red.bottom() - 1), qRgb(255, 0, 0));
    // The grid line runs along the cell's last pixel column and row.
    EXPECT_EQ(image.pixel(red.right(), red.center().y()), qRgb(0xC0, 0xC0, 0xC0));
    EXPECT_EQ(image.pixel(red.center().x(), red.bottom()), qRgb(0xC0, 0xC0, 0xC0));
    const QRect header = view().cellRect(0, 1);
    EXPECT_EQ(image.pixel(header.right(), header.center().y()), qRgb(0x80, 0x80, 0x80));
    const QRect last = view().cellRect(1, 8);
    EXPECT_EQ(image.pixel(last.right() + 2, last.center().y()), qRgb(0x80, 0x80, 0x80));
}

// What remains of a cut text before its ellipsis; nothing when it has none.
std::optional<QString> BeforeEllipsis(const QString& shown) {
    for (const QString& ellipsis : {QString(QChar(0x2026)), QStringLiteral("...")}) {
        if (shown.endsWith(ellipsis)) return shown.chopped(ellipsis.size());
    }
    return std::nullopt;
}

// A value that does not fit is never shown silently cut: a number keeps every digit
// before an ellipsis or turns into "#"s, other text ends in an ellipsis; exactly then
// the cell offers its whole text as a tooltip. Only the painting changes.
TEST_F(GridViewTest, TextThatDoesNotFitIsCutVisiblyAndOfferedWholeInATooltip) {
    const std::pair<const char*, CellAlignment> texts[] = {
        {"3024493(kWh)", CellAlignment::RightTop},
        {"-1.5E+20", CellAlignment::General},
        {"Level 10 North wing", CellAlignment::LeftTop},
        {"12", CellAlignment::RightTop},
        {"Centrifugal chiller", CellAlignment::CenterCenter}};
    int col = 1;
    for (const auto& [text, alignment] : texts) {
        grid().setColWidth(col, 600);
        for (const int row : {2, 3}) {
            grid().setTextMatrix(row, col, text);
            grid().setCellAlignment(row, col, alignment);
        }
        ++col;
    }
    ProcessEvents();
    int cut = 0;
    for (int c = 1; c < col; ++c) {
        SCOPED_TRACE(grid().textMatrix(2, c));
        const QString whole = QString::fromStdString(grid().textMatrix(2, c));
        const QString shown = view().shownText(2, c);
        const bool isCut = view().textCut(2, c);
        const std::optional<QString> kept = BeforeEllipsis(shown);
        cut += isCut ? 1 : 0;
        if (!isCut) {
            EXPECT_EQ(shown, whole);
        } else if (TextAlignment(c) & Qt::AlignRight) {
            const QString number =
                whole.left(static_cast<qsizetype>(NumericPrefixLength(grid().textMatrix(2, c))));
            EXPECT_TRUE(kept ? whole.startsWith(*kept) && kept->startsWith(number)
                             : !shown.isEmpty() && shown.count(QLatin1Char('#')) == shown.size())
                << shown.toStdString();
        } else {
            EXPECT_TRUE(kept && whole.startsWith(*kept)) << shown.toStdString();
        }
        // Row 3 is painted as row 2 shows it (a general number stays on the right).
        grid().setTextMatrix(3, c, shown.toStdString());
        if (grid().cellAlignment(3, c) == CellAlignment::General) {
            grid().setCellAlignment(3, c, CellAlignment::RightCenter);
        }
        const QPoint centre = view().cellRect(2, c).center();
        QHelpEvent help(QEvent::ToolTip, centre, view().mapToGlobal(centre));
        QApplication::sendEvent(&view(), &help);
        EXPECT_EQ(help.isAccepted(), isCut);
        if (isCut) {
            EXPECT_EQ(QToolTip::text(), whole);
        }
    }
    EXPECT_GE(cut, 3);
    EXPECT_FALSE(view().textCut(2, 4)) << "12 fits";
    ProcessEvents();
    const QImage image = view().grab().toImage();
    for (int c = 1; c < col; ++c) {
        const QRect two = view().cellRect(2, c);
        const QRect three = view().cellRect(3, c);
        EXPECT_EQ(image.copy(two), image.copy(three.x(), three.y(), two.width(), two.height()))
            << "cell 2, " << c << " does not paint what it shows";
    }
    EXPECT_EQ(grid().textMatrix(2, 1), "3024493(kWh)");
}

}  // namespace
}  // namespace tabulon::testing
