// Ranges of cells, copy, paste, fill and clear: the user's gestures and the host's
// calls for them, with the session's own clipboard (the control's).
#include <string>

#include "control/control_access.h"
#include "platform/key_codes.h"
#include "session/command_table.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"

namespace tabulon::cli::session {

namespace {

FlexGrid& GridOf(Session& s) {
    return FormOf(s.control()).msgGridView;
}

// Cell arguments from first on: R C, inside the grid.
std::pair<int, int> Cell(Session& s, std::string_view command, Args args, std::size_t first) {
    const FlexGrid& grid = GridOf(s);
    const auto row = static_cast<int>(IntegerArgument(command, args[first], "R", 0, 1 << 30));
    const auto col = static_cast<int>(IntegerArgument(command, args[first + 1], "C", 0, 1 << 30));
    if (row >= grid.rows() || col >= grid.cols()) {
        throw ScriptError(std::string(command) + ": cell " + args[first].text + ", " +
                          args[first + 1].text + " is outside the grid");
    }
    return {row, col};
}

void ShiftClick(Session& s, Args args) {
    const auto [row, col] = Cell(s, "shift-click", args, 0);
    FlexGrid& grid = GridOf(s);
    grid.userMouseMove(row, col, 0, kShiftBit);
    grid.userExtendSelection(row, col);
}

// Press on the first cell (a click), then the pointer moves with the button held
// through the cells of the straight path to the second one.
void Drag(Session& s, Args args) {
    const auto [row1, col1] = Cell(s, "drag", args, 0);
    const auto [row2, col2] = Cell(s, "drag", args, 2);
    FlexGrid& grid = GridOf(s);
    grid.userMouseMove(row1, col1, 1);
    grid.userClick(row1, col1);
    int row = row1;
    int col = col1;
    while (row != row2 || col != col2) {
        row += row < row2 ? 1 : (row > row2 ? -1 : 0);
        col += col < col2 ? 1 : (col > col2 ? -1 : 0);
        grid.userMouseMove(row, col, 1);
        grid.userExtendSelection(row, col);
    }
}

void Select(Session& s, Args args) {
    const auto [row1, col1] = Cell(s, "select", args, 0);
    const auto [row2, col2] = Cell(s, "select", args, 2);
    s.control().SelectCells(row1, col1, row2, col2);
}

bool CaptionsArgument(std::string_view command, Args args, std::size_t at) {
    if (args.size() <= at) return false;
    if (args[at].text != "captions") {
        throw ScriptError(std::string(command) + ": the last argument may only be \"captions\"");
    }
    return true;
}

void Copy(Session& s, Args args) {
    const auto [row1, col1] = Cell(s, "copy", args, 0);
    const auto [row2, col2] = Cell(s, "copy", args, 2);
    const ClipboardContent content =
        s.control().CopyCells(row1, col1, row2, col2, CaptionsArgument("copy", args, 4));
    CoreOf(s.control()).clipboard->Put(content);
    s.output().Result(JsonObject().Str("text", content.text).Str("html", content.html));
}

void CopySelection(Session& s, Args args) {
    s.control().Copy(CaptionsArgument("copy-selection", args, 0));
}

void SetClipboard(Session& s, Args args) {
    CoreOf(s.control()).clipboard->Put({args[0].text, args.size() > 1 ? args[1].text : ""});
}

void FillDown(Session& s, Args) {
    s.output().Result(BlockReportToJson(s.control().FillDown()));
}

void FillRight(Session& s, Args) {
    s.output().Result(BlockReportToJson(s.control().FillRight()));
}

void Clear(Session& s, Args) {
    s.output().Result(BlockReportToJson(s.control().ClearCells()));
}

void PasteClipboard(Session& s, Args) {
    s.output().Result(BlockReportToJson(s.control().Paste()));
}

constexpr ScriptCommand kCommands[] = {
    {"shift-click", "R C",
     "Shift+click on grid cell R, C: the selection reaches from the current cell to it.", 2, 2,
     false, ShiftClick},
    {"drag", "R1 C1 R2 C2",
     "The left button goes down on R1, C1 (a click) and the pointer is dragged, button held, "
     "through the cells on the way to R2, C2: the selection follows.",
     4, 4, false, Drag},
    {"select", "R1 C1 R2 C2",
     "Host call SelectCells: R1, C1 current (as by a click), R2, C2 the far corner.", 4, 4, false,
     Select},
    {"copy", "R1 C1 R2 C2 [captions]",
     "Host call CopyCells: prints the cells as shown, {\"text\": TSV, \"html\": table}, and puts "
     "them on the clipboard.",
     4, 5, false, Copy},
    {"copy-selection", "[captions]", "Host call Copy: the selection onto the clipboard (Ctrl+C).",
     0, 1, false, CopySelection},
    {"set-clipboard", "\"TEXT\" [\"HTML\"]",
     "Another program puts TEXT (and HTML) on the clipboard, for Ctrl+V or paste-clipboard.", 1, 2,
     false, SetClipboard},
    {"paste-clipboard", "",
     "Host call Paste: the clipboard's text as a block; prints the report (see paste).", 0, 0,
     false, PasteClipboard},
    {"fill-down", "", "Host call FillDown (Ctrl+D); prints the report.", 0, 0, false, FillDown},
    {"fill-right", "", "Host call FillRight (Ctrl+R); prints the report.", 0, 0, false, FillRight},
    {"clear-cells", "", "Host call ClearCells (Delete); prints the report.", 0, 0, false, Clear},
};

}  // namespace

std::span<const ScriptCommand> BlockCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session
