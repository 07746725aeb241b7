// TwipsScale: converts the core's twips (1/1440 inch) into Qt's device-independent
// pixels with a screen's logical DPI, and pixels back into twips.
//
// Decisions:
// - Edges are rounded, not sizes: a component from left to left + width covers the
//   pixels between its two rounded edges, so parts that touch in twips touch in
//   pixels too and no gap or overlap appears as positions grow.
// - Rounding is half away from zero, in both directions.
// - A DPI that is not positive (no screen yet) counts as 96, Qt's default.
#pragma once

#include <QRect>
#include <cstdint>

namespace tabulon {

class TwipsScale {
public:
    static constexpr int kTwipsPerInch = 1440;
    static constexpr double kDefaultDpi = 96.0;

    TwipsScale() = default;
    TwipsScale(double dpiX, double dpiY);

    double dpiX() const { return dpiX_; }
    double dpiY() const { return dpiY_; }

    // One coordinate or edge in pixels; a far edge (a position plus a size) may lie
    // beyond the 32-bit range.
    int toPixelsX(std::int64_t twips) const;
    int toPixelsY(std::int64_t twips) const;
    // The rectangle between the rounded edges; a negative size gives an empty rect.
    QRect toPixels(std::int32_t left, std::int32_t top, std::int32_t width,
                   std::int32_t height) const;

    // Pixels back into twips (for sizes the host gives and pointer positions).
    std::int32_t toTwipsX(int pixels) const;
    std::int32_t toTwipsY(int pixels) const;

    bool operator==(const TwipsScale&) const = default;

private:
    int EdgeX(double twips) const;
    int EdgeY(double twips) const;

    double dpiX_ = kDefaultDpi;
    double dpiY_ = kDefaultDpi;
};

}  // namespace tabulon
