#include "view/layout_reading.h"

#include <algorithm>

#include "platform/flex_grid.h"
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

bool GridCanHold(std::size_t rows, std::size_t cols) {
    constexpr std::size_t kMaxCount = 32767;
    return rows <= kMaxCount && cols <= kMaxCount &&
           FlexGrid::Representable(static_cast<std::int64_t>(rows),
                                   static_cast<std::int64_t>(cols));
}

std::optional<Layout> FindLayout(const DocumentModel& doc, const std::string& key) {
    const auto found = std::find(doc.arrGridHeaderKeys.begin(), doc.arrGridHeaderKeys.end(), key);
    const auto position = static_cast<std::size_t>(found - doc.arrGridHeaderKeys.begin());
    if (found == doc.arrGridHeaderKeys.end() || position >= doc.arrGridHeaderNodes.size())
        return std::nullopt;
    const xml::Node header = doc.arrGridHeaderNodes[position];
    Layout layout{header.firstChildElement("ColumnHeaders").children(),
                  header.firstChildElement("RowHeaders").children()};
    if (!GridCanHold(layout.rows.size() + 1, layout.columns.size())) return std::nullopt;
    return layout;
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
