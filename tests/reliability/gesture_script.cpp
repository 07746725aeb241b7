#include "reliability/gesture_script.h"

#include <array>
#include <optional>
#include <span>
#include <vector>

#include "control/control_access.h"
#include "control/generic_sp_control.h"
#include "support/failure.h"
#include "support/numeric.h"
#include "support/text.h"

namespace tabulon::reliability {

namespace {

struct Context {
    Generic_SP_Control& control;
    const GestureOptions& options;

    Form& form() const { return FormOf(control); }
    const FlexGrid& grid() const { return FormOf(control).msgGridView; }
};

using Line = std::optional<std::string>;
using Gesture = Line (*)(const Context&, ChoiceSource&);
using Words = std::span<const std::string_view>;

template <class T>
const T& OneOf(std::span<const T> items, ChoiceSource& choices) {
    return items[choices.Below(items.size())];
}

std::string Word(Words words, ChoiceSource& choices) {
    return std::string(OneOf<std::string_view>(words, choices));
}

int Between(ChoiceSource& choices, int low, int high) {
    return low + static_cast<int>(choices.Below(static_cast<std::size_t>(high - low + 1)));
}

std::string Number(int value) {
    return std::to_string(value);
}

// "ROW COL" of a cell from row and column first on (-1 is beside the grid).
Line CellFrom(const FlexGrid& grid, ChoiceSource& choices, int first) {
    if (grid.rows() <= first || grid.cols() <= first) return std::nullopt;
    const int row = Between(choices, first, grid.rows() - 1);
    const int col = Between(choices, first, grid.cols() - 1);
    return Number(row) + " " + Number(col);
}

// The items of the open pick list or unit drop-down (none when it is closed).
std::vector<std::string> ComboItems(const Form& form) {
    if (!form.cboComboBoxControl.visible()) return {};
    return form.cboComboBoxControl.items();
}

std::vector<std::string> UnitItems(const Form& form) {
    if (!form.unitDropControl.visible() || form.unitDropControl.Units().empty()) return {};
    return form.unitDropControl.UnitLabels();
}

Line ItemOf(const std::vector<std::string>& items, ChoiceSource& choices) {
    if (items.empty()) return std::nullopt;
    return OneOf<std::string>(items, choices);
}

Line Quoted(const Line& word) {
    if (!word) return std::nullopt;
    return QuoteWord(*word);
}

Line Prefixed(std::string_view command, const Line& word) {
    if (!word) return std::nullopt;
    return std::string(command) + *word;
}

// --- typed text

// A limit of the current cell's row, moved a little or not at all: values on and
// around the boundaries are where range checks go wrong.
Line NumberNearLimit(const Context& c, ChoiceSource& choices) {
    const int row = c.grid().row();
    const auto& rows = CoreOf(c.control).doc.arrRowInfo;
    if (row < 1 || static_cast<std::size_t>(row) >= rows.size()) return std::nullopt;
    std::vector<std::string> limits = SplitList(rows[static_cast<std::size_t>(row)].MinVal);
    const std::vector<std::string> maxima = SplitList(rows[static_cast<std::size_t>(row)].MaxVal);
    limits.insert(limits.end(), maxima.begin(), maxima.end());
    if (limits.empty()) return std::nullopt;
    double value = 0;
    try {
        value = ReadNumber(OneOf<std::string>(limits, choices));
    } catch (const RuntimeFailure&) {
        return std::nullopt;
    }
    static constexpr std::array<double, 9> kSteps = {0, 0.001, -0.001, 0.5, -0.5, 1, -1, 10, -10};
    value += OneOf<double>(kSteps, choices);
    if (choices.Below(4) == 0) value = -value;
    return NumberToText(value);
}

std::string Digits(std::size_t count, ChoiceSource& choices) {
    std::string digits;
    for (std::size_t i = 0; i < count; ++i)
        digits += static_cast<char>('0' + choices.Below(10));
    return digits;
}

std::string PlainNumber(ChoiceSource& choices) {
    std::string text = choices.Below(5) == 0 ? "-" : "";
    text += Digits(1 + choices.Below(7), choices);
    if (choices.Below(2) == 0) text += "." + Digits(choices.Below(5), choices);
    return text;
}

constexpr std::array<std::string_view, 24> kOddTexts = {
    "",     "-",      ".",   "+",     " 12",           "12 ",    "\t7",  "0",
    "-0",   "007.50", "1,5", "12abc", "abc",           "12(ft)", "3.5(", ")",
    "(kW)", "°F",     "µm",  "€ 12",  "Chilled water", "Yes",    "a;b",  "&lt;<>&\"'",
};

// Exponents: typed after other digits they can push a number past the double range,
// which the commit reports as a run-time failure (by design), so only on request.
constexpr std::array<std::string_view, 8> kExtremeNumbers = {
    "1e308", "-1.7e308", "1e999", "4e-320", "99999999999999999999", "e", "1e", "2.5E-3"};

std::string TextToEnter(const Context& c, ChoiceSource& choices) {
    Line text;
    const std::size_t kind = choices.Below(10);
    if (kind <= 2) {
        text = NumberNearLimit(c, choices);
    } else if (kind == 3) {
        text = Word(kOddTexts, choices);
    } else if (kind == 4) {
        // An item of the open pick list or unit drop-down, typed rather than picked.
        text = ItemOf(ComboItems(c.form()), choices);
        if (!text) text = ItemOf(UnitItems(c.form()), choices);
    } else if (kind == 5 && c.options.extremeNumbers) {
        text = Word(kExtremeNumbers, choices);
    } else if (kind == 6) {
        text = std::string(60 + choices.Below(200), static_cast<char>('a' + choices.Below(26)));
    }
    return text ? *text : PlainNumber(choices);
}

// --- the gestures

Line ClickValueCell(const Context& c, ChoiceSource& choices) {
    return Prefixed("click ", CellFrom(c.grid(), choices, 1));
}

Line ClickAnyCell(const Context& c, ChoiceSource& choices) {
    return Prefixed("click ", CellFrom(c.grid(), choices, 0));
}

Line MouseMove(const Context& c, ChoiceSource& choices) {
    return "mousemove " + *CellFrom(c.grid(), choices, -1);
}

Line Wheel(const Context&, ChoiceSource& choices) {
    return "wheel " + Number(Between(choices, -3, 3)) + " " + Number(Between(choices, -1, 1));
}

Line TypeText(const Context& c, ChoiceSource& choices) {
    return "type " + QuoteWord(TextToEnter(c, choices));
}

// Into the focused text field; the unit editors' number field also selects by mouse.
Line PasteText(const Context& c, ChoiceSource& choices) {
    const Form& form = c.form();
    const Component* focused = form.focus.focused();
    if (focused != &form.txtTextBoxControl && focused != &form.unitNumControl &&
        focused != &form.unitDropControl) {
        return std::nullopt;
    }
    switch (choices.Below(focused != &form.txtTextBoxControl ? 3 : 2)) {
        case 0:
            return "set-text " + QuoteWord(TextToEnter(c, choices));
        case 1:
            return "select-text " + Number(Between(choices, 0, 5)) + " " +
                   Number(Between(choices, 0, 5));
        default:
            return "paste " + QuoteWord(TextToEnter(c, choices));
    }
}

Line Key(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 23> kKeys = {
        "Tab",   "Tab", "Enter", "Enter", "Escape", "Space", "Backspace", "Left",
        "Right", "Up",  "Down",  "Down",  "F1",     "F2",    "F5",        "F12",
        "a",     "7",   "-",     ".",     "Home",   "End",   "Delete"};
    static constexpr std::array<std::string_view, 8> kModifiers = {
        "", "", "", "", " shift", " ctrl", " alt", " ctrl+shift"};
    const std::string key = Word(kKeys, choices);
    return "key " + key + Word(kModifiers, choices);
}

Line Pick(const Context& c, ChoiceSource& choices) {
    return Prefixed("pick ", Quoted(ItemOf(ComboItems(c.form()), choices)));
}

Line PickUnit(const Context& c, ChoiceSource& choices) {
    return Prefixed("pick-unit ", Quoted(ItemOf(UnitItems(c.form()), choices)));
}

Line AnyNodeKey(const Context& c, ChoiceSource& choices) {
    const TreeView& tree = c.form().treTreeView;
    if (tree.count() == 0) return std::nullopt;
    return QuoteWord(tree.node(Between(choices, 1, tree.count())).key);
}

Line ClickNode(const Context& c, ChoiceSource& choices) {
    return Prefixed("node ", AnyNodeKey(c, choices));
}

Line CollapseOrExpand(const Context& c, ChoiceSource& choices) {
    const Line key = AnyNodeKey(c, choices);
    if (!key) return std::nullopt;
    return std::string(choices.Below(2) == 0 ? "collapse " : "expand ") + *key;
}

Line Filter(const Context& c, ChoiceSource& choices) {
    const Form& form = c.form();
    if (!form.fraFilterView.visible() || !form.cboFilter.visible() || !form.cboFilter.enabled() ||
        form.cboFilter.items().empty()) {
        return std::nullopt;
    }
    return "filter " + QuoteWord(OneOf<std::string>(form.cboFilter.items(), choices));
}

// OK and Print twice: they are the buttons that do the most.
using NamedButton = std::pair<std::string_view, Button Form::*>;

constexpr std::array<NamedButton, 6> kButtons = {{
    {"OK", &Form::cmdOK},
    {"Print", &Form::cmdPrint},
    {"OK", &Form::cmdOK},
    {"Print", &Form::cmdPrint},
    {"Cancel", &Form::cmdCancel},
    {"Help", &Form::cmdHelp},
}};

Line ClickButton(const Context&, ChoiceSource& choices) {
    return "button " + std::string(OneOf<NamedButton>(kButtons, choices).first);
}

Line ButtonKey(const Context& c, ChoiceSource& choices) {
    const auto& [name, member] = OneOf<NamedButton>(kButtons, choices);
    const Button& button = c.form().*member;
    if (!button.visible() || !button.enabled()) return std::nullopt;
    return "button-key " + std::string(name) + (choices.Below(3) == 0 ? " Enter" : " Space");
}

Line ScrollBars(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 4> kBars = {"hscroll", "vscroll", "hdrag",
                                                              "vdrag"};
    static constexpr std::array<std::string_view, 3> kSteps = {" +1", " -1", " ="};
    const std::string bar = Word(kBars, choices);
    const std::string value = Number(Between(choices, -2, 11));
    if (bar.ends_with("drag")) return bar + " " + value;
    const std::string step = Word(kSteps, choices);
    return bar + step + (step == " =" ? value : "");
}

Line Focus(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 5> kTargets = {"grid", "tree", "hsc", "vsc",
                                                                 "filter"};
    return "focus " + Word(kTargets, choices);
}

Line DragSplitter(const Context&, ChoiceSource& choices) {
    return "drag-splitter " + Number(Between(choices, -2000, 2000));
}

// A column header's border dragged either way, the row-caption column's included.
Line DragColBorder(const Context& c, ChoiceSource& choices) {
    const FlexGrid& grid = c.grid();
    if (grid.cols() == 0 || grid.rows() == 0) return std::nullopt;
    const int col = Between(choices, 0, grid.cols() - 1);
    if (!grid.colIsVisible(col)) return std::nullopt;
    return "drag-col-border " + Number(col) + " " + Number(Between(choices, -3000, 3000));
}

// The scripted host changes the GridValue element it is handed: flags, texts, or
// nothing any more.
Line HostChange(const Context& c, ChoiceSource& choices) {
    if (!c.options.hostChanges) return std::nullopt;
    static constexpr std::array<std::string_view, 4> kPaths = {
        "CellValues/CellValue", "CellValues[1]/CellValue[1]", "CellValues/CellValue[2]",
        "CellValues[last()]/CellValue[last()]"};
    static constexpr std::array<std::string_view, 3> kFlags = {"Valid", "Enabled",
                                                               "ApplicationValidation"};
    static constexpr std::array<std::string_view, 4> kValues = {"0", "1", "1", "x"};
    const std::string path = QuoteWord(Word(kPaths, choices));
    const std::size_t change = choices.Below(4);
    if (change == 0) return "on-appgrid-clear";
    if (change == 1) return "on-appgrid-text " + path + " " + QuoteWord(TextToEnter(c, choices));
    // The value is drawn before the flag: the stored fuzz inputs were made in that order.
    const std::string value = Word(kValues, choices);
    return "on-appgrid " + path + " " + Word(kFlags, choices) + " " + value;
}

// Find a few nodes at a time, as the find bar searches, with edits and loads between
// its steps; the walks to its hits and to the values that need correcting.
Line FindOrWalk(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 5> kTexts = {"1", "ch", "Pump", "(", ""};
    static constexpr std::array<std::string_view, 5> kWalks = {
        "find-next", "find-previous", "find-next", "next-invalid", "previous-invalid"};
    switch (choices.Below(3)) {
        case 0:
            return "find-start " + QuoteWord(Word(kTexts, choices)) +
                   (choices.Below(3) == 0 ? " whole-cell" : "");
        case 1:
            return "find-continue " + Number(choices.Below(4));
        default:
            return Word(kWalks, choices);
    }
}

// Undo and redo as the user (keys) or the host (calls) asks for them, and Escape.
Line UndoOrRedo(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 7> kCommands = {
        "key z ctrl", "key z ctrl", "key y ctrl", "key z ctrl+shift", "undo", "redo", "key Escape"};
    return Word(kCommands, choices);
}

struct WeightedGesture {
    std::size_t weight;
    Gesture gesture;
};

constexpr std::array<WeightedGesture, 21> kGestures = {{
    {22, ClickValueCell},
    {3, ClickAnyCell},
    {3, MouseMove},
    {1, Wheel},
    {18, TypeText},
    {6, PasteText},
    {14, Key},
    {6, Pick},
    {5, PickUnit},
    {6, ClickNode},
    {2, CollapseOrExpand},
    {3, Filter},
    {3, ClickButton},
    {1, ButtonKey},
    {3, ScrollBars},
    {2, Focus},
    {1, DragSplitter},
    {1, DragColBorder},
    {2, HostChange},
    {3, FindOrWalk},
    {5, UndoOrRedo},
}};

}  // namespace

std::string QuoteWord(std::string_view text) {
    static constexpr std::string_view kRaw = "\\\"\r\n\t", kEscaped = "\\\"rnt";
    std::string word = "\"";
    for (const char c : text) {
        const std::size_t at = kRaw.find(c);
        if (at == std::string_view::npos) {
            word += c;
        } else {
            word += '\\';
            word += kEscaped[at];
        }
    }
    return word + "\"";
}

std::string GestureScript::Next(cli::session::Session& session, ChoiceSource& choices) const {
    const Context context{session.control(), options_};
    // Undo and redo are left out of the draw altogether unless asked for.
    const std::span<const WeightedGesture> offered(kGestures.data(),
                                                   kGestures.size() - (options_.undoKeys ? 0 : 1));
    std::size_t pick = 0;
    for (const WeightedGesture& entry : offered)
        pick += entry.weight;
    pick = choices.Below(pick);
    for (const WeightedGesture& entry : offered) {
        if (pick >= entry.weight) {
            pick -= entry.weight;
        } else if (Line line = entry.gesture(context, choices)) {
            return *line;
        } else {
            break;
        }
    }
    // The chosen gesture does not apply now: a click keeps the run moving.
    if (Line line = ClickAnyCell(context, choices)) return *line;
    return "focus tree";
}

}  // namespace tabulon::reliability
