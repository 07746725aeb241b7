// EditingTest: a control hosted as in tests/common/control_harness.h, with builders for
// one-layout documents (layout "H", first node "N1" showing value key "K") and the
// user's gestures on the grid and the editors.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/control_harness.h"

namespace tabulon::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct CellData {
    CellData(std::string text_, bool enabled_ = true, bool valid_ = true, bool hostChecks_ = false)
        : text(std::move(text_)), enabled(enabled_), valid(valid_), hostChecks(hostChecks_) {}
    std::string text;
    bool enabled, valid, hostChecks;  // Enabled, Valid, ApplicationValidation
};

inline std::string CellValues(std::string_view key, const std::vector<CellData>& cells) {
    const auto flag = [](bool on) { return on ? std::string("1") : std::string("0"); };
    std::string xml = "<CellValues GridValueKey=\"" + std::string(key) + "\">";
    for (const CellData& c : cells) {
        xml += "<CellValue Enabled=\"" + flag(c.enabled) + "\" Valid=\"" + flag(c.valid) +
               "\" ApplicationValidation=\"" + flag(c.hostChecks) + "\">" + c.text + "</CellValue>";
    }
    return xml + "</CellValues>";
}

// One value column: the cells for key "K", then any other CellValues.
inline std::string Column(const std::vector<CellData>& cells, std::string_view more = "") {
    return "<GridValue>" + CellValues("K", cells) + std::string(more) + "</GridValue>";
}

inline std::string Row(std::string_view controlType, std::string_view attributes = "") {
    return "<RowHeader HName=\"R\" ControlType=\"" + std::string(controlType) + "\" " +
           std::string(attributes) + "/>";
}

inline std::string Document(const std::vector<std::string>& rows,
                            const std::vector<std::string>& columns,
                            std::string_view unitSystem = "ENGLISH",
                            std::string_view customUnits = "", std::string_view moreNodes = "") {
    std::string xml = "<xml MeasurementUnit=\"" + std::string(unitSystem) + "\">";
    if (!customUnits.empty()) {
        xml += "<UnitDropCustomUnits>" + std::string(customUnits) + "</UnitDropCustomUnits>";
    }
    xml += R"(<TreeStructure><Pnode Name="N1" KeyValue="N1" GridHeaderKey="H" GridValueKey="K" )"
           R"(Filter="0"/>)" +
           std::string(moreNodes) +
           R"(</TreeStructure><GridStructure><GridHeaders><GridHeader Key="H"><ColumnHeaders>)"
           R"(<ColumnHeader HName="Name"/>)";
    for (std::size_t c = 0; c < columns.size(); ++c)
        xml += R"(<ColumnHeader HName="C"/>)";
    xml += "</ColumnHeaders><RowHeaders>";
    for (const std::string& row : rows)
        xml += row;
    xml += "</RowHeaders></GridHeader></GridHeaders><GridValues>";
    for (const std::string& column : columns)
        xml += column;
    return xml + "</GridValues></GridStructure></xml>";
}

class EditingTest : public ControlHarness {
protected:
    // Loads the document, which must load without a message, and forgets the records.
    template <class... More>
    void Load(const std::vector<std::string>& rows, const std::vector<std::string>& columns,
              More&&... more) {
        ASSERT_TRUE(LoadText(Document(rows, columns, std::forward<More>(more)...)));
        ExpectMessages({});
        ClearRecords();
    }

    FlexGrid& grid() { return form().msgGridView; }
    const std::string& Shown(int row, int col) { return grid().textMatrix(row, col); }
    // The text and an attribute of the CellValue element behind a cell.
    std::string Stored(int row, int col) { return core().doc.arrCellNodes.at(row, col).text(); }
    std::string Attribute(int row, int col, std::string_view name) {
        return std::string(core().doc.arrCellNodes.at(row, col).attribute(name).value());
    }

    // A click: the pointer moves over the cell first, as with a real mouse.
    void Click(int row, int col) {
        grid().userMouseMove(row, col);
        grid().userClick(row, col);
    }
    // The pointer moves over the header row: the open editor is committed and hidden.
    void PointAtHeader() { grid().userMouseMove(0, 1); }

    // Replaces the focused editor's text at once, as a paste.
    void Paste(const std::string& text) {
        const Component* focused = form().focus.focused();
        if (focused == &form().txtTextBoxControl) return form().txtTextBoxControl.userPaste(text);
        if (focused == &form().unitNumControl) return form().unitNumControl.UserSetText(text);
        if (focused == &form().unitDropControl) return form().unitDropControl.UserSetText(text);
        ADD_FAILURE() << "no text editor has the focus";
    }

    // Names of the visible editors.
    std::vector<std::string> VisibleEditors() {
        std::vector<std::string> names;
        for (const Component* editor : {static_cast<const Component*>(&form().txtTextBoxControl),
                                        static_cast<const Component*>(&form().cboComboBoxControl),
                                        static_cast<const Component*>(&form().unitNumControl),
                                        static_cast<const Component*>(&form().unitDropControl)}) {
            if (editor->visible()) names.push_back(editor->name());
        }
        return names;
    }
};

}  // namespace tabulon::testing
