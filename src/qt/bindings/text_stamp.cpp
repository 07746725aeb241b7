#include "qt/bindings/text_stamp.h"

#include <QPaintEngine>
#include <QPainter>
#include <QRawFont>
#include <QRegion>
#include <cmath>
#include <cstring>
#include <optional>

namespace tabulon {

namespace {

// Grounds and pens a text is kept for: selected or not, the window active or not.
constexpr std::size_t kMostKept = 4;
// Room around the glyphs' boxes for antialiasing at a fraction of a pixel; its
// outermost pixels must still be ground once the glyphs are drawn.
constexpr qreal kMargin = 1;

void DrawRuns(QPainter& painter, QPointF at, const QList<QGlyphRun>& runs) {
    for (const QGlyphRun& run : runs)
        painter.drawGlyphRun(at, run);
}

// The image painter paints straight into and the whole pixels it is moved by, when a
// copy of pixels can stand for drawn glyphs there.
struct Target {
    QImage* image = nullptr;
    QPoint offset;
};

std::optional<Target> PlainTarget(QPainter& painter) {
    QPaintEngine* engine = painter.paintEngine();
    if (engine == nullptr || engine->type() != QPaintEngine::Raster) return std::nullopt;
    QPaintDevice* device = engine->paintDevice();
    if (device == nullptr || device->devType() != QInternal::Image) return std::nullopt;
    auto* image = static_cast<QImage*>(device);
    if ((image->format() != QImage::Format_RGB32 &&
         image->format() != QImage::Format_ARGB32_Premultiplied) ||
        image->devicePixelRatio() != 1.0) {
        return std::nullopt;
    }
    const QTransform& transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxTranslate ||
        transform.dx() != std::floor(transform.dx()) ||
        transform.dy() != std::floor(transform.dy())) {
        return std::nullopt;
    }
    if (painter.compositionMode() != QPainter::CompositionMode_SourceOver ||
        painter.opacity() != 1.0 || painter.pen().brush().style() != Qt::SolidPattern) {
        return std::nullopt;
    }
    return Target{image,
                  QPoint(static_cast<int>(transform.dx()), static_cast<int>(transform.dy()))};
}

const QRgb* Line(const QImage& image, int y) {
    return reinterpret_cast<const QRgb*>(image.constScanLine(y));
}

// Whether every pixel of area is ground.
bool AllGround(const QImage& image, const QRect& area, QRgb ground) {
    // Each line compared with a line of the ground, as memory (the fastest compare).
    thread_local std::vector<QRgb> plain;
    plain.assign(static_cast<std::size_t>(area.width()), ground);
    const std::size_t bytes = plain.size() * sizeof(QRgb);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        if (std::memcmp(Line(image, y) + area.left(), plain.data(), bytes) != 0) return false;
    }
    return true;
}

// The one opaque colour of every pixel of area.
std::optional<QRgb> Ground(const QImage& image, const QRect& area) {
    const QRgb ground = Line(image, area.top())[area.left()];
    if (qAlpha(ground) != 255 || !AllGround(image, area, ground)) return std::nullopt;
    return ground;
}

// Whether the pixels along the sides of area marked in sides are all ground.
bool SidesAreGround(const QImage& image, const QRect& area, QRgb ground, Qt::Edges sides) {
    const int width = area.width();
    const int height = area.height();
    return (!sides.testFlag(Qt::TopEdge) ||
            AllGround(image, QRect(area.left(), area.top(), width, 1), ground)) &&
           (!sides.testFlag(Qt::BottomEdge) ||
            AllGround(image, QRect(area.left(), area.bottom(), width, 1), ground)) &&
           (!sides.testFlag(Qt::LeftEdge) ||
            AllGround(image, QRect(area.left(), area.top(), 1, height), ground)) &&
           (!sides.testFlag(Qt::RightEdge) ||
            AllGround(image, QRect(area.right(), area.top(), 1, height), ground));
}

