// The counter behind StructureVersion (xml_document.h), for the members that change a
// document's shape.
#pragma once

namespace tabulon::xml {

// Moves StructureVersion on. Thread-safe.
void ChangeStructure();

}  // namespace tabulon::xml
