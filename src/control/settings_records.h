// The two settings records of the control, as hosts and property pages see them.
// Booleans are the platform's 16-bit booleans: true is -1, false is 0; any non-zero
// value written counts as true.
#pragma once

#include <cstdint>
#include <string>

namespace tabulon {

using VariantBool = std::int16_t;
inline constexpr VariantBool kTrue = -1;
inline constexpr VariantBool kFalse = 0;
constexpr VariantBool ToVariantBool(bool value) {
    return value ? kTrue : kFalse;
}

// Layout of the four command buttons.
struct gButtonProperty_type {
    VariantBool blnPrintVisible = kFalse;
    VariantBool blnOKVisible = kFalse;
    VariantBool blnCancelVisible = kFalse;
    VariantBool blnHelpVisible = kFalse;
    VariantBool blnDefaultPos = kFalse;
    std::int32_t lngPrintLeft = 0;
    std::int32_t lngOKLeft = 0;
    std::int32_t lngCancelLeft = 0;
    std::int32_t lngHelpLeft = 0;
    bool operator==(const gButtonProperty_type&) const = default;
};

// Tree, filter and grid settings.
struct gGeneralProperty_type {
    std::int32_t lngTreeViewWidth = 0;
    std::int32_t lngTreeViewStyle = 0;
    VariantBool blnFilterVisible = kFalse;
    std::string strFilterCaption;
    std::string strFilterLabel;
    VariantBool blnAllowBigSelection = kFalse;
    std::int16_t intScrollBars = 0;
    std::int32_t lngRowHeightMin = 0;
    std::int32_t lngColWidthMin = 0;
    bool operator==(const gGeneralProperty_type&) const = default;
};

}  // namespace tabulon
