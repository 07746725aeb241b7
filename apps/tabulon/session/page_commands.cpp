// Property pages: opening a design-time page on the current instance, editing its
// controls as a user does and applying it. The page's message boxes print like the
// control's.
//
// A control is named by its name and, for an element of a control array, its index
// (page-set cboVisible 2 False). Every edit first gives the control the focus, as the
// user's click or typing does, so the numeric box that had it is left and runs its
// lost-focus rule; a hidden or disabled control cannot be edited.
#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "platform/check_box.h"
#include "platform/combo_box.h"
#include "platform/text_box.h"
#include "propertypages/button_page.h"
#include "propertypages/general_page.h"
#include "session/command_table.h"
#include "session/key_strokes.h"
#include "session/page_dump.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"
#include "subcontrols/numeric_text_box.h"

namespace tabulon::cli::session {

namespace {

// "cboVisible 2" or "txtFilterCaption", for messages.
std::string ControlLabel(const PageControl& control) {
    std::string label = control.component->name();
    if (control.index >= 0) label += " " + std::to_string(control.index);
    return label;
}

// The control named by words (CONTROL or CONTROL INDEX).
const PageControl& FindTarget(const PropertyPage& page, std::string_view command, Args words) {
    const std::string& name = words[0].text;
    const int index =
        words.size() > 1 ? static_cast<int>(IntegerArgument(command, words[1], "INDEX", 0, 1 << 30))
                         : -1;
    const bool array = page.isControlArray(name);
    if (array && index < 0) {
        throw ScriptError(std::string(command) + ": " + name +
                          " is a control array; give its INDEX");
    }
    if (!array && index >= 0) {
        throw ScriptError(std::string(command) + ": " + name + " is not a control array");
    }
    const PageControl* control = page.findControl(name, index);
    if (control == nullptr) {
        throw ScriptError(std::string(command) + ": the page has no control " + name +
                          (index >= 0 ? " " + std::to_string(index) : std::string()));
    }
    return *control;
}

// The part that takes the focus, when the user can reach it now.
Component& Reachable(const PageControl& control, std::string_view command) {
    Component* part = control.focusPart;
    if (part == nullptr) {
        throw ScriptError(std::string(command) + ": " + ControlLabel(control) +
                          " cannot be edited");
    }
    if (!control.component->visible() || !part->visible() || !part->enabled()) {
        throw ScriptError(std::string(command) + ": " + ControlLabel(control) +
                          " is hidden or disabled");
    }
    return *part;
}

// The text box a user types or pastes into: a text box or a numeric box's own.
TextBox* TextPart(const PageControl& control) {
    if (auto* numeric = dynamic_cast<ctlNumericTextBox*>(control.component)) {
        return &numeric->textBox();
    }
    return dynamic_cast<TextBox*>(control.component);
}

void Open(Session& s, Args args) {
    Instance& instance = s.instances().current();
    const std::string& which = args[0].text;
    std::unique_ptr<PropertyPage> page;
    if (which == "general") {
        page = std::make_unique<ppGeneral>(instance.sink());
    } else if (which == "buttons") {
        page = std::make_unique<ppButtonProperty>(instance.sink());
    } else {
        throw ScriptError("page: unknown page \"" + which + "\" (general or buttons)");
    }
    instance.page() = std::move(page);
    instance.page()->SelectControls({&instance.control()});
}

void Set(Session& s, Args args) {
    PropertyPage& page = OpenPage(s, "page-set");
    const PageControl& target = FindTarget(page, "page-set", args.first(args.size() - 1));
    const std::string& value = args.back().text;
    Component& part = Reachable(target, "page-set");
    if (TextBox* text = TextPart(target)) {
        page.focus().setFocus(text);
        text->userPaste(value);
    } else if (auto* combo = dynamic_cast<ComboBox*>(target.component)) {
        if (std::find(combo->items().begin(), combo->items().end(), value) ==
            combo->items().end()) {
            throw ScriptError("page-set: " + ControlLabel(target) + " has no item \"" + value +
                              "\"");
        }
        page.focus().setFocus(&part);
        combo->userPick(value);
    } else if (auto* check = dynamic_cast<CheckBox*>(target.component)) {
        const std::optional<std::int64_t> checked = ParseInteger(value, 0, 1);
        if (!checked) throw ScriptError("page-set: " + ControlLabel(target) + " takes 0 or 1");
        page.focus().setFocus(&part);
        if (check->checked() != (*checked == 1)) check->userClick();
    } else {
        throw ScriptError("page-set: " + ControlLabel(target) + " cannot be edited");
    }
}

void Type(Session& s, Args args) {
    PropertyPage& page = OpenPage(s, "page-type");
    const PageControl& target = FindTarget(page, "page-type", args.first(args.size() - 1));
    TextBox* text = TextPart(target);
    if (text == nullptr) {
        throw ScriptError("page-type: " + ControlLabel(target) + " is not a text box");
    }
    Reachable(target, "page-type");
    const auto keys = KeysForText(args.back().text);
    if (!keys) throw ScriptError("page-type: the text holds a character no key types");
    page.focus().setFocus(text);
    for (const KeyStroke& key : *keys) {
        if (key.keyAscii != 0) text->userKeyPress(key.keyAscii);
    }
}

void Blur(Session& s, Args args) {
    PropertyPage& page = OpenPage(s, "page-blur");
    const PageControl& target = FindTarget(page, "page-blur", args);
    Component& part = Reachable(target, "page-blur");
    // Leaving needs having been there: a control without the focus takes it first.
    page.focus().setFocus(&part);
    page.focus().setFocus(nullptr);
}

void Apply(Session& s, Args) {
    OpenPage(s, "page-apply").ApplyChanges();
}

void Dump(Session& s, Args) {
    s.output().Line(PageDump(OpenPage(s, "page-dump")));
}

constexpr ScriptCommand kCommands[] = {
    {"page", "general|buttons",
     "Opens the property page on the current instance (the page's selection changed); it "
     "replaces a page open there before.",
     1, 1, false, Open},
    {"page-set", "CONTROL [INDEX] VALUE",
     "Edits one page control by its name (INDEX for an element of a control array), giving it "
     "the focus first as the user's click does. A text or numeric box gets VALUE at once, as a "
     "paste (the change notification runs, the box keeps the focus, nothing is clamped yet); a "
     "list has the item VALUE chosen; a check box is set to VALUE 0 or 1 by clicking it when "
     "it differs.",
     2, 3, false, Set},
    {"page-type", "CONTROL [INDEX] \"TEXT\"",
     "Types TEXT into a text or numeric box of the page, one key at a time.", 2, 3, false, Type},
    {"page-blur", "CONTROL [INDEX]",
     "The control loses the focus (a numeric box runs its lost-focus rule); a control without "
     "the focus takes it first.",
     1, 2, false, Blur},
    {"page-apply", "", "The page's apply, without moving the focus.", 0, 0, false, Apply},
    {"page-dump", "", "The open page's controls (same as dump page).", 0, 0, false, Dump},
};

}  // namespace

std::span<const ScriptCommand> PageCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session
