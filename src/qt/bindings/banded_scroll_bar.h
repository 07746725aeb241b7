// BandedScrollBar: a QScrollBar that paints itself, when vertical and at rest, in bands
// under a hundred pixels high, and keeps the last few looks it painted. Qt's raster
// engine hands a fill of more than 95 scanlines to worker threads and waits for them;
// the style's groove and thumb gradients of a vertical bar as tall as the grid or the
// tree cost a thread wake and a wait that way, several times the painting itself. A
// node change that shows or hides the filter gives the bar back a height and range it
// had before, and a resize of the window repaints every bar whether it changed or not.
//
// Each band is an image of the bar's width: filled with the bar's own background, then
// painted by the style as the whole bar, moved up so that the band shows. The image's
// edges bound every fill, whatever clip the style sets, and the pixels are those of one
// paint of the whole bar. A thumb clear of the arrows is painted over the bar painted
// without it (kept too), in the bands it covers only: a step that moves the thumb
// repaints a few bands, not the whole bar. A look is kept under everything the style is
// given (size, pixel ratio, state, range, position, steps, direction, palette, style)
// and painted again when any of it changes. A bar under the pointer or with a button
// held paints as QScrollBar does: only QScrollBar knows which part is hovered or
// pressed. So does one whose background is not a plain colour, one at a fractional
// pixel ratio, one that its style fades in and out, and a horizontal bar: its gradient
// runs down each column, which Qt fills differently on an image than on the window, one
// level apart in places.
#pragma once

#include <QImage>
#include <QScrollBar>
#include <functional>
#include <vector>

class QStyleOptionSlider;

namespace tabulon {

class BandedScrollBar : public QScrollBar {
    Q_OBJECT

public:
    // Device pixels per band: a fill of fewer than 96 spans is not split across threads.
    static constexpr int kBandPixels = 90;
    // Looks kept, the most recently painted first.
    static constexpr std::size_t kLooksKept = 4;

    BandedScrollBar(Qt::Orientation orientation, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Everything the style is given that may change the bar's pixels.
    struct Key {
        QSize size;
        qreal ratio = 1;
        int state = 0;
        int minimum = 0, maximum = 0, position = 0, value = 0, pageStep = 0, singleStep = 0;
        bool upsideDown = false;
        Qt::LayoutDirection direction = Qt::LeftToRight;
        qint64 palette = 0;
        const QStyle* style = nullptr;
        bool operator==(const Key&) const = default;
    };
    struct Look {
        Key key;
        QImage image;
    };
    Key keyOf(const QStyleOptionSlider& option, qreal ratio) const;
    // The look kept under key in looks, painted first when there is none.
    static const QImage& look(std::vector<Look>& looks, const Key& key,
                              const std::function<QImage()>& paint);
    QImage paintLook(const QStyleOptionSlider& option, qreal ratio, const QColor& ground);
    // Paints the rows top to bottom of image as the style paints the bar of option,
    // band by band: each band on ground, or on what image holds there when null.
    void paintInBands(QImage& image, const QStyleOptionSlider& option, int top, int bottom,
                      const QColor* ground) const;

    std::vector<Look> looks_;
    // The bar without its thumb, which is painted over it: a thumb moved along a
    // groove already painted costs only its own bands.
    std::vector<Look> grooves_;
};

}  // namespace tabulon
