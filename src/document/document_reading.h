// Reading the parts of a loaded document that do not involve the view: the
// measurement unit, the custom units and the index of the grid structure.
#pragma once

#include <string>

#include "document/document_model.h"
#include "platform/xml/xml_document.h"
#include "support/message_sink.h"
#include "unitinput/unit_drop_box.h"
#include "unitinput/unit_num_box.h"

namespace tabulon {

// Upper-cases and trims unit; for ENGLISH/METRIC gives both editors a new registrar
// in that system. Stores the result in strMeasurementUnit. Failures propagate.
void SetMeasurementUnit(DocumentModel& doc, const std::string& unit, UnitNumBox& unitNum,
                        UnitDropBox& unitDrop);

// Fills arrCustomUnits and registers each EUnit in the conversion table at 64 + i.
// A unit without a name shows "English and Metric custom unit name can not blank." and
// returns false; table failures (duplicate name) and a child that is not an element
// propagate.
bool ReadCustomUnits(DocumentModel& doc, MessageSink& sink, xml::Node customUnits);

// Fills arrGridHeaderKeys/Nodes (key: a header's first attribute) and arrGridValueNodes
// (every child node of GridValues), sizes arrColumnNodes and marks the CellValues index
// stale. A missing GridHeaders/GridValues or a header child that is not an element
// throws.
bool IndexGridStructure(DocumentModel& doc, xml::Node gridStructure);

// Rebuilds cellValuesIndex from arrGridValueNodes (O(document)): element children
// keyed by their trimmed GridValueKey, in document order; other children are left out.
void RebuildCellValuesIndex(DocumentModel& doc);

}  // namespace tabulon
