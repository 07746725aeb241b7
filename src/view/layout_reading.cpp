#include "view/layout_reading.h"

#include <algorithm>

#include "support/numeric.h"

namespace tabulon {

void ApplyRowAttribute(RowInfo& info, std::string_view name, std::string_view value) {
    if (name == "ControlType") {
        info.ControlType = EditorKindNamed(value);
    } else if (name == "Format") {
        info.Format = value;
    } else if (name == "Unit") {
        info.Unit = value;
    } else if (name == "MinVal") {
        info.MinVal = value;
    } else if (name == "MaxVal") {
        info.MaxVal = value;
    } else if (name == "ListValues") {
        info.ListValues = value;
    } else if (name == "MaxLength") {
        info.MaxLength = ReadInt16(value);
    }
}

std::optional<Layout> FindLayout(const DocumentModel& doc, const std::string& key) {
    const auto found = std::find(doc.arrGridHeaderKeys.begin(), doc.arrGridHeaderKeys.end(), key);
    const auto position = static_cast<std::size_t>(found - doc.arrGridHeaderKeys.begin());
    if (found == doc.arrGridHeaderKeys.end() || position >= doc.arrGridHeaderNodes.size())
        return std::nullopt;
    const xml::Node header = doc.arrGridHeaderNodes[position];
    return Layout{header.firstChildElement("ColumnHeaders").children(),
                  header.firstChildElement("RowHeaders").children()};
}

std::string HeaderCaption(xml::Node header) {
    return std::string(header.attribute("HName").value());
}

RowInfo RowRules(xml::Node rowHeader) {
    RowInfo info;
    if (rowHeader.type() != xml::NodeType::Element) return info;
    for (xml::Attribute a = rowHeader.firstAttribute(); a; a = a.next())
        ApplyRowAttribute(info, a.name(), a.value());
    return info;
}

}  // namespace tabulon
