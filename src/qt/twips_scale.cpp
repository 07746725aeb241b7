#include "qt/twips_scale.h"

#include <algorithm>
#include <cmath>

namespace tabulon {

namespace {

double UsableDpi(double dpi) {
    return dpi > 0 ? dpi : TwipsScale::kDefaultDpi;
}

int RoundToInt(double value) {
    return static_cast<int>(std::lround(value));
}

}  // namespace

TwipsScale::TwipsScale(double dpiX, double dpiY) : dpiX_(UsableDpi(dpiX)), dpiY_(UsableDpi(dpiY)) {}

int TwipsScale::toPixelsX(std::int64_t twips) const {
    return EdgeX(static_cast<double>(twips));
}

int TwipsScale::toPixelsY(std::int64_t twips) const {
    return EdgeY(static_cast<double>(twips));
}

int TwipsScale::EdgeX(double twips) const {
    return RoundToInt(twips * dpiX_ / kTwipsPerInch);
}

int TwipsScale::EdgeY(double twips) const {
    return RoundToInt(twips * dpiY_ / kTwipsPerInch);
}

QRect TwipsScale::toPixels(std::int32_t left, std::int32_t top, std::int32_t width,
                           std::int32_t height) const {
    const int x0 = toPixelsX(left);
    const int y0 = toPixelsY(top);
    // Summed as doubles: a far edge may lie beyond the 32-bit range.
    const int x1 = EdgeX(static_cast<double>(left) + std::max<std::int32_t>(width, 0));
    const int y1 = EdgeY(static_cast<double>(top) + std::max<std::int32_t>(height, 0));
    return {x0, y0, x1 - x0, y1 - y0};
}

std::int32_t TwipsScale::toTwipsX(int pixels) const {
    return static_cast<std::int32_t>(std::lround(pixels * kTwipsPerInch / dpiX_));
}

std::int32_t TwipsScale::toTwipsY(int pixels) const {
    return static_cast<std::int32_t>(std::lround(pixels * kTwipsPerInch / dpiY_));
}

}  // namespace tabulon
