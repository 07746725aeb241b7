// The built-in document type definition that is put in front of every host text
// before the validating parse. The lines are fixed byte for byte.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace tabulon {

// The 57 lines, without line ends, in the order they are emitted.
extern const std::array<std::string_view, 57> kDtdLines;

// Every line followed by "\r\n".
const std::string& BuiltInDtd();

// The elements the DTD declares with text content, "(#PCDATA)": their whitespace-only
// text is a value, not layout.
std::vector<std::string> TextElements();

// BuiltInDtd() followed by the host text, unchanged.
std::string JoinWithDtd(std::string_view hostText);

}  // namespace tabulon
