#include "view/grid_export.h"

#include <string>

#include "support/atomic_file.h"
#include "support/failure.h"
#include "units/conversion_table.h"
#include "view/unit_codes.h"

namespace tabulon {

namespace {

constexpr int kFirstCustomCode = 64;

std::string FileName(int index, const std::string& key) {
    std::string name = std::to_string(index);
    name.insert(0, name.size() < 6 ? 6 - name.size() : 0, '0');
    name += '_';
    for (const char c : key) {
        const bool plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                           (c >= '0' && c <= '9') || c == '-' || c == '_' || c == '.';
        name += plain ? c : '_';
    }
    return name + ".csv";
}

// The label of a number row's unit in the document's system; empty when unknown.
std::string UnitLabel(ControlCore& core, const std::string& unit) {
    const auto registrar =
        NewUnitRegistrar(MetricDocument(core) ? UnitRegistrar::kMetric : UnitRegistrar::kEnglish);
    try {
        int code = ConversionIndex(unit);
        if (code >= kFirstCustomCode) code = RegisterDocumentCustomUnit(core, *registrar, unit);
        return code > 0 ? registrar->Label(code) : std::string();
    } catch (const std::exception&) {
        return {};  // an unknown unit: the caption alone
    }
}

}  // namespace

CellTable ShownGridTable(ControlCore& core) {
    const FlexGrid& grid = core.form.msgGridView;
    CellTable table;
    for (int row = 0; row < grid.rows(); ++row) {
        std::vector<std::string>& cells = table.emplace_back();
        for (int col = 0; col < grid.cols(); ++col)
            cells.push_back(grid.textMatrix(row, col));
        const auto r = static_cast<std::size_t>(row);
        if (row == 0 || cells.empty() || r >= core.doc.arrRowInfo.size()) continue;
        const RowInfo& info = core.doc.arrRowInfo[r];
        if (info.ControlType != EditorKind::UnitNum) continue;
        const std::string label = UnitLabel(core, info.Unit);
        if (!label.empty()) cells[0] += " (" + label + ")";
    }
    return table;
}

int ForEachShownGrid(
    ControlCore& core,
    const std::function<void(int index, const std::string& key, const CellTable& table)>& write) {
    TreeView& tree = core.form.treTreeView;
    const int shown = tree.selectedIndex();
    const auto showAgain = [&] {
        if (shown >= 1 && shown <= tree.count()) tree.userClickNode(shown);
    };
    int written = 0;
    try {
        for (int index = 1; index <= tree.count(); ++index) {
            tree.userClickNode(index);
            if (!core.doc.blnGridLoaded) continue;
            write(index, tree.node(index).key, ShownGridTable(core));
            ++written;
        }
    } catch (...) {
        showAgain();
        throw;
    }
    showAgain();
    return written;
}

int ExportGridsAsCsv(ControlCore& core, const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) throw RuntimeFailure("cannot make \"" + folder.string() + "\": " + error.message());
    return ForEachShownGrid(core, [&](int index, const std::string& key, const CellTable& table) {
        const std::filesystem::path file = folder / FileName(index, key);
        // A file exported before is replaced as a document is saved: never through a link
        // or over a read-only file, never left half written.
        std::string reason;
        if (!WriteFileAtomically(file.string(), ToCsv(table) + "\r\n", &reason))
            throw RuntimeFailure(reason);
    });
}

}  // namespace tabulon
