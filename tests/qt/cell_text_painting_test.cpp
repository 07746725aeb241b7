// The grid draws most cell texts from glyphs kept per character, not from a layout of
// the whole text; on screen they must stay what QPainter::drawText paints. Texts a
// person enters (numbers with units, names with kerned pairs, ligatures, inner and
// outer spaces, one character) are painted both ways in several fonts and alignments,
// in cells wide enough and too narrow, and the images compared pixel for pixel; and
// texts too wide are cut where Qt elides them.
#include <gtest/gtest.h>
#include <QApplication>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <random>
#include <string>
#include <vector>

#include "qt/bindings/cell_text.h"

namespace tabulon {
namespace {

std::vector<std::string> Texts() {
    std::vector<std::string> texts = {
        "0",      "1234.5",        "-0.25",  "3534670(Btu/hr)", "1.5E+03",   "VAV",
        "AVATAR", "Tea Toy Yo",    "office", "ffi fl",          "a  b",      " lead",
        "trail ", "Calder & Sons", "W.Y.",   "LT-7 \"quoted\"", "{[(x)]}|~", "L'Y",
    };
    // And random printable ASCII, so that pairs no one thought of are met.
    std::mt19937 random(7);
    std::uniform_int_distribution<int> length(1, 14);
    std::uniform_int_distribution<int> character(0x20, 0x7E);
    for (int i = 0; i < 300; ++i) {
        std::string text(static_cast<std::size_t>(length(random)), ' ');
        for (char& c : text)
            c = static_cast<char>(character(random));
        texts.push_back(text);
    }
    return texts;
}

QImage Blank(QSize size) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    return image;
}

// cells paints text into rect as drawText paints shown there.
void ExpectDrawnAsDrawText(const CellText& cells, const QFont& font, const QRect& rect,
                           Qt::Alignment alignment, const std::string& text, const QString& shown) {
    const QSize size(rect.right() + 4, rect.bottom() + 4);
    QImage expected = Blank(size);
    QImage painted = Blank(size);
    {
        QPainter painter(&expected);
        painter.setFont(font);
        painter.setPen(Qt::darkBlue);
        painter.drawText(rect, static_cast<int>(alignment) | Qt::TextSingleLine, shown);
    }
    {
        QPainter painter(&painted);
        painter.setFont(font);
        painter.setPen(Qt::darkBlue);
        cells.paint(painter, rect, alignment, text);
    }
    ASSERT_EQ(painted, expected);
}

std::vector<QFont> Fonts() {
    QFont bold = QApplication::font();
    bold.setBold(true);
    QFont large = QApplication::font();
    large.setPointSizeF(13.5);
    QFont italic = QApplication::font();
    italic.setItalic(true);
    QFont spaced = QApplication::font();
    spaced.setLetterSpacing(QFont::AbsoluteSpacing, 1.5);
    QFont underlined = QApplication::font();
    underlined.setUnderline(true);
    return {QApplication::font(), bold, large, italic, spaced, underlined};
}

TEST(CellTextPainting, LooksAsDrawTextPaintsItInEveryFontAndAlignment) {
    const std::vector<QFont> fonts = Fonts();
    const std::vector<Qt::Alignment> alignments = {
        Qt::AlignLeft | Qt::AlignVCenter, Qt::AlignRight | Qt::AlignVCenter,
        Qt::AlignHCenter | Qt::AlignBottom, Qt::AlignLeft | Qt::AlignTop};
    const std::vector<std::string> texts = Texts();

    // One CellText for all, as the grid keeps one: what it kept for one font must not
    // be drawn in another.
    CellText cells;
    int kerned = 0;
    for (const QFont& font : fonts) {
        SCOPED_TRACE(font.toString().toStdString());
        const QFontMetricsF metrics(font);
        for (const std::string& text : texts) {
            const QString whole = QString::fromStdString(text);
            const int natural = static_cast<int>(metrics.horizontalAdvance(whole));
            // Kerning makes the whole narrower or wider than its characters' advances.
            qreal sum = 0;
            for (const QChar c : whole)
                sum += metrics.horizontalAdvance(c);
            if (sum != metrics.horizontalAdvance(whole)) ++kerned;
            for (const Qt::Alignment alignment : alignments) {
                for (const int width : {natural + 9, natural / 2 + 4}) {
                    SCOPED_TRACE(text + " in " + std::to_string(width) + " px, alignment " +
                                 std::to_string(alignment));
                    const QRect rect(3, 2, width, static_cast<int>(metrics.height()) + 5);
                    const QString shown = cells.shown(font, rect.width(), alignment, text);
                    // drawText places a text wider than its rectangle its own way; Qt's
                    // elision can leave a cut form a little too wide (the kerning of the
                    // character it removed).
                    if (metrics.horizontalAdvance(shown) > width) continue;
                    ASSERT_NO_FATAL_FAILURE(
                        ExpectDrawnAsDrawText(cells, font, rect, alignment, text, shown));
                }
            }
        }
    }
    // The fonts here do kern some of these texts: the kerned ones were compared too.
    EXPECT_GT(kerned, 0);
}

// The grid keeps what it laid out up to a bound and then starts afresh, as a person
// goes through node after node of new values: a text met again, before and after
// that, still looks as drawText paints it.
TEST(CellTextPainting, TextsMetAgainAfterThousandsOfOthersLookTheSame) {
    CellText cells;
    const QFont font = QApplication::font();
    const QRect rect(2, 1, 160, static_cast<int>(QFontMetricsF(font).height()) + 2);
    const int count = static_cast<int>(CellText::kCacheSize) * 5 / 2;
    for (int i = 0; i < count; ++i) {
        for (const int shownAgain : {i, i * 7 / 8, i % 31}) {
            const std::string text = "AHU-" + std::to_string(shownAgain * 37) + ".5 (cfm)";
            SCOPED_TRACE(text + " after " + std::to_string(i) + " others");
            ASSERT_EQ(cells.shown(font, rect.width(), Qt::AlignRight, text),
                      QString::fromStdString(text));
            ASSERT_NO_FATAL_FAILURE(ExpectDrawnAsDrawText(cells, font, rect, Qt::AlignRight, text,
                                                          QString::fromStdString(text)));
        }
    }
}

// A text that does not fit is cut where Qt elides it, in every width from none to
// enough (right-aligned numbers keep their digits on top of that, elsewhere); a single
// character, which Qt leaves whole, is cut to the ellipsis or to nothing.
TEST(CellTextCutting, TextsAreCutWhereQtElidesThem) {
    CellText cells;
    for (const QFont& font : Fonts()) {
        SCOPED_TRACE(font.toString().toStdString());
        const QFontMetricsF metrics(font);
        for (const std::string& text : Texts()) {
            const QString whole = QString::fromStdString(text);
            const int natural = static_cast<int>(metrics.horizontalAdvance(whole));
            for (int width = 0; width <= natural + 1; ++width) {
                QString expected = metrics.elidedText(whole, Qt::ElideRight, width);
                if (expected == whole && metrics.horizontalAdvance(whole) > width) {
                    expected = metrics.horizontalAdvance(QChar(0x2026)) <= width
                                   ? QString(QChar(0x2026))
                                   : QString();
                }
                ASSERT_EQ(cells.shown(font, width, Qt::AlignLeft, text), expected)
                    << text << " in " << width << " px";
            }
        }
    }
}

}  // namespace
}  // namespace tabulon
