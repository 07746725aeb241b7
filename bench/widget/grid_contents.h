// What the stock anchor is given to hold: the texts, colours, alignments and sizes of
// one of the control's grids, its columns' filter tags, and the control's tree.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>
#include <vector>

namespace tabulon::bench {

struct GridContents {
    int rows = 0;  // header row included
    int cols = 0;  // header column included
    struct Cell {
        QString text;
        QColor fore;
        QColor back;
        Qt::Alignment alignment;
    };
    std::vector<Cell> cells;  // row-major
    std::vector<int> colWidths;
    std::vector<int> rowHeights;
    std::vector<QString> filterTags;  // per column; empty for the header column

    const Cell& cell(int row, int col) const {
        return cells[static_cast<std::size_t>(row * cols + col)];
    }
};

struct TreeContents {
    struct Node {
        QString text;
        int parent = 0;  // 1-based; 0 for a root
        bool expanded = false;
    };
    std::vector<Node> nodes;  // node i + 1 of the control's tree
};

}  // namespace tabulon::bench
