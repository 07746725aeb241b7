// Restoring and saving the control's settings through the host's property bag.
#include <string>

#include "control/generic_sp_control.h"
#include "control/settings_keys.h"
#include "support/failure.h"
#include "view/control_core.h"

namespace tabulon {

PropertyValue SettingDefault(const SettingKey& key) {
    switch (key.type) {
        case SettingType::Boolean:
            return key.number != 0;
        case SettingType::Integer:
            return key.number;
        case SettingType::String:
            return std::string(key.text);
    }
    return key.number;
}

namespace {

// The scroll bars keep their keys in the control's bag, each under its component
// name ("hscGrid.LeftMargin"), so that their defaults and the control's never meet.
class PrefixedPropertyBag : public PropertyBag {
public:
    PrefixedPropertyBag(PropertyBag& bag, std::string prefix)
        : bag_(bag), prefix_(std::move(prefix)) {}
    PropertyValue Read(const std::string& key, const PropertyValue& defaultValue) override {
        return bag_.Read(prefix_ + key, defaultValue);
    }
    void Write(const std::string& key, const PropertyValue& value,
               const PropertyValue& defaultValue) override {
        bag_.Write(prefix_ + key, value, defaultValue);
    }

private:
    PropertyBag& bag_;
    std::string prefix_;
};

PropertyValue ReadSetting(PropertyBag& bag, SettingIndex index) {
    const SettingKey& key = kSettingKeys[index];
    return bag.Read(std::string(key.key), SettingDefault(key));
}

bool ReadBool(PropertyBag& bag, SettingIndex index) {
    return PropertyToBool(ReadSetting(bag, index));
}
std::int32_t ReadInt32(PropertyBag& bag, SettingIndex index) {
    return PropertyToInt32(ReadSetting(bag, index));
}
std::int16_t ReadInt16(PropertyBag& bag, SettingIndex index) {
    return PropertyToInt16(ReadSetting(bag, index));
}
std::string ReadString(PropertyBag& bag, SettingIndex index) {
    return PropertyToString(ReadSetting(bag, index));
}

}  // namespace

void Generic_SP_Control::ReadProperties(PropertyBag& bag) {
    Form& f = core_->form;
    Guarded(core_->sink, "1013", [&] {
        PrefixedPropertyBag horizontal(bag, f.hscGrid.name() + ".");
        f.hscGrid.ReadProperties(horizontal);
        PrefixedPropertyBag vertical(bag, f.vscGrid.name() + ".");
        f.vscGrid.ReadProperties(vertical);

        for (std::size_t i = 0; i < 4; ++i) {
            udtButtonVisible_[i] =
                ToVariantBool(ReadBool(bag, static_cast<SettingIndex>(kPrintVisible + i)));
        }
        blnDefaultPos_ = ToVariantBool(ReadBool(bag, kDefaultPos));
        for (std::size_t i = 0; i < 4; ++i) {
            udtButtonLeft_[i] = ReadInt32(bag, static_cast<SettingIndex>(kPrintLeft + i));
        }
        // The buttons stay where the settings put them until the first showing
        // places them (Reposition_Button is not run here).
        const std::array<Button*, 4> buttons = Buttons();
        for (std::size_t i = 0; i < 4; ++i)
            buttons[i]->setVisible(udtButtonVisible_[i] != kFalse);
        for (std::size_t i = 0; i < 4; ++i)
            buttons[i]->setLeft(udtButtonLeft_[i]);

        // Applied as stored, without the splitter's limits.
        f.treTreeView.setWidth(ReadInt32(bag, kTreeViewWidth));
        f.treTreeView.setStyle(ReadInt32(bag, kTreeViewStyle));

        f.fraFilterView.setVisible(ReadBool(bag, kFilterVisible));
        f.fraFilterView.setCaption(ReadString(bag, kFilterCaption));
        f.lblFilter.setCaption(ReadString(bag, kFilterLabel));

        f.msgGridView.setAllowBigSelection(ReadBool(bag, kAllowBigSelection));
        f.msgGridView.setRowHeightMin(ReadInt32(bag, kRowHeightMin));

        // Existing columns keep their widths; only columns made from now on use it.
        core_->intColWidthMin = ReadInt16(bag, kColWidthMin);
        KeepDefaultColWidth();

        ShowScrollBars(ReadInt16(bag, kScrollBars) != 0);
    });
}

void Generic_SP_Control::WriteProperties(PropertyBag& bag) {
    Form& f = core_->form;
    Guarded(core_->sink, "1017", [&] {
        const auto valueOf = [&](SettingIndex index) -> PropertyValue {
            switch (index) {
                case kPrintVisible:
                case kOKVisible:
                case kCancelVisible:
                case kHelpVisible:
                    return udtButtonVisible_[index - kPrintVisible] != kFalse;
                case kDefaultPos:
                    return blnDefaultPos_ != kFalse;
                case kPrintLeft:
                case kOKLeft:
                case kCancelLeft:
                case kHelpLeft:
                    return std::int64_t{udtButtonLeft_[index - kPrintLeft]};
                case kTreeViewWidth:
                    return std::int64_t{f.treTreeView.width()};
                case kTreeViewStyle:
                    return std::int64_t{f.treTreeView.style()};
                case kFilterVisible:
                    return f.fraFilterView.visible();
                case kFilterCaption:
                    return f.fraFilterView.caption();
                case kFilterLabel:
                    return f.lblFilter.caption();
                case kAllowBigSelection:
                    return f.msgGridView.allowBigSelection();
                case kRowHeightMin:
                    return std::int64_t{f.msgGridView.rowHeightMin()};
                case kColWidthMin:
                    return std::int64_t{core_->intColWidthMin};
                case kScrollBars:
                    return std::int64_t{f.hscGrid.visible() ? 1 : 0};
                case kSettingCount:
                    break;
            }
            throw InvalidArgumentFailure("unknown setting");
        };
        for (const SettingIndex index : kSaveOrder) {
            const SettingKey& key = kSettingKeys[index];
            bag.Write(std::string(key.key), valueOf(index), SettingDefault(key));
        }

        PrefixedPropertyBag horizontal(bag, f.hscGrid.name() + ".");
        f.hscGrid.WriteProperties(horizontal);
        PrefixedPropertyBag vertical(bag, f.vscGrid.name() + ".");
        f.vscGrid.WriteProperties(vertical);
    });
}

}  // namespace tabulon
