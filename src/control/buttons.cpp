// The four command buttons: their automatic placement and the ButtonProperty record.
#include "control/generic_sp_control.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "view/control_core.h"

namespace tabulon {

namespace {

constexpr int kSlot = 1265;

std::int16_t Narrow(long long value) {
    return ToInt16(static_cast<double>(value));
}

}  // namespace

std::array<Button*, 4> Generic_SP_Control::Buttons() {
    Form& f = core_->form;
    return {&f.cmdPrint, &f.cmdOK, &f.cmdCancel, &f.cmdHelp};
}

void Generic_SP_Control::Reposition_Button() {
    Guarded(core_->sink, "1014", [&] {
        if (blnDefaultPos_ == kFalse) return;
        Form& f = core_->form;
        // Right-aligned slots from the control's width, Help first; a hidden button
        // takes no slot and stays where it is.
        const std::int16_t width = Narrow(f.control.width());
        std::int16_t n = 1;
        std::int16_t x = 0;
        if (f.cmdHelp.visible()) {
            f.cmdHelp.setLeft(Narrow(width - kSlot));
            n = 2;
            x = Narrow(width - 2 * kSlot);
        } else {
            x = Narrow(width - kSlot);
        }
        if (f.cmdCancel.visible()) {
            n = Narrow(n + 1);
            f.cmdCancel.setLeft(x);
            x = Narrow(width - n * kSlot);
        }
        if (f.cmdOK.visible()) {
            f.cmdOK.setLeft(x);
            x = Narrow(width - (n + 1) * kSlot);
        }
        if (f.cmdPrint.visible()) f.cmdPrint.setLeft(x);
    });
}

gButtonProperty_type Generic_SP_Control::ButtonProperty() {
    gButtonProperty_type value;
    Guarded(core_->sink, "1015", [&] {
        const Form& f = core_->form;
        value.blnOKVisible = ToVariantBool(f.cmdOK.visible());
        value.blnHelpVisible = ToVariantBool(f.cmdHelp.visible());
        value.blnPrintVisible = ToVariantBool(f.cmdPrint.visible());
        value.blnCancelVisible = ToVariantBool(f.cmdCancel.visible());
        value.blnDefaultPos = blnDefaultPos_;
        value.lngOKLeft = f.cmdOK.left();
        value.lngHelpLeft = f.cmdHelp.left();
        value.lngPrintLeft = f.cmdPrint.left();
        value.lngCancelLeft = f.cmdCancel.left();
    });
    return value;
}

void Generic_SP_Control::SetButtonProperty(const gButtonProperty_type& value) {
    const bool applied = Guarded(core_->sink, "1016", [&] {
        const std::array<VariantBool, 4> visible = {value.blnPrintVisible, value.blnOKVisible,
                                                    value.blnCancelVisible, value.blnHelpVisible};
        const std::array<std::int32_t, 4> left = {value.lngPrintLeft, value.lngOKLeft,
                                                  value.lngCancelLeft, value.lngHelpLeft};
        const std::array<Button*, 4> buttons = Buttons();
        for (std::size_t i = 0; i < 4; ++i)
            buttons[i]->setVisible(visible[i] != kFalse);
        for (std::size_t i = 0; i < 4; ++i)
            buttons[i]->setLeft(left[i]);
        // What is saved later is what was given here, not where Reposition_Button
        // puts the buttons afterwards.
        blnDefaultPos_ = value.blnDefaultPos;
        udtButtonVisible_ = visible;
        udtButtonLeft_ = left;
        core_->host.PropertyChanged("ButtonProperty");
    });
    if (applied) Reposition_Button();
}

}  // namespace tabulon
