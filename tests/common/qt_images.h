// What a rendered picture shows, for tests that check a window is not blank.
#pragma once

#include <QImage>
#include <QSet>

namespace tabulon::testing {

inline int DistinctColours(const QImage& image) {
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            colours.insert(image.pixel(x, y));
    }
    return static_cast<int>(colours.size());
}

}  // namespace tabulon::testing
