// The View/Print report: the grid on screen as a small tagged text, CR LF after
// every line, nothing escaped, hidden columns left out.
#pragma once

#include <string>

#include "platform/flex_grid.h"
#include "support/message_sink.h"

namespace tabulon {

// "" when the grid has at most one cell beyond its headers. A failure while building
// shows its own description as a critical message and returns what was built.
std::string BuildReportXML(const FlexGrid& grid, MessageSink& sink);

}  // namespace tabulon
