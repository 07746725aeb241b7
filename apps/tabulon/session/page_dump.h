// The property page opened in a session, as the page commands and `dump page` reach
// it and print it.
#pragma once

#include <string_view>

#include "propertypages/property_page.h"
#include "session/json_writer.h"

namespace tabulon::cli::session {

class Session;

// The page opened on the current instance; throws ScriptError naming command when
// none is open there.
PropertyPage& OpenPage(Session& s, std::string_view command);

// {"dump": "page", "page": class name, "caption", "changed", "font", "width",
// "height", "controls": [...]}: every control in layout order with its name, index
// (-1 outside a control array), container ("" for the page), kind (frame, label,
// check, combo, text, numeric) and what that kind shows (caption, checked, text,
// listIndex, items, value, maxLength, min, max), then enabled, visible, focus and its
// geometry. A numeric box's "enabled" is its text box's; its "value" is left out when
// the text's number does not fit 32 bits.
JsonObject PageDump(const PropertyPage& page);

}  // namespace tabulon::cli::session
