// TextStamp: a text drawn again where it lies on the same plain ground as before,
// as a copy of the pixels it gave then. Drawing a glyph blends it with what is under
// it, pixel by pixel and gamma-corrected, which costs about ten times a copy; and a
// pane painted whole again (the window resized, the pane scrolled back) draws the
// same texts on the same ground.
//
// A copy is used only where it gives the same pixels as the glyphs: the painter
// paints straight into an image of 32-bit pixels (a widget's backing store, a grab),
// moved by whole pixels, one device pixel per pixel, SourceOver at full opacity, with
// a solid pen and a clip of at most one rectangle; and every pixel the text's ink may
// reach is one opaque colour, which the copy was drawn on at the same fraction of a
// pixel, in the same pen and clip. Pixels are kept from the second drawing of a text
// on; a text drawn once (the next screen of a long tree) is not looked at.
#pragma once

#include <QGlyphRun>
#include <QImage>
#include <QList>
#include <QPointF>
#include <QRectF>
#include <cstddef>
#include <optional>
#include <vector>

class QPainter;

namespace tabulon {

class TextStamp {
public:
    // Draws runs (the same ones each time) at at, as QPainter::drawGlyphRun does;
    // returns the bytes of pixels it kept doing so (0 mostly).
    std::size_t draw(QPainter& painter, QPointF at, const QList<QGlyphRun>& runs);

private:
    struct Kept {
        quint64 pen = 0;
        QRgb ground = 0;
        QPointF phase;  // the fractions of a pixel the text was drawn at
        QRect area;     // the pixels kept, from the whole pixel it was drawn at
        QImage::Format format = QImage::Format_Invalid;
        int hints = 0;  // the painter's render hints, and whether it paints a widget
        QImage pixels;
    };

    // Every pixel the glyphs may reach, from where they are drawn.
    static QRectF Ink(const QList<QGlyphRun>& runs);

    std::optional<QRectF> ink_;  // known from the second drawing on
    bool drawnBefore_ = false;
    std::vector<Kept> kept_;
};

}  // namespace tabulon
