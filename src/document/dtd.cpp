#include "document/dtd.h"

namespace tabulon {

// Two spaces follow the element name in every attribute-list declaration; the text is
// part of the format and must not be tidied.
const std::array<std::string_view, 57> kDtdLines = {
    "<!DOCTYPE xml [",
    "<!ELEMENT xml (UnitDropCustomUnits*,TreeStructure,GridStructure)>",
    "<!ATTLIST xml  MeasurementUnit (ENGLISH|METRIC) #REQUIRED>",
    "<!ELEMENT UnitDropCustomUnits (CustomUnit+)>",
    "<!ELEMENT CustomUnit EMPTY>",
    "<!ATTLIST CustomUnit  EUnit CDATA #REQUIRED>",
    "<!ATTLIST CustomUnit  MUnit CDATA #REQUIRED>",
    "<!ATTLIST CustomUnit  EToMFactor CDATA #REQUIRED>",
    "<!ELEMENT TreeStructure (Pnode+)>",
    "<!ELEMENT Pnode (Cnode*)>",
    "<!ATTLIST Pnode  Name CDATA #REQUIRED>",
    "<!ATTLIST Pnode  KeyValue ID #REQUIRED>",
    "<!ATTLIST Pnode  ImageName CDATA #IMPLIED>",
    "<!ATTLIST Pnode  GridHeaderKey CDATA #REQUIRED>",
    "<!ATTLIST Pnode  GridValueKey CDATA #REQUIRED>",
    "<!ATTLIST Pnode  Filter (0|1) #REQUIRED>",
    "<!ATTLIST Pnode  FilterCaption CDATA #IMPLIED>",
    "<!ATTLIST Pnode  FilterProperty CDATA #IMPLIED>",
    "<!ELEMENT Cnode (Cnode*)>",
    "<!ATTLIST Cnode  Name CDATA #REQUIRED>",
    "<!ATTLIST Cnode  KeyValue ID #REQUIRED>",
    "<!ATTLIST Cnode  ImageName CDATA #IMPLIED>",
    "<!ATTLIST Cnode  GridHeaderKey CDATA #REQUIRED>",
    "<!ATTLIST Cnode  GridValueKey CDATA #IMPLIED>",
    "<!ATTLIST Cnode  Filter (0|1) #REQUIRED>",
    "<!ATTLIST Cnode  FilterCaption CDATA #IMPLIED>",
    "<!ATTLIST Cnode  FilterProperty CDATA #IMPLIED>",
    "<!ELEMENT GridStructure (GridHeaders,GridValues)>",
    "<!ELEMENT GridHeaders (GridHeader+)>",
    "<!ELEMENT GridHeader (ColumnHeaders,RowHeaders)>",
    "<!ATTLIST GridHeader  Key CDATA #REQUIRED>",
    "<!ELEMENT ColumnHeaders (ColumnHeader+)>",
    "<!ELEMENT ColumnHeader EMPTY>",
    "<!ATTLIST ColumnHeader  HName CDATA #REQUIRED>",
    "<!ATTLIST ColumnHeader  Width CDATA #IMPLIED>",
    "<!ELEMENT RowHeaders (RowHeader+)>",
    "<!ELEMENT RowHeader EMPTY>",
    "<!ATTLIST RowHeader  HName CDATA #REQUIRED>",
    "<!ATTLIST RowHeader  ControlType (TextBox|ComboBox|UnitNum|UnitDrop) #REQUIRED>",
    "<!ATTLIST RowHeader  Height CDATA #IMPLIED>",
    "<!ATTLIST RowHeader  Format CDATA #IMPLIED>",
    "<!ATTLIST RowHeader  MaxLength CDATA #IMPLIED>",
    "<!ATTLIST RowHeader  Unit CDATA #IMPLIED>",
    "<!ATTLIST RowHeader  MinVal CDATA #IMPLIED>",
    "<!ATTLIST RowHeader  MaxVal CDATA #IMPLIED>",
    "<!ATTLIST RowHeader  ListValues CDATA #IMPLIED>",
    "<!ELEMENT GridValues (GridValue+)>",
    "<!ELEMENT GridValue (CellValues+)>",
    "<!ELEMENT CellValues (CellValue+)>",
    "<!ATTLIST CellValues  GridValueKey CDATA #REQUIRED>",
    "<!ATTLIST CellValues  FilterProperty CDATA #IMPLIED>",
    "<!ATTLIST CellValues  FilterValue CDATA #IMPLIED>",
    "<!ELEMENT CellValue (#PCDATA)>",
    "<!ATTLIST CellValue  Enabled (0|1) #REQUIRED>",
    "<!ATTLIST CellValue  Valid (0|1) #REQUIRED>",
    "<!ATTLIST CellValue  ApplicationValidation (0|1) #REQUIRED>",
    "]>",
};

const std::string& BuiltInDtd() {
    static const std::string dtd = [] {
        std::string text;
        for (std::string_view line : kDtdLines) {
            text.append(line);
            text.append("\r\n");
        }
        return text;
    }();
    return dtd;
}

std::vector<std::string> TextElements() {
    constexpr std::string_view kPrefix = "<!ELEMENT ";
    constexpr std::string_view kText = " (#PCDATA)>";
    std::vector<std::string> names;
    for (std::string_view line : kDtdLines) {
        if (line.starts_with(kPrefix) && line.ends_with(kText)) {
            names.emplace_back(
                line.substr(kPrefix.size(), line.size() - kPrefix.size() - kText.size()));
        }
    }
    return names;
}

std::string JoinWithDtd(std::string_view hostText) {
    std::string joined;
    joined.reserve(BuiltInDtd().size() + hostText.size());
    joined.append(BuiltInDtd());
    joined.append(hostText);
    return joined;
}

}  // namespace tabulon
