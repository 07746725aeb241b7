// Host calls: the members of the control's public interface, called as a host does.
#include <cstdint>
#include <limits>
#include <string>

#include "headless_control.h"
#include "session/command_table.h"
#include "session/json_file_property_bag.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"

namespace tabulon::cli::session {

namespace {

void Load(Session& s, Args args) {
    s.output().Result(s.control().Load(args[0].text));
}

void LoadXmlFile(Session& s, Args args) {
    const std::optional<std::string> text = ReadWholeFile(args[0].text);
    if (!text) throw ScriptError("loadxml: cannot read \"" + args[0].text + "\"");
    s.output().Result(s.control().LoadXML(*text));
}

void LoadXmlText(Session& s, Args args) {
    s.output().Result(s.control().LoadXML(args[0].text));
}

void Xml(Session& s, Args) {
    s.output().Result(s.control().XML());
}
void SetXml(Session& s, Args args) {
    s.control().SetXML(args[0].text);
}
void FilterValue(Session& s, Args) {
    s.output().Result(s.control().FilterValue());
}
void SetFilterValue(Session& s, Args args) {
    s.control().SetFilterValue(args[0].text);
}
void DisplayColWidth(Session& s, Args) {
    s.output().Result(s.control().DisplayColWidth());
}
void SetDisplayColWidth(Session& s, Args args) {
    s.control().SetDisplayColWidth(args[0].text);
}

void General(Session& s, Args) {
    s.output().Result(RecordToJson(s.control().GeneralProperty()));
}

void SetGeneral(Session& s, Args args) {
    const auto changes = ParseGeneralChanges("set-general", args);
    Generic_SP_Control& control = s.control();
    gGeneralProperty_type record = control.GeneralProperty();
    for (const auto& change : changes)
        change(record);
    control.SetGeneralProperty(record);
}

void Buttons(Session& s, Args) {
    s.output().Result(RecordToJson(s.control().ButtonProperty()));
}

void SetButtons(Session& s, Args args) {
    const auto changes = ParseButtonChanges("set-buttons", args);
    Generic_SP_Control& control = s.control();
    gButtonProperty_type record = control.ButtonProperty();
    for (const auto& change : changes)
        change(record);
    control.SetButtonProperty(record);
}

void Reposition(Session& s, Args) {
    s.control().Reposition_Button();
}
void RefreshScrollbars(Session& s, Args) {
    s.control().RefreshAdvanceScrollbars();
}

void MoveNextCell(Session& s, Args args) {
    const std::int16_t key = Int16Argument("move-next-cell", args[0], "N");
    s.control().MoveNextCell(key);
}

void MovePreviousCell(Session& s, Args args) {
    const std::int16_t key = Int16Argument("move-previous-cell", args[0], "N");
    s.control().MovePreviousCell(key);
}

void MoveNextColumn(Session& s, Args) {
    s.control().MoveNextColumn();
}
void MovePreviousColumn(Session& s, Args) {
    s.control().MovePreviousColumn();
}

void Undo(Session& s, Args) {
    s.output().Result(s.control().Undo());
}
void Redo(Session& s, Args) {
    s.output().Result(s.control().Redo());
}
void CanUndo(Session& s, Args) {
    s.output().Result(s.control().CanUndo());
}
void CanRedo(Session& s, Args) {
    s.output().Result(s.control().CanRedo());
}
void Modified(Session& s, Args) {
    s.output().Result(s.control().IsModified());
}
void Protective(Session& s, Args) {
    s.output().Result(s.control().ProtectiveEditing());
}

// true or false, the only values the two switches take.
bool SwitchArgument(std::string_view command, const Word& word) {
    const std::optional<std::int16_t> on = ParseBoolean(word.text);
    if (!on || (*on != 0 && *on != -1)) {
        throw ScriptError(std::string(command) + ": expected true or false, got \"" + word.text +
                          "\"");
    }
    return *on != 0;
}

void SetProtective(Session& s, Args args) {
    s.control().SetProtectiveEditing(SwitchArgument("set-protective", args[0]));
}

void SetModified(Session& s, Args args) {
    s.control().SetModified(SwitchArgument("set-modified", args[0]));
}

void SaveBag(Session& s, Args args) {
    JsonFilePropertyBag bag;
    s.control().WriteProperties(bag);
    try {
        bag.Save(args[0].text);
    } catch (const std::exception& error) {
        throw ScriptError(std::string("save-bag: ") + error.what());
    }
}

void MaxDocumentBytes(Session& s, Args) {
    s.output().Result(static_cast<std::int64_t>(s.control().MaxDocumentBytes()));
}

void SetMaxDocumentBytes(Session& s, Args args) {
    s.control().SetMaxDocumentBytes(static_cast<std::uint64_t>(IntegerArgument(
        "set-max-document-bytes", args[0], "N", 0, std::numeric_limits<std::int64_t>::max())));
}

void LastSaveError(Session& s, Args) {
    s.output().Result(s.control().LastSaveError());
}

constexpr ScriptCommand kCommands[] = {
    {"load", "PATH", "Load with a file path; prints the result.", 1, 1, false, Load},
    {"loadxml", "PATH", "LoadXML with the text of the file; prints the result.", 1, 1, false,
     LoadXmlFile},
    {"loadxml-text", "\"TEXT\"", "LoadXML with the text given; prints the result.", 1, 1, false,
     LoadXmlText},
    {"xml", "", "Reads the XML property.", 0, 0, false, Xml},
    {"set-xml", "\"TEXT\"", "Writes the XML property.", 1, 1, false, SetXml},
    {"filtervalue", "", "Reads the FilterValue property.", 0, 0, false, FilterValue},
    {"set-filtervalue", "\"TEXT\"", "Writes the FilterValue property.", 1, 1, false,
     SetFilterValue},
    {"displaycolwidth", "", "Reads the DisplayColWidth property.", 0, 0, false, DisplayColWidth},
    {"set-displaycolwidth", "\"TEXT\"", "Writes the DisplayColWidth property.", 1, 1, false,
     SetDisplayColWidth},
    {"general", "", "Reads the GeneralProperty record (booleans as true/false).", 0, 0, false,
     General},
    {"set-general", "FIELD=VALUE ...",
     "Reads GeneralProperty, changes the named fields and writes the record back in one "
     "assignment. Values: true/false (or a 16-bit integer) for bln fields, decimal integers, "
     "strings in double quotes (strFilterCaption=\"Size\").",
     1, kAnyCount, false, SetGeneral},
    {"buttons", "", "Reads the ButtonProperty record.", 0, 0, false, Buttons},
    {"set-buttons", "FIELD=VALUE ...", "As set-general, for ButtonProperty.", 1, kAnyCount, false,
     SetButtons},
    {"reposition", "", "Calls Reposition_Button.", 0, 0, false, Reposition},
    {"refresh-scrollbars", "", "Calls RefreshAdvanceScrollbars.", 0, 0, false, RefreshScrollbars},
    {"move-next-cell", "N", "Calls MoveNextCell with KeyAscii N.", 1, 1, false, MoveNextCell},
    {"move-previous-cell", "N", "Calls MovePreviousCell with KeyAscii N.", 1, 1, false,
     MovePreviousCell},
    {"move-next-column", "", "Calls MoveNextColumn.", 0, 0, false, MoveNextColumn},
    {"move-previous-column", "", "Calls MovePreviousColumn.", 0, 0, false, MovePreviousColumn},
    {"undo", "",
     "Calls Undo: the open editor's own change first, else the document's last step; "
     "prints whether anything was undone.",
     0, 0, false, Undo},
    {"redo", "", "Calls Redo; prints whether anything was redone.", 0, 0, false, Redo},
    {"can-undo", "", "Calls CanUndo.", 0, 0, false, CanUndo},
    {"can-redo", "", "Calls CanRedo.", 0, 0, false, CanRedo},
    {"modified", "",
     "Calls IsModified: whether the document changed since it was loaded or "
     "saved.",
     0, 0, false, Modified},
    {"set-modified", "true|false",
     "Calls SetModified: false makes the document as it is the saved one (a host that saved "
     "XML itself), true makes it count as changed.",
     1, 1, false, SetModified},
    {"protective", "", "Reads the ProtectiveEditing switch.", 0, 0, false, Protective},
    {"set-protective", "true|false", "Writes the ProtectiveEditing switch (off by default).", 1, 1,
     false, SetProtective},
    {"save-bag", "FILE",
     "The host saves the form: the settings are written into a fresh property bag, which "
     "is saved as a JSON file (keys equal to their defaults are left out).",
     1, 1, false, SaveBag},
    {"max-document-bytes", "", "Reads the largest document Load and LoadXML accept, in bytes.", 0,
     0, false, MaxDocumentBytes},
    {"set-max-document-bytes", "N",
     "Sets the largest document Load and LoadXML accept, in bytes (a larger file is refused "
     "before it is read).",
     1, 1, false, SetMaxDocumentBytes},
    {"last-save-error", "",
     "Reads why the last OK could not save (\"\" once an OK has saved): the host's "
     "LastSaveError.",
     0, 0, false, LastSaveError},
};

}  // namespace

std::span<const ScriptCommand> HostCallCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session
