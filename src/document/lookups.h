// Small searches shared by the tree, the grid and the unit code. Each reports its
// own failures ("Unexpected Error - " + code) and then answers as "not found".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "document/document_model.h"
#include "platform/xml/xml_document.h"
#include "support/message_sink.h"

namespace tabulon {

// 1-based position of the first item equal to value (exact), or -1 (1036).
std::int16_t FindItemIndex(MessageSink& sink, const std::vector<std::string>& items,
                           std::string_view value);

// Row index of the first row whose column equals value exactly, or -1; a column past
// the table's columns gives -1 (1038).
std::int16_t FindArrayIndex(MessageSink& sink, const std::vector<CustomUnitRow>& table,
                            std::string_view value, int column);
// One-dimensional form (column -1 in the original procedure).
std::int16_t FindArrayIndex(MessageSink& sink, const std::vector<std::string>& table,
                            std::string_view value);

// The trimmed value of element's first attribute named exactly name, or "". A node
// without an attribute list (empty handle, comment, text) is a failure (1039, "").
std::string GetAttributeValue(MessageSink& sink, xml::Node element, std::string_view name);

}  // namespace tabulon
