// PlainLine: one line of printable ASCII (and ellipses) laid out from its characters'
// glyphs, without shaping the whole text. Shaping is most of what laying a short text
// out costs, and the grid meets thousands of texts it has never shown on a node change.
//
// Each character is shaped once per font, and so is each pair of neighbours the texts
// bring. A text is laid out here only when each of its pairs shapes to the two glyphs
// its characters have alone, from the font's own face, on one baseline (no ligature,
// no fallback font); the second glyph then sits one advance after the first, plus the
// pair's kerning. Placed so, glyph after glyph, they are where shaping the whole text
// puts them, and the line's width is the sum of those steps and the last advance, by
// which drawText aligns it. Any other text (a joined pair, a glyph from another font,
// spaces at either end, a font with letter or word spacing, a capitalisation or lines
// drawn through it) is left to the caller, who lays it out whole. The same steps say
// where such a text is cut to fit a width, as Qt's elision cuts it.
#pragma once

#include <QFont>
#include <QPointF>
#include <QRawFont>
#include <QSizeF>
#include <QString>
#include <QStringView>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace tabulon {

class PlainLine {
public:
    // What a cut text ends with.
    static constexpr char16_t kEllipsis = 0x2026;

    // Where a text's glyphs go: appended to the caller's arrays, positioned from the
    // top left of where the text goes, to be drawn with rawFont() (a glyph run over the
    // arrays, QGlyphRun::setRawData, allocates nothing per text).
    struct Glyphs {
        std::vector<quint32>& indexes;
        std::vector<QPointF>& positions;
    };

    // text laid out in font into glyphs, its size returned; nothing (and nothing
    // appended) when it is not a text this can lay out.
    std::optional<QSizeF> layOut(const QFont& font, QStringView text, Glyphs glyphs);
    // The face of the glyphs the last layOut gave.
    const QRawFont& rawFont() const { return raw_; }
    // What QFontMetricsF(font).elidedText(text, Qt::ElideRight, width) gives, or nothing
    // when text is not one this can lay out.
    std::optional<QString> elidedRight(const QFont& font, QStringView text, qreal width);

private:
    // Printable ASCII and the ellipsis a cut text ends with.
    static constexpr std::size_t kSlots = 0x7F - 0x20 + 1;
    static int Slot(char16_t c);  // -1 for any other character

    struct Glyph {
        bool known = false;
        bool plain = false;  // one glyph of the font's own face
        quint32 index = 0;
        qreal advance = 0;
    };
    struct Pair {
        enum : std::uint8_t { Unknown, Apart, Joined } state = Unknown;
        float kerning = 0;  // added to the first glyph's advance (a multiple of 1/64)
    };

    void useFont(const QFont& font);
    // The left edge of each glyph of text and, last, the line's width, into edges_;
    // false when text is not one this can lay out.
    bool place(const QFont& font, QStringView text);
    const Glyph& glyph(char16_t c);
    const Pair& pair(char16_t first, char16_t second);

    QFont font_;
    bool usable_ = false;
    bool started_ = false;
    QRawFont raw_;
    qreal baseline_ = 0;  // the glyphs' height below the top
    qreal height_ = 0;
    std::array<Glyph, kSlots> glyphs_{};
    std::array<Pair, kSlots * kSlots> pairs_{};
    std::vector<qreal> edges_;  // place()'s answer, kept to spare an allocation a text
};

}  // namespace tabulon
