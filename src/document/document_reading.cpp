#include "document/document_reading.h"

#include <memory>

#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"
#include "unitinput/unit_catalogue.h"
#include "unitinput/unit_registrar.h"
#include "units/conversion_table.h"

namespace tabulon {

namespace {

// The platform's DOM gives only elements an attribute list; reading one from a
// comment or processing instruction among the children fails, as it did there.
void RequireAttributeList(xml::Node node) {
    if (node.type() != xml::NodeType::Element) {
        throw RuntimeFailure("Object variable or With block variable not set");
    }
}

// A single-node selection that finds nothing leaves no object to work on.
xml::Node RequireChildElement(xml::Node parent, std::string_view name) {
    const xml::Node found = parent.firstChildElement(name);
    if (!found) throw RuntimeFailure("Object variable or With block variable not set");
    return found;
}

}  // namespace

void SetMeasurementUnit(DocumentModel& doc, const std::string& unit, UnitNumBox& unitNum,
                        UnitDropBox& unitDrop) {
    const std::string normalised = Trim(ToUpperAscii(unit));
    if (normalised == "ENGLISH" || normalised == "METRIC") {
        // The registrar's system is all the editors need from it: each box keeps its
        // unit code when the new registrar knows it.
        auto registrar = std::make_shared<UnitRegistrar>();
        registrar->setSystem(normalised == "ENGLISH" ? UnitRegistrar::kEnglish
                                                     : UnitRegistrar::kMetric);
        unitDrop.SetRegistrar(registrar);
        unitNum.SetRegistrar(registrar);
    }
    doc.strMeasurementUnit = normalised;
}

bool ReadCustomUnits(DocumentModel& doc, MessageSink& sink, xml::Node customUnits) {
    doc.arrCustomUnits.assign(customUnits.childCount(), CustomUnitRow{});
    int i = 0;
    for (xml::Node unit = customUnits.firstChild(); unit; unit = unit.nextSibling(), ++i) {
        RequireAttributeList(unit);
        std::string english;
        std::string metric;
        double factor = 0;
        for (std::size_t a = 0, n = unit.attributeCount(); a < n; ++a) {
            const xml::Attribute attribute = unit.attribute(a);
            if (attribute.name() == "EUnit") {
                english = attribute.value();
            } else if (attribute.name() == "MUnit") {
                metric = attribute.value();
            } else if (attribute.name() == "EToMFactor") {
                factor = ReadNumber(attribute.value());
            }
        }
        if (english.empty() || metric.empty()) {
            sink.Critical("English and Metric custom unit name can not blank.");
            return false;
        }
        AddConversion(english, kFirstCustomUnitCode + i);
        doc.arrCustomUnits[static_cast<std::size_t>(i)] = {english, metric, NumberToText(factor)};
    }
    return true;
}

bool IndexGridStructure(DocumentModel& doc, xml::Node gridStructure) {
    const xml::Node headers = RequireChildElement(gridStructure, "GridHeaders");
    doc.arrGridHeaderKeys.clear();
    doc.arrGridHeaderNodes.clear();
    for (xml::Node header = headers.firstChild(); header; header = header.nextSibling()) {
        RequireAttributeList(header);
        // The key is the first attribute, whatever its name (Key is the only one).
        doc.arrGridHeaderKeys.emplace_back(header.attribute(std::size_t{0}).value());
        doc.arrGridHeaderNodes.push_back(header);
    }

    // Every child node is a value column, in document order.
    doc.arrGridValueNodes = RequireChildElement(gridStructure, "GridValues").children();
    doc.arrColumnNodes.assign(doc.arrGridValueNodes.size() + 1, xml::Node());
    doc.cellValuesIndex.clear();
    doc.cellValuesIndexStale = true;
    return true;
}

void RebuildCellValuesIndex(DocumentModel& doc) {
    // Keys are compared trimmed, as the grid fill reads them.
    doc.cellValuesIndex.Build(doc.arrGridValueNodes);
    doc.cellValuesIndexStale = false;
}

}  // namespace tabulon
