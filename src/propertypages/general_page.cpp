#include "propertypages/general_page.h"

#include <array>
#include <iterator>
#include <string>

#include "support/numeric.h"

namespace tabulon {

namespace {

constexpr std::int32_t kPageWidth = 4815;
constexpr std::int32_t kPageHeight = 5280;
constexpr std::int32_t kMaxLength = 4;
constexpr const char* kErrorCode = "3001";

constexpr std::array<const char*, 8> kTreeViewStyles = {
    "0 - tvwTextOnly",
    "1 - tvwPictureText",
    "2 - tvwPlusMinusText",
    "3 - tvwPlusPictureText",
    "4 - tvwTreelinesText",
    "5 - tvwTreelinesPictureText",
    "6 - tvwTreelinesPlusMinusText",
    "7 - tvwTreelinesPlusMinusPictureText",
};
constexpr std::array<const char*, 2> kScrollBarModes = {"Default", "Advanced"};

// Layout order is also the order views and dumps list the controls in.
constexpr PagePlacement kLayout[] = {
    {"fraTreeViewProperties", -1, "", 120, 120, 4575, 1215},
    {"lblStyle", -1, "fraTreeViewProperties", 120, 330, 1335, 255},
    {"cboTreeViewStyle", -1, "fraTreeViewProperties", 1560, 300, 2895, 315},
    {"lblTreeViewWidth", -1, "fraTreeViewProperties", 120, 750, 1335, 255},
    {"txtTreeViewWidth", -1, "fraTreeViewProperties", 1560, 720, 1095, 330},
    {"fraFilterProperties", -1, "", 120, 1440, 4575, 1575},
    {"chkFiltervisible", -1, "fraFilterProperties", 120, 300, 1335, 255},
    {"lblFilterCaption", -1, "fraFilterProperties", 120, 720, 1335, 255},
    {"txtFilterCaption", -1, "fraFilterProperties", 1560, 690, 2895, 315},
    {"lblFilterLabel", -1, "fraFilterProperties", 120, 1140, 1335, 255},
    {"txtFilterLabel", -1, "fraFilterProperties", 1560, 1110, 2895, 315},
    {"fraGridViewProperties", -1, "", 120, 3120, 4575, 2040},
    {"lblScrollBars", -1, "fraGridViewProperties", 120, 330, 1335, 255},
    {"cboScrollBars", -1, "fraGridViewProperties", 1560, 300, 1455, 315},
    {"chkAllowBigSelection", -1, "fraGridViewProperties", 120, 750, 2055, 255},
    {"lblRowHeightMin", -1, "fraGridViewProperties", 120, 1170, 1335, 255},
    {"txtRowHeightMin", -1, "fraGridViewProperties", 1560, 1140, 1095, 330},
    {"lblColWidthMin", -1, "fraGridViewProperties", 120, 1590, 1335, 255},
    {"txtColWidthMin", -1, "fraGridViewProperties", 1560, 1560, 1095, 330},
};

template <std::size_t N>
void AddItems(ComboBox& combo, const std::array<const char*, N>& items) {
    for (const char* item : items)
        combo.addItem(item);
}

}  // namespace

ppGeneral::ppGeneral(MessageSink& sink)
    : PropertyPage("ppGeneral", "General", sink, kPageWidth, kPageHeight) {
    const std::array<Component*, std::size(kLayout)> parts = {
        &fraTreeViewProperties, &lblStyle,         &cboTreeViewStyle,
        &lblTreeViewWidth,      &txtTreeViewWidth, &fraFilterProperties,
        &chkFiltervisible,      &lblFilterCaption, &txtFilterCaption,
        &lblFilterLabel,        &txtFilterLabel,   &fraGridViewProperties,
        &lblScrollBars,         &cboScrollBars,    &chkAllowBigSelection,
        &lblRowHeightMin,       &txtRowHeightMin,  &lblColWidthMin,
        &txtColWidthMin,
    };
    AddControls(parts, kLayout);

    AddItems(cboTreeViewStyle, kTreeViewStyles);
    AddItems(cboScrollBars, kScrollBarModes);
    const std::array<std::pair<ctlNumericTextBox*, std::int32_t>, 3> boxes = {{
        {&txtTreeViewWidth, kMinTreeViewWidth},
        {&txtRowHeightMin, kMinRowHeight},
        {&txtColWidthMin, kMinColWidth},
    }};
    const auto markChanged = [this] { setChanged(true); };
    for (const auto& [box, minimum] : boxes) {
        box->setMessageSink(&this->sink());
        box->SetMaxLength(kMaxLength);
        box->SetMinValue(minimum);
        box->onChange = markChanged;
    }
    cboTreeViewStyle.onClick = markChanged;
    cboScrollBars.onClick = markChanged;
    chkFiltervisible.onClick = markChanged;
    chkAllowBigSelection.onClick = markChanged;
    txtFilterCaption.onChange = markChanged;
    txtFilterLabel.onChange = markChanged;
}

void ppGeneral::OnSelectionChanged() {
    const gGeneralProperty_type record = FirstSelected().GeneralProperty();
    txtTreeViewWidth.SetValue(record.lngTreeViewWidth);
    cboTreeViewStyle.setListIndex(record.lngTreeViewStyle);
    chkFiltervisible.setChecked(record.blnFilterVisible != kFalse);
    txtFilterCaption.setText(record.strFilterCaption);
    txtFilterLabel.setText(record.strFilterLabel);
    chkAllowBigSelection.setChecked(record.blnAllowBigSelection != kFalse);
    cboScrollBars.setListIndex(record.intScrollBars);
    txtRowHeightMin.SetValue(record.lngRowHeightMin);
    txtColWidthMin.SetValue(record.lngColWidthMin);
    txtTreeViewWidth.SetMaxValue(LargestTreeViewWidth());
    setChanged(false);
}

std::string ppGeneral::ValidationMessage() const {
    const std::int32_t width = txtTreeViewWidth.Value();
    const std::int32_t largest = LargestTreeViewWidth();
    if (width < kMinTreeViewWidth) {
        return "Tree view width cannot be less than " + IntegerToText(kMinTreeViewWidth);
    }
    if (width > largest) return "Tree view width cannot be greater than " + IntegerToText(largest);
    if (txtRowHeightMin.Value() < kMinRowHeight) {
        return "Grid row height cannot be less than " + IntegerToText(kMinRowHeight);
    }
    if (txtColWidthMin.Value() < kMinColWidth) {
        return "Grid column width cannot be less than " + IntegerToText(kMinColWidth);
    }
    return {};
}

void ppGeneral::OnApplyChanges() {
    Guard(kErrorCode, [&] {
        const std::string message = ValidationMessage();
        if (!message.empty()) {
            sink().Plain(message);
            setChanged(true);
            return;
        }
        gGeneralProperty_type record;
        record.lngTreeViewWidth = txtTreeViewWidth.Value();
        record.lngTreeViewStyle = cboTreeViewStyle.listIndex();
        record.blnFilterVisible = ToVariantBool(chkFiltervisible.checked());
        record.strFilterCaption = txtFilterCaption.text();
        record.strFilterLabel = txtFilterLabel.text();
        record.blnAllowBigSelection = ToVariantBool(chkAllowBigSelection.checked());
        record.intScrollBars = static_cast<std::int16_t>(cboScrollBars.listIndex());
        record.lngRowHeightMin = txtRowHeightMin.Value();
        record.lngColWidthMin = txtColWidthMin.Value();
        FirstSelected().SetGeneralProperty(record);
        setChanged(false);
    });
}

}  // namespace tabulon
