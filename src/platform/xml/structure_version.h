// The counters behind StructureVersion and AttributeValuesVersion (xml_document.h), for
// the members that change a document's shape or the value of an attribute.
#pragma once

namespace tabulon::xml {

// Moves StructureVersion on. Thread-safe.
void ChangeStructure();

// Moves AttributeValuesVersion on; every member that writes an attribute's value calls
// it. Thread-safe.
void ChangeAttributeValues();

}  // namespace tabulon::xml
