// ViewTest: the control as a host holds it (tests/common/control_harness.h), with
// short ways to read the grid.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "common/control_harness.h"
#include "common/documents.h"

namespace tabulon::testing {

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
