// A text drawn again from kept pixels must look exactly as its glyphs drawn again:
// on every ground and in every pen, at every fraction of a pixel, cut by a clip or
// not, in both pixel formats a backing store has, and where the ground is not plain.
// Pixels kept for each case are offered to all the others.
#include <gtest/gtest.h>
#include <QApplication>
#include <QPainter>
#include <QRegion>
#include <QTextLayout>
#include <optional>
#include <string>
#include <vector>

#include "qt/bindings/text_stamp.h"

namespace tabulon {
namespace {

QList<QGlyphRun> Runs(const QString& text) {
    QTextLayout layout(text, QApplication::font());
    layout.beginLayout();
    layout.createLine().setLineWidth(400);
    layout.endLayout();
    return layout.glyphRuns();
}

struct Case {
    QColor ground;
    QColor pen;
    QPointF at;
    std::optional<QRegion> clip;
    QImage::Format format;
    bool striped = false;  // a line of another colour under the text
    std::string name() const {
        return ground.name().toStdString() + " ground, " + pen.name().toStdString() + " pen, at " +
               std::to_string(at.x()) + "," + std::to_string(at.y()) + (clip ? ", clipped" : "") +
               (striped ? ", striped" : "") + ", format " + std::to_string(format);
    }
};

QImage Ground(const Case& c) {
    QImage image(120, 30, c.format);
    image.fill(c.ground);
    if (c.striped) {
        QPainter painter(&image);
        painter.fillRect(0, 14, 120, 1, Qt::yellow);
    }
    return image;
}

void Paint(QImage& image, const Case& c, const std::function<void(QPainter&)>& draw) {
    QPainter painter(&image);
    painter.translate(3, 2);  // as a widget is painted inside its window
    painter.setPen(c.pen);
    if (c.clip) painter.setClipRegion(*c.clip);
    draw(painter);
}

TEST(TextStamp, TextDrawnFromKeptPixelsLooksAsItsGlyphsDrawn) {
    const QList<QGlyphRun> runs = Runs(QStringLiteral("Floor 7 (gypsum, Qj)"));
    std::vector<Case> cases;
    for (const QImage::Format format :
         {QImage::Format_ARGB32_Premultiplied, QImage::Format_RGB32}) {
        for (const QColor& ground : {QColor(Qt::white), QColor(0x30, 0x8c, 0xc6)}) {
            for (const QColor& pen : {QColor(Qt::black), QColor(Qt::white)}) {
                for (const qreal x : {4.0, 4.25, 9.75}) {
                    cases.push_back({ground, pen, QPointF(x, 3), std::nullopt, format});
                    cases.push_back({ground, pen, QPointF(x, 3), QRect(0, 4, 120, 12), format});
                    cases.push_back({ground, pen, QPointF(x, 3), QRect(30, 0, 90, 30), format});
                }
                cases.push_back({ground, pen, QPointF(4, 3), std::nullopt, format, true});
                // Two clips of two rectangles each, around the same bounds.
                for (const int gap : {40, 55}) {
                    cases.push_back({ground, pen, QPointF(4, 3),
                                     QRegion(0, 0, gap, 30) + QRegion(gap + 12, 0, 60, 30),
                                     format});
                }
            }
        }
    }
    std::vector<QImage> expected;
    for (const Case& c : cases) {
        expected.push_back(Ground(c));
        Paint(expected.back(), c, [&](QPainter& painter) {
            for (const QGlyphRun& run : runs)
                painter.drawGlyphRun(c.at, run);
        });
    }
    const auto drawn = [&](TextStamp& stamp, std::size_t i) {
        QImage painted = Ground(cases[i]);
        Paint(painted, cases[i],
              [&](QPainter& painter) { stamp.draw(painter, cases[i].at, runs); });
        return painted == expected[i];
    };
    // Pixels kept for each case (drawn twice), offered to every other case.
    int differing = 0;
    for (std::size_t kept = 0; kept < cases.size(); ++kept) {
        TextStamp stamp;
        for (int time = 0; time < 3; ++time) {
            if (!drawn(stamp, kept)) {
                ADD_FAILURE() << cases[kept].name() << ", drawn " << time + 1 << " times";
                ++differing;
            }
        }
        for (std::size_t other = 0; other < cases.size(); ++other) {
            if (!drawn(stamp, other)) {
                ADD_FAILURE() << cases[other].name() << " after " << cases[kept].name();
                ++differing;
            }
        }
    }
    EXPECT_EQ(differing, 0);
}

}  // namespace
}  // namespace tabulon
