// Generic_SP_Control: ranges, copy, paste, fill, clear and export, forwarded to view/.
#include "control/generic_sp_control.h"
#include "view/block_edit.h"
#include "view/cell_selection.h"
#include "view/control_core.h"
#include "view/grid_export.h"
#include "view/grid_workbook.h"

namespace tabulon {

void Generic_SP_Control::SelectCells(int row1, int col1, int row2, int col2) {
    tabulon::SelectCells(*core_, row1, col1, row2, col2);
}

ClipboardContent Generic_SP_Control::CopyCells(int row1, int col1, int row2, int col2,
                                               bool captions) const {
    const CellRange range{std::min(row1, row2), std::min(col1, col2), std::max(row1, row2),
                          std::max(col1, col2)};
    const CellTable table = tabulon::CopyCells(*core_, range, captions);
    return {ToTabSeparated(table), ToHtmlTable(table)};
}

void Generic_SP_Control::Copy(bool captions) {
    CopySelection(*core_, captions);
}

BlockEditReport Generic_SP_Control::PasteCells(const std::string& tabSeparated) {
    return tabulon::PasteCells(*core_, tabSeparated);
}

BlockEditReport Generic_SP_Control::Paste() {
    return tabulon::PasteCells(*core_, core_->clipboard->Text());
}

BlockEditReport Generic_SP_Control::FillDown() {
    return tabulon::FillDown(*core_);
}

BlockEditReport Generic_SP_Control::FillRight() {
    return tabulon::FillRight(*core_);
}

BlockEditReport Generic_SP_Control::ClearCells() {
    return tabulon::ClearCells(*core_);
}

int Generic_SP_Control::ExportCsv(const std::string& folder) {
    return ExportGridsAsCsv(*core_, folder);
}

int Generic_SP_Control::ExportXlsx(const std::string& file) {
    return ExportGridsAsXlsx(*core_, file);
}

void Generic_SP_Control::SetClipboard(Clipboard* clipboard) {
    core_->clipboard = clipboard == nullptr ? &core_->ownClipboard : clipboard;
}

const Clipboard& Generic_SP_Control::clipboard() const {
    return *core_->clipboard;
}

}  // namespace tabulon
