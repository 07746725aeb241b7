// The filter area: the combo of FilterValue tags and the grid's place below it.
#include "view/filter.h"

#include <cstdint>
#include <vector>

#include "document/lookups.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"
#include "view/design_geometry.h"

namespace tabulon {

namespace {

// Where the grid and the vertical bar stand with and without the filter frame above.
constexpr std::int32_t kGridTopBelowFilter = design::Find("msgGridView").top;
constexpr std::int32_t kBarTopBelowFilter = design::Find("vscGrid").top;
constexpr std::int32_t kGridTopAlone = 0;
constexpr std::int32_t kBarTopAlone = 40;
constexpr std::int32_t kFilterGap = 90;

}  // namespace

bool FillFilter(ControlCore& core) {
    return Guarded(core.sink, "1031", [&] {
        ComboBox& combo = core.form.cboFilter;
        const std::string previous = combo.text();
        combo.clear();
        combo.addItem(std::string(design::kFilterAll));
        bool keep = false;
        for (const std::string& value : core.doc.colFilterValues) {
            combo.addItem(value);
            if (value == previous) keep = true;
        }
        // The chosen entry survives a node change when the new columns carry it too.
        combo.setText(keep ? previous : std::string(design::kFilterAll));
        cboFilter_Click(core);
        return true;
    });
}

void cboFilter_Click(ControlCore& core) {
    Guarded(core.sink, "1001", [&] {
        const DocumentModel& doc = core.doc;
        FlexGrid& grid = core.form.msgGridView;
        const std::string chosen = core.form.cboFilter.text();
        if (grid.cols() < 2) return;

        std::vector<std::int16_t> widths = doc.arrColWidths;
        if (chosen != design::kFilterAll) {
            for (int c = 1; c < grid.cols(); ++c) {
                const auto slot = static_cast<std::size_t>(c);
                if (slot >= widths.size()) continue;
                if (slot >= doc.arrColumnNodes.size()) {
                    widths[slot] = 0;
                    continue;
                }
                const xml::Node cellValues = doc.arrColumnNodes[slot];
                // A column for which no CellValues was found has nothing to compare.
                if (cellValues.empty()) throw RuntimeFailure("Object variable not set");
                if (GetAttributeValue(core.sink, cellValues, "FilterValue") != chosen) {
                    widths[slot] = 0;
                }
            }
        }
        for (int c = 1; c < grid.cols(); ++c) {
            const auto slot = static_cast<std::size_t>(c);
            if (slot < widths.size()) grid.setColWidth(c, widths[slot]);
        }

        ctlHorizontalScroll& bar = core.form.hscGrid;
        bar.SetScrollEnabled(bar.RefresHScrollBar());
    });
}

void LayoutGridArea(ControlCore& core) {
    Guarded(core.sink, "1021", [&] {
        Form& form = core.form;
        FlexGrid& grid = form.msgGridView;
        const std::int16_t h =
            ToInt16(static_cast<double>(form.fraFilterView.height()) + kFilterGap);
        if (form.fraFilterView.visible()) {
            if (grid.top() == kGridTopBelowFilter) return;
            grid.setTop(kGridTopBelowFilter);
            form.vscGrid.setTop(kBarTopBelowFilter);
            grid.setHeight(grid.height() - h);
            form.vscGrid.setHeight(form.vscGrid.height() - h);
        } else {
            if (grid.top() == kGridTopAlone) return;
            grid.setTop(kGridTopAlone);
            form.vscGrid.setTop(kBarTopAlone);
            grid.setHeight(grid.height() + h);
            form.vscGrid.setHeight(form.vscGrid.height() + h);
        }
    });
}

std::string FilterValueText(const ControlCore& core) {
    return Trim(core.form.cboFilter.text());
}

}  // namespace tabulon
