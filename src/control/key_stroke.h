// KeyStroke: one key as the control's keyboard handling takes it
// (Generic_SP_Control::UserKeyStroke): the key code, the character it types and the
// modifiers held, as a bit set of kShiftBit, kCtrlBit and kAltBit. Every front end
// (the Qt widget, the session tool) turns its own key events into these.
#pragma once

#include "platform/key_codes.h"

namespace tabulon {

struct KeyStroke {
    int keyCode = 0;
    int keyAscii = 0;  // 0: the key has no character
    int shift = 0;
    bool operator==(const KeyStroke&) const = default;
};

}  // namespace tabulon
