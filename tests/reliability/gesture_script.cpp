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
    const DocumentModel& doc() const { return CoreOf(control).doc; }
};

using Line = std::optional<std::string>;
using Gesture = Line (*)(const Context&, ChoiceSource&);

template <class T>
const T& OneOf(std::span<const T> items, ChoiceSource& choices) {
    return items[choices.Below(items.size())];
}

std::string Number(int value) {
    return std::to_string(value);
}

// --- typed text

// A limit of the current cell's row, moved a little or not at all: values on and
// around the boundaries are where range checks go wrong.
std::optional<std::string> NumberNearLimit(const Context& c, ChoiceSource& choices) {
    const int row = c.grid().row();
    const auto& rows = c.doc().arrRowInfo;
    if (row < 1 || static_cast<std::size_t>(row) >= rows.size()) return std::nullopt;
    std::vector<std::string> limits = SplitList(rows[static_cast<std::size_t>(row)].MinVal);
    for (std::string& limit : SplitList(rows[static_cast<std::size_t>(row)].MaxVal)) {
        limits.push_back(std::move(limit));
    }
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

std::string PlainNumber(ChoiceSource& choices) {
    std::string text = choices.Below(5) == 0 ? "-" : "";
    const std::size_t digits = 1 + choices.Below(7);
    for (std::size_t i = 0; i < digits; ++i)
        text += static_cast<char>('0' + choices.Below(10));
    if (choices.Below(2) == 0) {
        text += '.';
        const std::size_t decimals = choices.Below(5);
        for (std::size_t i = 0; i < decimals; ++i) {
            text += static_cast<char>('0' + choices.Below(10));
        }
    }
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

// An item offered by the open pick list or unit drop-down, typed rather than picked.
std::optional<std::string> OfferedItem(const Context& c, ChoiceSource& choices) {
    const Form& form = c.form();
    if (form.cboComboBoxControl.visible() && !form.cboComboBoxControl.items().empty()) {
        return OneOf<std::string>(form.cboComboBoxControl.items(), choices);
    }
    if (form.unitDropControl.visible() && !form.unitDropControl.Units().empty()) {
        return OneOf<std::string>(form.unitDropControl.UnitLabels(), choices);
    }
    return std::nullopt;
}

std::string TextToEnter(const Context& c, ChoiceSource& choices) {
    std::optional<std::string> text;
    const std::size_t kind = choices.Below(10);
    if (kind <= 2) {
        text = NumberNearLimit(c, choices);
    } else if (kind == 3) {
        text = std::string(OneOf<std::string_view>(kOddTexts, choices));
    } else if (kind == 4) {
        text = OfferedItem(c, choices);
    } else if (kind == 5 && c.options.extremeNumbers) {
        text = std::string(OneOf<std::string_view>(kExtremeNumbers, choices));
    } else if (kind == 6) {
        text = std::string(60 + choices.Below(200), static_cast<char>('a' + choices.Below(26)));
    }
    return text ? *text : PlainNumber(choices);
}

// --- grid gestures

Line ClickValueCell(const Context& c, ChoiceSource& choices) {
    const FlexGrid& grid = c.grid();
    if (grid.rows() < 2 || grid.cols() < 2) return std::nullopt;
    const int row = 1 + static_cast<int>(choices.Below(static_cast<std::size_t>(grid.rows() - 1)));
    const int col = 1 + static_cast<int>(choices.Below(static_cast<std::size_t>(grid.cols() - 1)));
    return "click " + Number(row) + " " + Number(col);
}

Line ClickAnyCell(const Context& c, ChoiceSource& choices) {
    const FlexGrid& grid = c.grid();
    if (grid.rows() < 1 || grid.cols() < 1) return std::nullopt;
    const int row = static_cast<int>(choices.Below(static_cast<std::size_t>(grid.rows())));
    const int col = static_cast<int>(choices.Below(static_cast<std::size_t>(grid.cols())));
    return "click " + Number(row) + " " + Number(col);
}

Line MouseMove(const Context& c, ChoiceSource& choices) {
    const FlexGrid& grid = c.grid();
    const int row = static_cast<int>(choices.Below(static_cast<std::size_t>(grid.rows() + 1))) - 1;
    const int col = static_cast<int>(choices.Below(static_cast<std::size_t>(grid.cols() + 1))) - 1;
    return "mousemove " + Number(row) + " " + Number(col);
}

Line Wheel(const Context&, ChoiceSource& choices) {
    return "wheel " + Number(static_cast<int>(choices.Below(7)) - 3) + " " +
           Number(static_cast<int>(choices.Below(3)) - 1);
}

// --- keyboard and editors

Line TypeText(const Context& c, ChoiceSource& choices) {
    return "type " + QuoteWord(TextToEnter(c, choices));
}

Line PasteText(const Context& c, ChoiceSource& choices) {
    const Form& form = c.form();
    const Component* focused = form.focus.focused();
    if (focused != &form.txtTextBoxControl && focused != &form.unitNumControl &&
        focused != &form.unitDropControl) {
        return std::nullopt;
    }
    // The unit editors' number field also takes a filtered paste, and the mouse selects.
    const bool numberField = focused != &form.txtTextBoxControl;
    switch (choices.Below(numberField ? 3 : 2)) {
        case 0:
            return "set-text " + QuoteWord(TextToEnter(c, choices));
        case 1:
            return "select-text " + Number(static_cast<int>(choices.Below(6))) + " " +
                   Number(static_cast<int>(choices.Below(6)));
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
        "", "", "", "", "shift", "ctrl", "alt", "ctrl+shift"};
    std::string line = "key " + std::string(OneOf<std::string_view>(kKeys, choices));
    const std::string_view modifier = OneOf<std::string_view>(kModifiers, choices);
    if (!modifier.empty()) line += " " + std::string(modifier);
    return line;
}

Line Pick(const Context& c, ChoiceSource& choices) {
    const ComboBox& combo = c.form().cboComboBoxControl;
    if (!combo.visible() || combo.items().empty()) return std::nullopt;
    return "pick " + QuoteWord(OneOf<std::string>(combo.items(), choices));
}

Line PickUnit(const Context& c, ChoiceSource& choices) {
    const UnitDropBox& box = c.form().unitDropControl;
    if (!box.visible() || box.Units().empty()) return std::nullopt;
    return "pick-unit " + QuoteWord(OneOf<std::string>(box.UnitLabels(), choices));
}

// --- tree, filter, buttons, bars, focus, splitter

std::optional<std::string> AnyNodeKey(const Context& c, ChoiceSource& choices) {
    const TreeView& tree = c.form().treTreeView;
    if (tree.count() == 0) return std::nullopt;
    return tree.node(1 + static_cast<int>(choices.Below(static_cast<std::size_t>(tree.count()))))
        .key;
}

Line ClickNode(const Context& c, ChoiceSource& choices) {
    const std::optional<std::string> key = AnyNodeKey(c, choices);
    if (!key) return std::nullopt;
    return "node " + QuoteWord(*key);
}

Line CollapseOrExpand(const Context& c, ChoiceSource& choices) {
    const std::optional<std::string> key = AnyNodeKey(c, choices);
    if (!key) return std::nullopt;
    return std::string(choices.Below(2) == 0 ? "collapse " : "expand ") + QuoteWord(*key);
}

Line Filter(const Context& c, ChoiceSource& choices) {
    const Form& form = c.form();
    if (!form.fraFilterView.visible() || !form.cboFilter.visible() || !form.cboFilter.enabled() ||
        form.cboFilter.items().empty()) {
        return std::nullopt;
    }
    return "filter " + QuoteWord(OneOf<std::string>(form.cboFilter.items(), choices));
}

constexpr std::array<std::string_view, 6> kButtons = {"OK",    "Print",  "OK",
                                                      "Print", "Cancel", "Help"};

Line ClickButton(const Context&, ChoiceSource& choices) {
    return "button " + std::string(OneOf<std::string_view>(kButtons, choices));
}

Line ButtonKey(const Context& c, ChoiceSource& choices) {
    const std::string_view name = OneOf<std::string_view>(kButtons, choices);
    const Form& form = c.form();
    const Button& button = name == "OK"       ? form.cmdOK
                           : name == "Print"  ? form.cmdPrint
                           : name == "Cancel" ? form.cmdCancel
                                              : form.cmdHelp;
    if (!button.visible() || !button.enabled()) return std::nullopt;
    return "button-key " + std::string(name) + (choices.Below(3) == 0 ? " Enter" : " Space");
}

Line ScrollBars(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 4> kBars = {"hscroll", "vscroll", "hdrag",
                                                              "vdrag"};
    const std::string_view bar = OneOf<std::string_view>(kBars, choices);
    const int value = static_cast<int>(choices.Below(14)) - 2;
    if (bar == "hdrag" || bar == "vdrag") return std::string(bar) + " " + Number(value);
    const std::size_t step = choices.Below(3);
    return std::string(bar) + (step == 0 ? " +1" : step == 1 ? " -1" : " =" + Number(value));
}

Line Focus(const Context&, ChoiceSource& choices) {
    static constexpr std::array<std::string_view, 5> kTargets = {"grid", "tree", "hsc", "vsc",
                                                                 "filter"};
    return "focus " + std::string(OneOf<std::string_view>(kTargets, choices));
}

Line DragSplitter(const Context&, ChoiceSource& choices) {
    return "drag-splitter " + Number(static_cast<int>(choices.Below(4001)) - 2000);
}

// A column header's border dragged either way, the row-caption column's included.
Line DragColBorder(const Context& c, ChoiceSource& choices) {
    const FlexGrid& grid = c.grid();
    if (grid.cols() == 0 || grid.rows() == 0) return std::nullopt;
    const int col = static_cast<int>(choices.Below(static_cast<std::size_t>(grid.cols())));
    if (!grid.colIsVisible(col)) return std::nullopt;
    return "drag-col-border " + Number(col) + " " +
           Number(static_cast<int>(choices.Below(6001)) - 3000);
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
    const std::string path = QuoteWord(OneOf<std::string_view>(kPaths, choices));
    const std::size_t change = choices.Below(4);
    if (change == 0) return "on-appgrid-clear";
    if (change == 1) return "on-appgrid-text " + path + " " + QuoteWord(TextToEnter(c, choices));
    return "on-appgrid " + path + " " + std::string(OneOf<std::string_view>(kFlags, choices)) +
           " " + std::string(OneOf<std::string_view>(kValues, choices));
}

// Undo and redo as the user (keys) or the host (calls) asks for them, and Escape.
Line UndoOrRedo(const Context& c, ChoiceSource& choices) {
    if (!c.options.undoKeys) return std::nullopt;
    static constexpr std::array<std::string_view, 7> kCommands = {
        "key z ctrl", "key z ctrl", "key y ctrl", "key z ctrl+shift", "undo", "redo", "key Escape"};
    return std::string(OneOf<std::string_view>(kCommands, choices));
}

struct WeightedGesture {
    std::size_t weight;
    Gesture gesture;
};

constexpr std::array<WeightedGesture, 20> kGestures = {{
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
    {5, UndoOrRedo},
}};

bool Offered(const WeightedGesture& entry, const GestureOptions& options) {
    return entry.gesture != UndoOrRedo || options.undoKeys;
}

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
    std::size_t total = 0;
    for (const WeightedGesture& entry : kGestures) {
        if (Offered(entry, options_)) total += entry.weight;
    }
    std::size_t pick = choices.Below(total);
    for (const WeightedGesture& entry : kGestures) {
        if (!Offered(entry, options_)) continue;
        if (pick >= entry.weight) {
            pick -= entry.weight;
            continue;
        }
        if (Line line = entry.gesture(context, choices)) return *line;
        break;
    }
    // The chosen gesture does not apply now: a click keeps the run moving.
    if (Line line = ClickAnyCell(context, choices)) return *line;
    return "focus tree";
}

}  // namespace tabulon::reliability
