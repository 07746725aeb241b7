// Records the notifications of platform models in order, as text, for tests that
// assert the exact sequence (count, order and the state seen by each handler).
#pragma once

#include <string>
#include <vector>

#include "platform/flex_grid.h"

namespace tabulon::testing {

struct EventLog {
    std::vector<std::string> events;

    void add(std::string event) { events.push_back(std::move(event)); }
    std::vector<std::string> take() {
        std::vector<std::string> out;
        out.swap(events);
        return out;
    }
};

// Every grid notification, with the current cell it sees: "LeaveCell 1,2".
inline void RecordGrid(FlexGrid& grid, EventLog& log) {
    const auto at = [&grid](const char* name) {
        return std::string(name) + " " + std::to_string(grid.row()) + "," +
               std::to_string(grid.col());
    };
    grid.onLeaveCell = [&log, at] { log.add(at("LeaveCell")); };
    grid.onEnterCell = [&log, at] { log.add(at("EnterCell")); };
    grid.onRowColChange = [&log, at] { log.add(at("RowColChange")); };
    grid.onClick = [&log, at] { log.add(at("Click")); };
    grid.onScroll = [&log, &grid] {
        log.add("Scroll " + std::to_string(grid.topRow()) + "," + std::to_string(grid.leftCol()));
    };
    grid.onUserColResize = [&log, &grid](int col) {
        log.add("UserColResize " + std::to_string(col) + " " + std::to_string(grid.colWidth(col)));
    };
}

// A grid of rows x cols with one fixed row and column, every row 240 and every
// column 1000 twips, built the way the control builds its grid.
inline void Shape(FlexGrid& grid, int rows, int cols) {
    grid.setRows(0);
    grid.setCols(0);
    grid.setCols(cols);
    grid.setRows(rows);
    grid.setFixedRows(1);
    grid.setFixedCols(1);
    for (int c = 0; c < cols; ++c)
        grid.setColWidth(c, 1000);
}

}  // namespace tabulon::testing
