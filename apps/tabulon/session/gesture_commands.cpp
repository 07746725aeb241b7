// User gestures on the control's child components, and the scripted host's behaviour
// while AppGridEventHandler runs.
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "control/control_access.h"
#include "session/command_table.h"
#include "session/key_strokes.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"
#include "support/cell_table_text.h"
#include "support/text.h"

namespace tabulon::cli::session {

namespace {

Form& FormOf(Session& s) {
    return tabulon::FormOf(s.control());
}

int TreeNodeIndex(Session& s, std::string_view command, const std::string& key) {
    const int index = FormOf(s).treTreeView.indexOf(key);
    if (index == 0) {
        throw ScriptError(std::string(command) + ": no tree node with key \"" + key + "\"");
    }
    return index;
}

void Node(Session& s, Args args) {
    const int index = TreeNodeIndex(s, "node", args[0].text);
    FormOf(s).treTreeView.userClickNode(index);
}

void Collapse(Session& s, Args args) {
    const int index = TreeNodeIndex(s, "collapse", args[0].text);
    FormOf(s).treTreeView.userCollapse(index);
}

void Expand(Session& s, Args args) {
    const int index = TreeNodeIndex(s, "expand", args[0].text);
    FormOf(s).treTreeView.userExpand(index);
}

// Grid row and column arguments; lowest is -1 where the pointer may be outside.
std::pair<int, int> CellArguments(Session& s, std::string_view command, Args args, int lowest) {
    const FlexGrid& grid = FormOf(s).msgGridView;
    const auto row = static_cast<int>(IntegerArgument(command, args[0], "R", lowest, 1 << 30));
    const auto col = static_cast<int>(IntegerArgument(command, args[1], "C", lowest, 1 << 30));
    if (row >= grid.rows() || col >= grid.cols()) {
        throw ScriptError(std::string(command) + ": cell " + args[0].text + ", " + args[1].text +
                          " is outside the grid (" + std::to_string(grid.rows()) + " rows, " +
                          std::to_string(grid.cols()) + " cols)");
    }
    return {row, col};
}

void Click(Session& s, Args args) {
    const auto [row, col] = CellArguments(s, "click", args, 0);
    FlexGrid& grid = FormOf(s).msgGridView;
    grid.userMouseMove(row, col);
    grid.userClick(row, col);
}

void MouseMove(Session& s, Args args) {
    const auto [row, col] = CellArguments(s, "mousemove", args, -1);
    FormOf(s).msgGridView.userMouseMove(row, col);
}

void Wheel(Session& s, Args args) {
    const std::int32_t rows = Int32Argument("wheel", args[0], "ROWS");
    const std::int32_t cols = args.size() > 1 ? Int32Argument("wheel", args[1], "COLS") : 0;
    s.control().UserWheel(rows, cols);
}

// The pointer goes over column C's header and drags its right border by DX twips;
// the border must be on screen, as it is for a person.
void DragColBorder(Session& s, Args args) {
    FlexGrid& grid = FormOf(s).msgGridView;
    const auto col = static_cast<int>(IntegerArgument("drag-col-border", args[0], "C", 0, 1 << 30));
    const std::int32_t dx = Int32Argument("drag-col-border", args[1], "DX");
    if (col >= grid.cols() || grid.rows() == 0) {
        throw ScriptError("drag-col-border: the grid has no column " + args[0].text + " (" +
                          std::to_string(grid.cols()) + " cols)");
    }
    if (!grid.colIsVisible(col)) {
        throw ScriptError("drag-col-border: column " + args[0].text + " is not on screen");
    }
    grid.userMouseMove(0, col, 1);
    grid.userResizeCol(col, static_cast<std::int32_t>(std::clamp<std::int64_t>(
                                std::int64_t{grid.colWidth(col)} + dx, 0, 1 << 30)));
}

void SendKeys(Session& s, const std::vector<KeyStroke>& keys) {
    for (const KeyStroke& key : keys)
        s.control().UserKeyStroke(key.keyCode, key.keyAscii, key.shift);
}

void Type(Session& s, Args args) {
    const auto keys = KeysForText(args[0].text);
    if (!keys) throw ScriptError("type: the text holds a character no key types");
    SendKeys(s, *keys);
}

KeyStroke KeyArguments(std::string_view command, Args args) {
    const std::optional<int> modifiers = ParseModifiers(args.subspan(1));
    if (!modifiers) {
        throw ScriptError(std::string(command) +
                          ": modifiers are ctrl, shift, alt or combinations such as ctrl+shift");
    }
    const std::optional<KeyStroke> key = NamedKey(args[0].text, *modifiers);
    if (!key) {
        throw ScriptError(std::string(command) + ": unknown key \"" + args[0].text +
                          "\" (Tab, Enter, Space, Escape, Backspace, Home, End, Delete, Left, "
                          "Right, Up, Down, F1..F12 or one character)");
    }
    return *key;
}

void Key(Session& s, Args args) {
    SendKeys(s, {KeyArguments("key", args)});
}

void SetText(Session& s, Args args) {
    Form& form = FormOf(s);
    const Component* focused = form.focus.focused();
    if (focused == &form.txtTextBoxControl) {
        form.txtTextBoxControl.userPaste(args[0].text);
    } else if (focused == &form.unitNumControl) {
        form.unitNumControl.UserSetText(args[0].text);
    } else if (focused == &form.unitDropControl) {
        form.unitDropControl.UserSetText(args[0].text);
    } else {
        throw ScriptError(
            "set-text: " + (focused == nullptr ? std::string("no component") : focused->name()) +
            " has the focus, not a text or number editor");
    }
}

// The number editor that has the focus, for the gestures only its field takes.
UnitBoxBase& FocusedNumberField(Session& s, std::string_view command) {
    Form& form = FormOf(s);
    Component* focused = form.focus.focused();
    if (focused == &form.unitNumControl) return form.unitNumControl;
    if (focused == &form.unitDropControl) return form.unitDropControl;
    throw ScriptError(std::string(command) + ": " +
                      (focused == nullptr ? std::string("no component") : focused->name()) +
                      " has the focus, not a unit editor");
}

// Into the focused unit editor's field when the text is one cell; else a block.
void Paste(Session& s, Args args) {
    const Form& form = FormOf(s);
    const Component* focused = form.focus.focused();
    const bool field = focused == &form.unitNumControl || focused == &form.unitDropControl;
    if (field && !HoldsSeveralCells(args[0].text)) {
        FocusedNumberField(s, "paste").UserPaste(args[0].text);
        return;
    }
    s.output().Result(BlockReportToJson(s.control().PasteCells(args[0].text)));
}

void SelectText(Session& s, Args args) {
    const auto start =
        static_cast<int>(IntegerArgument("select-text", args[0], "START", 0, 1 << 30));
    const auto length =
        static_cast<int>(IntegerArgument("select-text", args[1], "LENGTH", 0, 1 << 30));
    Form& form = FormOf(s);
    if (form.focus.focused() == &form.txtTextBoxControl) {
        form.txtTextBoxControl.setSelStart(start);
        form.txtTextBoxControl.setSelLength(length);
        return;
    }
    FocusedNumberField(s, "select-text").UserSelect(start, start + length);
}

void Pick(Session& s, Args args) {
    ComboBox& combo = FormOf(s).cboComboBoxControl;
    if (!combo.visible()) throw ScriptError("pick: the pick-list editor is not open");
    if (!combo.userPick(args[0].text)) {
        throw ScriptError("pick: the pick list has no item \"" + args[0].text + "\"");
    }
}

void PickUnit(Session& s, Args args) {
    UnitDropBox& box = FormOf(s).unitDropControl;
    if (!box.visible()) throw ScriptError("pick-unit: the unit drop-down editor is not open");
    if (!box.UserPickUnit(args[0].text)) {
        throw ScriptError("pick-unit: the unit list has no unit \"" + args[0].text + "\"");
    }
}

void Filter(Session& s, Args args) {
    Form& form = FormOf(s);
    if (!form.fraFilterView.visible()) throw ScriptError("filter: the filter area is hidden");
    if (!form.cboFilter.visible() || !form.cboFilter.enabled()) {
        throw ScriptError("filter: the filter combo is disabled");
    }
    if (!form.cboFilter.userPick(args[0].text)) {
        throw ScriptError("filter: the filter combo has no entry \"" + args[0].text + "\"");
    }
}

Button& ButtonNamed(Session& s, std::string_view command, const std::string& name) {
    Form& form = FormOf(s);
    if (EqualsIgnoreCase(name, "OK")) return form.cmdOK;
    if (EqualsIgnoreCase(name, "Cancel")) return form.cmdCancel;
    if (EqualsIgnoreCase(name, "Help")) return form.cmdHelp;
    if (EqualsIgnoreCase(name, "Print")) return form.cmdPrint;
    throw ScriptError(std::string(command) + ": unknown button \"" + name +
                      "\" (OK, Cancel, Help or Print)");
}

void ClickButton(Session& s, Args args) {
    ButtonNamed(s, "button", args[0].text).userClick();
}

void ButtonKey(Session& s, Args args) {
    Button& button = ButtonNamed(s, "button-key", args[0].text);
    const KeyStroke key = KeyArguments("button-key", args.subspan(1));
    if (!button.visible() || !button.enabled()) {
        throw ScriptError("button-key: " + button.name() + " cannot take the focus");
    }
    button.setFocus();
    SendKeys(s, {key});
}

// The user operates one of the control's own scroll bars: it takes the focus, then
// an arrow click (+1/-1), a click in the track (=N) or a drag of the thumb.
enum class BarGesture { Step, Track, Drag };

void OperateBar(std::string_view command, Component& owner, ScrollBar& bar, BarGesture gesture,
                const Word& word) {
    int value = 0;
    if (gesture == BarGesture::Drag) {
        value = static_cast<int>(IntegerArgument(command, word, "N", -(1 << 30), 1 << 30));
    } else if (word.text == "+1" || word.text == "-1") {
        value = word.text == "+1" ? 1 : -1;
    } else if (word.text.size() > 1 && word.text.front() == '=') {
        gesture = BarGesture::Track;
        const Word number{word.text.substr(1)};
        value = static_cast<int>(IntegerArgument(command, number, "=N", -(1 << 30), 1 << 30));
    } else {
        throw ScriptError(std::string(command) + ": expected +1, -1 or =N, got \"" + word.text +
                          "\"");
    }
    if (!owner.visible()) throw ScriptError(std::string(command) + ": the bar is hidden");
    owner.setFocus();
    switch (gesture) {
        case BarGesture::Step:
            bar.userStep(value);
            break;
        case BarGesture::Track:
            bar.userSetValue(value);
            break;
        case BarGesture::Drag:
            bar.userDragTo(value);
            break;
    }
}

void HScroll(Session& s, Args args) {
    ctlHorizontalScroll& hsc = FormOf(s).hscGrid;
    OperateBar("hscroll", hsc, hsc.bar(), BarGesture::Step, args[0]);
}

void VScroll(Session& s, Args args) {
    ctlVerticalScroll& vsc = FormOf(s).vscGrid;
    OperateBar("vscroll", vsc, vsc.bar(), BarGesture::Step, args[0]);
}

void HDrag(Session& s, Args args) {
    ctlHorizontalScroll& hsc = FormOf(s).hscGrid;
    OperateBar("hdrag", hsc, hsc.bar(), BarGesture::Drag, args[0]);
}

void VDrag(Session& s, Args args) {
    ctlVerticalScroll& vsc = FormOf(s).vscGrid;
    OperateBar("vdrag", vsc, vsc.bar(), BarGesture::Drag, args[0]);
}

void Focus(Session& s, Args args) {
    Form& form = FormOf(s);
    const std::string& name = args[0].text;
    const std::array<std::pair<std::string_view, Component*>, 5> targets = {{
        {"grid", &form.msgGridView},
        {"tree", &form.treTreeView},
        {"hsc", &form.hscGrid},
        {"vsc", &form.vscGrid},
        {"filter", &form.cboFilter},
    }};
    for (const auto& [targetName, target] : targets) {
        if (targetName == name) {
            target->setFocus();
            return;
        }
    }
    throw ScriptError("focus: unknown target \"" + name + "\" (grid, tree, hsc, vsc, filter)");
}

void DragSplitter(Session& s, Args args) {
    const std::int32_t dx = Int32Argument("drag-splitter", args[0], "DX");
    s.control().SplitterDrag(1, 0, dx, 0);
}

void OnAppGrid(Session& s, Args args) {
    s.appGrid().AddSetAttribute(args[0].text, args[1].text, args[2].text);
}

void OnAppGridText(Session& s, Args args) {
    s.appGrid().AddSetText(args[0].text, args[1].text);
}

void OnAppGridClear(Session& s, Args) {
    s.appGrid().Clear();
}

constexpr ScriptCommand kCommands[] = {
    {"node", "KEY", "Clicks the tree node with that key.", 1, 1, false, Node},
    {"collapse", "KEY", "Collapses the tree node with that key.", 1, 1, false, Collapse},
    {"expand", "KEY", "Expands the tree node with that key.", 1, 1, false, Expand},
    {"click", "R C",
     "Mouse click on grid cell R, C: the pointer first moves over the cell (the grid's "
     "MouseMove), then the grid takes the click with every notification it raises for it "
     "(LeaveCell, EnterCell, RowColChange when the current cell changes, then Click).",
     2, 2, false, Click},
    {"mousemove", "R C", "The pointer moves over grid cell R, C (-1: outside the rows/cols).", 2, 2,
     false, MouseMove},
    {"wheel", "ROWS [COLS]",
     "The mouse wheel over the grid scrolls it by ROWS rows (and COLS cols); the open editor "
     "is committed and hidden and the control's scroll bars follow.",
     1, 2, false, Wheel},
    {"drag-col-border", "C DX",
     "The pointer moves over column C's header (the grid's MouseMove, left button down) "
     "and drags the column's right border by DX twips: the column takes its width + DX, "
     "kept between 120 and 30000 twips. Column 0 is the row-caption column.",
     2, 2, false, DragColBorder},
    {"type", "\"TEXT\"",
     "Key strokes into the focused component, one per character (tab is the Tab key, CR and "
     "LF the Enter key); the control sees each key first.",
     1, 1, false, Type},
    {"key", "NAME [ctrl|shift|alt|ctrl+shift ...]",
     "One key stroke (key down, key press where the key has a character, key up) to the "
     "focused component. NAME: Tab, Enter, Space, Escape, Backspace, Home, End, Delete, Left, "
     "Right, Up, Down, F1..F12 or one character.",
     1, kAnyCount, false, Key},
    {"set-text", "\"TEXT\"", "Replaces the focused editor's text at once, as a paste.", 1, 1, false,
     SetText},
    {"paste", "\"TEXT\"",
     "With a unit editor focused and TEXT one cell (no tab or line break): pastes TEXT into "
     "its number field at its selection, as Ctrl+V does there (only the characters that can "
     "stand in a number are taken). Otherwise host call PasteCells: TEXT, tab-separated, as a "
     "block at the selection; prints the report.",
     1, 1, false, Paste},
    {"select-text", "START LENGTH",
     "The user selects LENGTH characters from START in the focused text or number editor "
     "with the mouse.",
     2, 2, false, SelectText},
    {"pick", "\"ITEM\"", "Chooses an item of the open pick-list editor.", 1, 1, false, Pick},
    {"pick-unit", "\"UNIT\"", "Chooses a unit in the open unit drop-down editor.", 1, 1, false,
     PickUnit},
    {"filter", "\"ENTRY\"", "Chooses an entry of the filter combo.", 1, 1, false, Filter},
    {"button", "OK|Cancel|Help|Print", "Clicks the button.", 1, 1, false, ClickButton},
    {"button-key", "OK|Cancel|Help|Print NAME [MODIFIERS]",
     "The button takes the focus and gets a key stroke (names as for key).", 2, kAnyCount, false,
     ButtonKey},
    {"hscroll", "+1|-1|=N",
     "The user operates the control's horizontal scroll bar: it takes the focus, then an "
     "arrow click (+1/-1) or a click in the track that sets the value N.",
     1, 1, false, HScroll},
    {"vscroll", "+1|-1|=N", "As hscroll, for the vertical scroll bar.", 1, 1, false, VScroll},
    {"hdrag", "N",
     "The horizontal bar takes the focus and its thumb is dragged to N: one change, and one "
     "column, per unit it passes.",
     1, 1, false, HDrag},
    {"vdrag", "N", "As hdrag, for the vertical bar (one row per unit).", 1, 1, false, VDrag},
    {"focus", "grid|tree|hsc|vsc|filter",
     "Moves the focus to that component (nothing happens when it is hidden or disabled).", 1, 1,
     false, Focus},
    {"drag-splitter", "DX", "Drags the splitter between tree and grid by DX twips.", 1, 1, false,
     DragSplitter},
    {"on-appgrid", "XPATH ATTR VALUE",
     "From now on, when AppGridEventHandler fires, the host sets ATTR to VALUE on the nodes "
     "XPATH selects relative to the GridValue element it receives.",
     3, 3, false, OnAppGrid},
    {"on-appgrid-text", "XPATH \"TEXT\"",
     "As on-appgrid, replacing the text of the selected nodes.", 2, 2, false, OnAppGridText},
    {"on-appgrid-clear", "", "The host stops changing anything in AppGridEventHandler.", 0, 0,
     false, OnAppGridClear},
};

}  // namespace

std::span<const ScriptCommand> GestureCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session
