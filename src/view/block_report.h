// What a block edit (paste, fill, clear) did, for the host: cells written, values
// past the grid, and each cell skipped with the reason.
#pragma once

#include <string>
#include <vector>

namespace tabulon {

struct SkippedCell {
    int row = 0;  // grid row and column
    int col = 0;
    std::string value;
    std::string reason;
    bool written = false;  // written all the same (a text cut to MaxLength)
    bool operator==(const SkippedCell&) const = default;
};

struct BlockEditReport {
    int written = 0;     // cells that took their value
    int beyondGrid = 0;  // values that lay past the grid's last row or column
    std::vector<SkippedCell> skipped;
};

}  // namespace tabulon