// The painter's clip in device pixels: the image when it has none; nothing when it is
// not one rectangle.
std::optional<QRect> ClipRect(QPainter& painter, const QImage& image, QPoint offset) {
    if (!painter.hasClipping()) return image.rect();
    const QRegion clip = painter.clipRegion();
    if (clip.rectCount() != 1) return std::nullopt;
    return clip.boundingRect().translated(offset) & image.rect();
}

// Whether the paint event's region holds all of area (device pixels).
bool Unclipped(QPainter& painter, const QRect& area) {
    const QRegion system = painter.paintEngine()->systemClip();
    return system.isEmpty() || (QRegion(area) - system).isEmpty();
}

}  // namespace

QRectF TextStamp::Ink(const QList<QGlyphRun>& runs) {
    QRectF ink;
    for (const QGlyphRun& run : runs) {
        const QRawFont font = run.rawFont();
        const QList<quint32> glyphs = run.glyphIndexes();
        const QList<QPointF> positions = run.positions();
        for (qsizetype i = 0; i < glyphs.size() && i < positions.size(); ++i)
            ink |= font.boundingRect(glyphs[i]).translated(positions[i]);
    }
    if (!ink.isEmpty()) ink.adjust(-kMargin, -kMargin, kMargin, kMargin);
    return ink;
}

std::size_t TextStamp::draw(QPainter& painter, QPointF at, const QList<QGlyphRun>& runs) {
    // A text drawn once is not looked at: most are not drawn again soon.
    if (!drawnBefore_) {
        drawnBefore_ = true;
        DrawRuns(painter, at, runs);
        return 0;
    }
    if (!ink_) ink_ = Ink(runs);
    const std::optional<Target> target = ink_->isEmpty() ? std::nullopt : PlainTarget(painter);
    const std::optional<QRect> clip =
        target ? ClipRect(painter, *target->image, target->offset) : std::nullopt;
    if (!clip) {
        DrawRuns(painter, at, runs);
        return 0;
    }
    // Where the glyphs may change pixels: their boxes and a pixel around, within the
    // clip. The sides the clip did not cut must not be reached.
    const QImage& image = *target->image;
    const QPointF placed = at + target->offset;
    const QPoint origin(static_cast<int>(std::floor(placed.x())),
                        static_cast<int>(std::floor(placed.y())));
    const QRect reach = ink_->translated(placed).toAlignedRect();
    const QRect area = reach & *clip;
    const std::optional<QRgb> ground = area.isEmpty() ? std::nullopt : Ground(image, area);
    if (!ground) {
        DrawRuns(painter, at, runs);
        return 0;
    }
    const QPointF phase(placed - origin);
    // Text drawn on a widget may take the font's own antialiasing, on an image not.
    const int hints = static_cast<int>(painter.renderHints()) |
                      (painter.device()->devType() == QInternal::Widget ? 1 << 16 : 0);
    const quint64 pen = painter.pen().color().rgba64();
    const QRect relative = area.translated(-origin);
    for (const Kept& kept : kept_) {
        if (kept.pen == pen && kept.ground == *ground && kept.phase == phase &&
            kept.area == relative && kept.format == image.format() && kept.hints == hints) {
            painter.drawImage(area.topLeft() - target->offset, kept.pixels);
            return 0;
        }
    }
    DrawRuns(painter, at, runs);
    Qt::Edges open;
    if (area.top() == reach.top()) open |= Qt::TopEdge;
    if (area.bottom() == reach.bottom()) open |= Qt::BottomEdge;
    if (area.left() == reach.left()) open |= Qt::LeftEdge;
    if (area.right() == reach.right()) open |= Qt::RightEdge;
    if (kept_.size() >= kMostKept || !Unclipped(painter, area) ||
        !SidesAreGround(image, area, *ground, open)) {
        return 0;
    }
    kept_.push_back({pen, *ground, phase, relative, image.format(), hints, image.copy(area)});
    return static_cast<std::size_t>(kept_.back().pixels.sizeInBytes());
}

}  // namespace tabulon
