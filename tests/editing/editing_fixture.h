// EditingTest: a control hosted as in tests/common/control_harness.h, loading the
// one-layout documents of tests/common/documents.h, with the user's gestures on the
// grid and the editors.
#pragma once

#include <gmock/gmock.h>

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/control_harness.h"
#include "common/documents.h"

namespace tabulon::testing {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Rgb kRed = 0xFF0000;
constexpr Rgb kWhite = 0xFFFFFF;
// A custom unit: widget in English, wdg in Metric.
const std::string kWidget = R"(<CustomUnit EUnit="widget" MUnit="wdg" EToMFactor="2.5"/>)";

class EditingTest : public ControlHarness {
protected:
    // The document must load without a message; the records are forgotten.
    template <class... More>
    void Load(const std::vector<std::string>& rows, const std::vector<std::string>& columns,
              More&&... more) {
        ASSERT_TRUE(LoadText(Document(rows, columns, std::forward<More>(more)...)));
        ExpectMessages({});
        ClearRecords();
    }

    FlexGrid& grid() { return form().msgGridView; }
    const std::string& Shown(int row, int col) { return grid().textMatrix(row, col); }
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

    // Types text into the cell's editor (after picking unit, if any) and leaves it.
    void Edit(int row, int col, const std::string& text, const std::string& unit = {}) {
        Click(row, col);
        if (!unit.empty()) form().unitDropControl.UserPickUnit(unit);
        Paste(text);
        PointAtHeader();
    }

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
