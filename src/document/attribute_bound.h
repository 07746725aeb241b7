// Keeps the validating parse linear on start tags that carry more attributes than any
// declaration allows.
//
// The parser compares each attribute of a start tag with every earlier one, so a tag of
// 100,000 attributes costs it minutes; such a tag is invalid whatever its attributes are
// (an element can carry at most the attributes its declaration lists, and an undeclared
// one no more than the longest list). Before validating, the first such tag of the text
// is cut down to the attributes that decide its first error, and the parser then
// reports that error itself, in its own words, as it would have on the whole tag:
// - when some name repeats, the first repeated attribute and its earlier namesake
//   ("Attribute a redefined": the parser checks repeats while it reads the tag, before
//   any declaration);
// - otherwise the attributes up to the first undeclared one ("No declaration for
//   attribute a of element E"), or only the first for an undeclared element.
// The line breaks of the removed attributes are kept, so every line keeps its number
// and a message shows the tag's own source line. Tags after the first one never need
// cutting: the parser stops at the first error, which is at that tag at the latest.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tabulon {

// The text to validate instead of text, or nothing when no start tag of text carries
// more attributes than its element may. Linear in the size of text.
std::optional<std::string> WithAttributesBounded(std::string_view text);

}  // namespace tabulon
