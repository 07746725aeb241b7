// ViewTest: the control as a host holds it (tests/common/control_harness.h), with
// short ways to write documents and to read the grid.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/control_harness.h"

namespace tabulon::testing {

// A CellValue element; disabled and invalid on request.
inline std::string Cell(std::string_view text, bool enabled = true, bool valid = true) {
    return std::string("<CellValue Enabled=\"") + (enabled ? "1" : "0") + "\" Valid=\"" +
           (valid ? "1" : "0") + "\" ApplicationValidation=\"0\">" + std::string(text) +
           "</CellValue>";
}

// A document from the content of TreeStructure, GridHeaders and GridValues.
inline std::string Doc(std::string_view tree, std::string_view headers, std::string_view values) {
    return "<xml MeasurementUnit=\"ENGLISH\"><TreeStructure>" + std::string(tree) +
           "</TreeStructure><GridStructure><GridHeaders>" + std::string(headers) +
           "</GridHeaders><GridValues>" + std::string(values) +
           "</GridValues></GridStructure></xml>";
}

// A layout of the given key, ColumnHeader elements and RowHeader elements.
inline std::string Header(std::string_view key, std::string_view columns, std::string_view rows) {
    return "<GridHeader Key=\"" + std::string(key) + "\"><ColumnHeaders>" + std::string(columns) +
           "</ColumnHeaders><RowHeaders>" + std::string(rows) + "</RowHeaders></GridHeader>";
}

class ViewTest : public ControlHarness {
protected:
    DocumentModel& doc() { return core().doc; }
    FlexGrid& grid() { return form().msgGridView; }

    // Clicks the tree node with that key.
    void ClickNode(const std::string& key) {
        form().treTreeView.userClickNode(form().treTreeView.indexOf(key));
    }
    // The texts of grid row r from column 0 on.
    std::vector<std::string> RowTexts(int r) {
        std::vector<std::string> texts;
        for (int c = 0; c < grid().cols(); ++c)
            texts.push_back(grid().textMatrix(r, c));
        return texts;
    }
    std::vector<std::int32_t> ColWidths() {
        std::vector<std::int32_t> widths;
        for (int c = 0; c < grid().cols(); ++c)
            widths.push_back(grid().colWidth(c));
        return widths;
    }
};

}  // namespace tabulon::testing
