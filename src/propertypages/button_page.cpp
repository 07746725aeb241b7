#include "propertypages/button_page.h"

#include <algorithm>

#include "platform/property_bag.h"

namespace tabulon {

namespace {

constexpr std::int32_t kPageWidth = 6135;
constexpr std::int32_t kPageHeight = 3015;
constexpr std::int32_t kMaxLength = 4;
constexpr const char* kErrorCode = "2001";
constexpr const char* kTrueText = "True";
constexpr const char* kFalseText = "False";

// Layout order is also the order views and dumps list the controls in: the outer
// frame and its check box, then per button its frame, list and position.
constexpr PagePlacement kLayout[] = {
    {"fraButtonProperty", -1, "", 120, 120, 5895, 2775},
    {"chkDefault", -1, "fraButtonProperty", 240, 300, 2415, 255},
    {"fraPrint", -1, "fraButtonProperty", 240, 720, 1275, 1815},
    {"lblVisible", 0, "fraPrint", 120, 270, 1035, 255},
    {"cboVisible", 0, "fraPrint", 120, 525, 1035, 315},
    {"lblLeft", 0, "fraPrint", 120, 960, 1035, 255},
    {"txtLeft", 0, "fraPrint", 120, 1215, 1035, 330},
    {"fraOK", -1, "fraButtonProperty", 1620, 720, 1275, 1815},
    {"lblVisible", 1, "fraOK", 120, 270, 1035, 255},
    {"cboVisible", 1, "fraOK", 120, 525, 1035, 315},
    {"lblLeft", 1, "fraOK", 120, 960, 1035, 255},
    {"txtLeft", 1, "fraOK", 120, 1215, 1035, 330},
    {"fraCancel", -1, "fraButtonProperty", 3000, 720, 1275, 1815},
    {"lblVisible", 2, "fraCancel", 120, 270, 1035, 255},
    {"cboVisible", 2, "fraCancel", 120, 525, 1035, 315},
    {"lblLeft", 2, "fraCancel", 120, 960, 1035, 255},
    {"txtLeft", 2, "fraCancel", 120, 1215, 1035, 330},
    {"fraHelp", -1, "fraButtonProperty", 4380, 720, 1275, 1815},
    {"lblVisible", 3, "fraHelp", 120, 270, 1035, 255},
    {"cboVisible", 3, "fraHelp", 120, 525, 1035, 315},
    {"lblLeft", 3, "fraHelp", 120, 960, 1035, 255},
    {"txtLeft", 3, "fraHelp", 120, 1215, 1035, 330},
};

bool ReadsFalse(const ComboBox& list) {
    return list.text() == kFalseText;
}

// The list's text as a boolean, by the platform's text conversion ("True"/"False" in
// any case, or a number); other text throws.
VariantBool ListToBool(const ComboBox& list) {
    return ToVariantBool(PropertyToBool(PropertyValue(list.text())));
}

}  // namespace

ppButtonProperty::ppButtonProperty(MessageSink& sink)
    : PropertyPage("ppButtonProperty", "Advanced", sink, kPageWidth, kPageHeight) {
    std::vector<Component*> parts = {&fraButtonProperty, &chkDefault};
    for (std::size_t i = 0; i < kButtons; ++i) {
        parts.insert(parts.end(),
                     {&buttonFrame(i), &lblVisible[i], &cboVisible[i], &lblLeft[i], &txtLeft[i]});
    }
    AddControls(parts, kLayout);

    for (std::size_t i = 0; i < kButtons; ++i) {
        cboVisible[i].addItem(kTrueText);
        cboVisible[i].addItem(kFalseText);
        cboVisible[i].onClick = [this, i] {
            UpdateLeftEnabled(i);
            setChanged(true);
        };
        txtLeft[i].setMessageSink(&this->sink());
        txtLeft[i].SetMaxLength(kMaxLength);
        txtLeft[i].onChange = [this] { setChanged(true); };
    }
    chkDefault.onClick = [this] {
        for (std::size_t i = 0; i < kButtons; ++i)
            UpdateLeftEnabled(i);
        setChanged(true);
    };
}

Frame& ppButtonProperty::buttonFrame(std::size_t i) {
    const std::array<Frame*, kButtons> frames = {&fraPrint, &fraOK, &fraCancel, &fraHelp};
    return *frames.at(i);
}

void ppButtonProperty::UpdateLeftEnabled(std::size_t i) {
    txtLeft[i].SetEnabled(!ReadsFalse(cboVisible[i]) && !chkDefault.checked());
}

void ppButtonProperty::OnSelectionChanged() {
    const gButtonProperty_type record = FirstSelected().ButtonProperty();
    const std::array<VariantBool, kButtons> visible = {record.blnPrintVisible, record.blnOKVisible,
                                                       record.blnCancelVisible,
                                                       record.blnHelpVisible};
    const std::array<std::int32_t, kButtons> left = {record.lngPrintLeft, record.lngOKLeft,
                                                     record.lngCancelLeft, record.lngHelpLeft};
    for (std::size_t i = 0; i < kButtons; ++i) {
        cboVisible[i].setText(visible[i] != kFalse ? kTrueText : kFalseText);
    }
    chkDefault.setChecked(record.blnDefaultPos != kFalse);
    for (std::size_t i = 0; i < kButtons; ++i)
        txtLeft[i].SetValue(left[i]);
}

void ppButtonProperty::OnApplyChanges() {
    Guard(kErrorCode, [&] {
        if (std::all_of(cboVisible.begin(), cboVisible.end(), ReadsFalse)) {
            sink().Information("All buttons cannot be hide.");
            setChanged(true);
            return;
        }
        gButtonProperty_type record;
        record.blnPrintVisible = ListToBool(cboVisible[0]);
        record.blnOKVisible = ListToBool(cboVisible[1]);
        record.blnCancelVisible = ListToBool(cboVisible[2]);
        record.blnHelpVisible = ListToBool(cboVisible[3]);
        record.blnDefaultPos = ToVariantBool(chkDefault.checked());
        record.lngPrintLeft = txtLeft[0].Value();
        record.lngOKLeft = txtLeft[1].Value();
        record.lngCancelLeft = txtLeft[2].Value();
        record.lngHelpLeft = txtLeft[3].Value();
        FirstSelected().SetButtonProperty(record);
        setChanged(false);
    });
}

}  // namespace tabulon
