// MessageHandler: where a host sends the control's message boxes instead of showing
// them, with the icon and the text exactly as the control wrote them.
#pragma once

#include <QString>
#include <functional>

#include "support/message_sink.h"

namespace tabulon {

using MessageHandler = std::function<void(MessageIcon icon, const QString& text)>;

}  // namespace tabulon
