// 16-bit integer arithmetic of the widgets: results that do not fit a signed 16-bit
// integer are run-time failures, as the bars' margins and counts are 16-bit.
#pragma once

#include <algorithm>
#include <cstdint>

#include "support/numeric.h"

namespace tabulon::widgets {

// value as a 16-bit integer; outside -32768..32767 throws OverflowFailure.
inline std::int16_t Narrow16(long long value) {
    return ToInt16(static_cast<double>(value));
}

// A size that would come out negative is applied as 0 (see the layout notes of the
// scroll-bar components); one beyond the 32-bit range as the largest size.
inline std::int32_t NonNegative(long long size) {
    return static_cast<std::int32_t>(std::clamp<long long>(size, 0, INT32_MAX));
}

}  // namespace tabulon::widgets
