// tabulon units [--tsv]: one row per built-in conversion. Numbers are written as text
// (at most 15 significant digits). --tsv gives tab-separated columns under a header
// line; otherwise the columns are padded to line up.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "command.h"
#include "support/numeric.h"
#include "unitinput/unit_catalogue.h"

namespace tabulon::cli {

namespace {

constexpr std::size_t kColumns = 6;
using Row = std::array<std::string, kColumns>;

std::vector<Row> CatalogueRows() {
    std::vector<Row> rows;
    rows.push_back({"index", "name", "factor", "offset", "english", "metric"});
    for (const UnitConversion& c : BuiltInConversions()) {
        rows.push_back({IntegerToText(c.index), std::string(c.name), NumberToText(c.factor),
                        NumberToText(c.offset), std::string(c.english), std::string(c.metric)});
    }
    return rows;
}

void WriteTabSeparated(const std::vector<Row>& rows, std::ostream& out) {
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < kColumns; ++i)
            out << (i ? "\t" : "") << row[i];
        out << '\n';
    }
}

// Two blanks between columns; the last column is not padded.
void WriteAligned(const std::vector<Row>& rows, std::ostream& out) {
    std::array<std::size_t, kColumns> widths{};
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < kColumns; ++i)
            widths[i] = std::max(widths[i], row[i].size());
    }
    for (const Row& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < kColumns; ++i) {
            line += row[i];
            if (i + 1 < kColumns) line.append(widths[i] - row[i].size() + 2, ' ');
        }
        out << line << '\n';
    }
}

}  // namespace

int RunUnits(Arguments args, std::ostream& out, std::ostream& /*err*/) {
    bool tsv = false;
    for (const std::string_view arg : args) {
        if (arg != "--tsv") throw UsageError("unexpected argument \"" + std::string(arg) + "\"");
        tsv = true;
    }
    const std::vector<Row> rows = CatalogueRows();
    if (tsv) {
        WriteTabSeparated(rows, out);
    } else {
        WriteAligned(rows, out);
    }
    return 0;
}

}  // namespace tabulon::cli
