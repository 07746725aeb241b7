// Comparing two versions of an element, so that an edit journal keeps only what a
// change touched.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/xml/xml_document.h"

namespace tabulon::xml {

// Below this many levels under the compared element a difference is reported at the
// element that holds it, whatever lies deeper.
inline constexpr std::size_t kMaxChangeDepth = 64;

// True when a and b hold the same content: their attributes (names, values, order)
// and every node below them (kinds, names, values, order). The two nodes' own names
// are not compared. Empty handles hold nothing.
bool SameContent(Node a, Node b);

// The smallest elements at which before and after differ, in document order, each as
// (the element in before, the element at the same place in after), the pair
// (before, after) itself included. An element is reported whole when its own
// attributes differ, when its children differ in number, kind or name, or when a
// child that is not an element differs; otherwise only its differing element children
// are looked into. Empty when the two hold the same content.
std::vector<std::pair<Node, Node>> ChangedElements(Node before, Node after);

}  // namespace tabulon::xml
