// The widget rendered for each sample: the pictures are kept under the build folder
// (qt_renders/) for people to look at; the tests check that the grid and the tree
// really show something.
#include <QDir>
#include <QImage>
#include <QTreeWidget>

#include "common/qt_images.h"
#include "widget_fixture.h"

namespace tabulon::testing {
namespace {

// Renders the whole widget and keeps the picture as qt_renders/<name>.png.
void KeepRender(QWidget& widget, const std::string& name) {
    const QString dir = QString::fromUtf8(TABULON_BINARY_DIR) + QStringLiteral("/qt_renders");
    QDir().mkpath(dir);
    EXPECT_TRUE(widget.grab().toImage().save(dir + QLatin1Char('/') + QString::fromStdString(name) +
                                             QStringLiteral(".png")));
}

// Pixels of a rectangle that differ from its background colour.
int InkPixels(const QImage& image, const QRect& rect, QRgb background) {
    int ink = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
        for (int x = rect.left(); x <= rect.right(); ++x) {
            if (image.pixel(x, y) != background) ++ink;
        }
    }
    return ink;
}

class RenderSample : public WidgetFixture, public ::testing::WithParamInterface<std::string> {};

TEST_P(RenderSample, GridAndTreeShowTheDocument) {
    ASSERT_TRUE(Load("samples/" + GetParam() + ".xml"));
    ProcessEvents();
    KeepRender(widget(), GetParam());

    const QImage grid = view().grab().toImage();
    // Back colours, grid lines, text and the dark area past the last row at least.
    EXPECT_GT(DistinctColours(grid), 8);
    // A data cell holds text: ink on its white background.
    const QRect cell = view().cellRect(1, 1);
    EXPECT_GT(InkPixels(grid, cell.adjusted(0, 0, -1, -1), qRgb(255, 255, 255)), 10);

    auto* tree = static_cast<QTreeWidget*>(widget().widgetFor(form().treTreeView));
    EXPECT_GT(tree->topLevelItemCount(), 0);
    EXPECT_GT(DistinctColours(tree->grab().toImage()), 8);
}

INSTANTIATE_TEST_SUITE_P(Samples, RenderSample, ::testing::Values("english", "metric", "filtered"));

}  // namespace
}  // namespace tabulon::testing
