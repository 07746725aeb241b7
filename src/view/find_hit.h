// What find looks for and what it finds: the types of Generic_SP_Control::Find.
#pragma once

#include <string>

namespace tabulon {

struct FindOptions {
    // False: ASCII letters match either case (other characters match exactly).
    bool matchCase = false;
    // True: the whole text a cell shows must be the text looked for.
    bool wholeCell = false;
};

// One cell whose shown text holds the text looked for.
struct FindHit {
    int node = 0;         // 1-based tree node
    std::string nodeKey;  // its key (KeyValue)
    int row = 0;          // grid row; 0 is the row of column captions
    int col = 0;          // grid column; 0 is the column of row captions
    std::string text;     // what the cell shows, as the grid shows it
    bool operator==(const FindHit&) const = default;
};

}  // namespace tabulon
