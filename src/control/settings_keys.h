// The eighteen property-bag keys of the control's two settings records: one key per
// record field, "<record>.<field>", in the order they are restored, each with its
// stored type and its default (a value equal to the default is not stored).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/property_bag.h"
#include "view/design_geometry.h"

namespace tabulon {

enum class SettingType { Boolean, Integer, String };

struct SettingKey {
    std::string_view key;
    SettingType type;
    std::int64_t number;    // Boolean (0 false, anything else true) and Integer defaults
    std::string_view text;  // String default
};

// Positions in kSettingKeys.
enum SettingIndex : std::size_t {
    kPrintVisible,
    kOKVisible,
    kCancelVisible,
    kHelpVisible,
    kDefaultPos,
    kPrintLeft,
    kOKLeft,
    kCancelLeft,
    kHelpLeft,
    kTreeViewWidth,
    kTreeViewStyle,
    kFilterVisible,
    kFilterCaption,
    kFilterLabel,
    kAllowBigSelection,
    kRowHeightMin,
    kColWidthMin,
    kScrollBars,
    kSettingCount
};

inline constexpr std::array<SettingKey, kSettingCount> kSettingKeys = {{
    {"ButtonProperty.blnPrintVisible", SettingType::Boolean, 1, ""},
    {"ButtonProperty.blnOKVisible", SettingType::Boolean, 1, ""},
    {"ButtonProperty.blnCancelVisible", SettingType::Boolean, 1, ""},
    {"ButtonProperty.blnHelpVisible", SettingType::Boolean, 1, ""},
    {"ButtonProperty.blnDefaultPos", SettingType::Boolean, 1, ""},
    {"ButtonProperty.lngPrintLeft", SettingType::Integer, design::Find("cmdPrint").left, ""},
    {"ButtonProperty.lngOKLeft", SettingType::Integer, design::Find("cmdOK").left, ""},
    {"ButtonProperty.lngCancelLeft", SettingType::Integer, design::Find("cmdCancel").left, ""},
    {"ButtonProperty.lngHelpLeft", SettingType::Integer, design::Find("cmdHelp").left, ""},
    {"GeneralProperty.lngTreeViewWidth", SettingType::Integer, design::Find("treTreeView").width,
     ""},
    {"GeneralProperty.lngTreeViewStyle", SettingType::Integer, design::kTreeStyle, ""},
    {"GeneralProperty.blnFilterVisible", SettingType::Boolean, 1, ""},
    {"GeneralProperty.strFilterCaption", SettingType::String, 0, design::kFilterCaption},
    {"GeneralProperty.strFilterLabel", SettingType::String, 0, design::kFilterLabel},
    {"GeneralProperty.blnAllowBigSelection", SettingType::Boolean, design::kGridAllowBigSelection,
     ""},
    {"GeneralProperty.lngRowHeightMin", SettingType::Integer, design::kGridRowHeightMin, ""},
    {"GeneralProperty.lngColWidthMin", SettingType::Integer, design::kGridColWidthMin, ""},
    {"GeneralProperty.intScrollBars", SettingType::Integer, 1, ""},
}};

// Saving writes the same keys with blnDefaultPos moved to the front.
inline constexpr std::array<SettingIndex, kSettingCount> kSaveOrder = {{
    kDefaultPos,
    kPrintVisible,
    kOKVisible,
    kCancelVisible,
    kHelpVisible,
    kPrintLeft,
    kOKLeft,
    kCancelLeft,
    kHelpLeft,
    kTreeViewWidth,
    kTreeViewStyle,
    kFilterVisible,
    kFilterCaption,
    kFilterLabel,
    kAllowBigSelection,
    kRowHeightMin,
    kColWidthMin,
    kScrollBars,
}};

// The default of a key as the bag stores values.
PropertyValue SettingDefault(const SettingKey& key);

}  // namespace tabulon
