// Documents written by tests, from their parts, and the one-layout documents most tests
// need (layout "H", first node "N1" showing value key "K", rows named "R").
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tabulon::testing {

inline std::string Cell(std::string_view text, bool enabled = true, bool valid = true,
                        bool hostChecks = false) {
    const auto flag = [](bool on) { return on ? "1" : "0"; };
    return std::string("<CellValue Enabled=\"") + flag(enabled) + "\" Valid=\"" + flag(valid) +
           "\" ApplicationValidation=\"" + flag(hostChecks) + "\">" + std::string(text) +
           "</CellValue>";
}

struct CellData {
    CellData(std::string text_, bool enabled_ = true, bool valid_ = true, bool hostChecks_ = false)
        : text(std::move(text_)), enabled(enabled_), valid(valid_), hostChecks(hostChecks_) {}
    std::string text;
    bool enabled, valid, hostChecks;
};

inline std::string CellValues(std::string_view key, const std::vector<CellData>& cells) {
    std::string xml = "<CellValues GridValueKey=\"" + std::string(key) + "\">";
    for (const CellData& c : cells)
        xml += Cell(c.text, c.enabled, c.valid, c.hostChecks);
    return xml + "</CellValues>";
}

inline std::string Header(std::string_view key, std::string_view columns, std::string_view rows) {
    return "<GridHeader Key=\"" + std::string(key) + "\"><ColumnHeaders>" + std::string(columns) +
           "</ColumnHeaders><RowHeaders>" + std::string(rows) + "</RowHeaders></GridHeader>";
}

// A document from the contents of TreeStructure, GridHeaders and GridValues.
inline std::string Doc(std::string_view tree, std::string_view headers, std::string_view values,
                       std::string_view unitSystem = "ENGLISH", std::string_view customUnits = "") {
    std::string xml = "<xml MeasurementUnit=\"" + std::string(unitSystem) + "\">";
    if (!customUnits.empty()) {
        xml += "<UnitDropCustomUnits>" + std::string(customUnits) + "</UnitDropCustomUnits>";
    }
    return xml + "<TreeStructure>" + std::string(tree) +
           "</TreeStructure><GridStructure><GridHeaders>" + std::string(headers) +
           "</GridHeaders><GridValues>" + std::string(values) +
           "</GridValues></GridStructure></xml>";
}

// A Pnode named and keyed key over layout header, showing value key valueKey; more
// holds its other attributes.
inline std::string Pnode(std::string_view key, std::string_view valueKey,
                         std::string_view more = "Filter=\"0\"", std::string_view header = "H") {
    return "<Pnode Name=\"" + std::string(key) + "\" KeyValue=\"" + std::string(key) +
           "\" GridHeaderKey=\"" + std::string(header) + "\" GridValueKey=\"" +
           std::string(valueKey) + "\" " + std::string(more) + "/>";
}

// One value column: the cells for key "K", then any other CellValues.
inline std::string Column(const std::vector<CellData>& cells, std::string_view more = "") {
    return "<GridValue>" + CellValues("K", cells) + std::string(more) + "</GridValue>";
}

inline std::string Row(std::string_view controlType, std::string_view attributes = "") {
    return "<RowHeader HName=\"R\" ControlType=\"" + std::string(controlType) + "\" " +
           std::string(attributes) + "/>";
}

// Node "N1" (then moreNodes) over layout "H": one RowHeader per row, one value column
// per column.
inline std::string Document(const std::vector<std::string>& rows,
                            const std::vector<std::string>& columns,
                            std::string_view unitSystem = "ENGLISH",
                            std::string_view customUnits = "", std::string_view moreNodes = "") {
    std::string headers = R"(<ColumnHeader HName="Name"/>)";
    std::string rowHeaders, values;
    for (const std::string& column : columns) {
        headers += R"(<ColumnHeader HName="C"/>)";
        values += column;
    }
    for (const std::string& row : rows)
        rowHeaders += row;
    return Doc(Pnode("N1", "K") + std::string(moreNodes), Header("H", headers, rowHeaders), values,
               unitSystem, customUnits);
}

}  // namespace tabulon::testing
