// Instances: creating, restoring, switching, showing, resizing and ending controls.
#include <optional>
#include <string>

#include "session/command_table.h"
#include "session/json_file_property_bag.h"
#include "session/script_error.h"
#include "session/session.h"
#include "session/values.h"

namespace tabulon::cli::session {

namespace {

std::optional<ControlSize> SizeArguments(std::string_view command, Args args) {
    if (args.empty()) return std::nullopt;
    if (args.size() != 2) throw ScriptError(std::string(command) + ": give both WIDTH and HEIGHT");
    return ControlSize{Int32Argument(command, args[0], "WIDTH"),
                       Int32Argument(command, args[1], "HEIGHT")};
}

void New(Session& s, Args args) {
    const std::optional<ControlSize> size = SizeArguments("new", args);
    s.instances().Create(true, size, nullptr);
}

void NewRestore(Session& s, Args args) {
    std::optional<JsonFilePropertyBag> bag;
    try {
        bag = JsonFilePropertyBag::Load(args[0].text);
    } catch (const std::exception& error) {
        throw ScriptError(std::string("new-restore: ") + error.what());
    }
    s.instances().Create(true, std::nullopt, &*bag);
}

void AddInstance(Session& s, Args args) {
    const std::optional<ControlSize> size = SizeArguments("add-instance", args);
    s.instances().Create(false, size, nullptr);
}

void Use(Session& s, Args args) {
    const std::int64_t n = IntegerArgument("use", args[0], "N", 1, 1 << 30);
    if (!s.instances().Use(static_cast<std::size_t>(n))) {
        throw ScriptError("use: there is no instance " + args[0].text + " (" +
                          std::to_string(s.instances().count()) + " so far)");
    }
}

void Show(Session& s, Args) {
    s.control().Show();
}

void Resize(Session& s, Args args) {
    const std::int32_t width = Int32Argument("resize", args[0], "W");
    const std::int32_t height = Int32Argument("resize", args[1], "H");
    s.control().Resize(width, height);
}

void Terminate(Session& s, Args) {
    s.control().Terminate();
}

constexpr ScriptCommand kCommands[] = {
    {"new", "[WIDTH HEIGHT]",
     "A fresh instance with first-time initialisation (default size 8200 x 6300 twips; a "
     "given size is applied as the host's first resize). Replaces the current instance, "
     "which terminates first; the new one takes its number.",
     0, 2, true, New},
    {"new-restore", "BAGFILE",
     "Like new, but the settings are restored from a property-bag file (a JSON object of "
     "key -> boolean, number or string).",
     1, 1, true, NewRestore},
    {"add-instance", "[WIDTH HEIGHT]",
     "Another instance on the same thread, with first-time initialisation; it gets the "
     "next number and becomes current. The instance it joins keeps running.",
     0, 2, true, AddInstance},
    {"use", "N", "Makes instance N (numbered from 1 in the order they were added) current.", 1, 1,
     false, Use},
    {"show", "", "The first showing: places the buttons and lays the control out.", 0, 0, false,
     Show},
    {"resize", "W H", "The host gives the control a new size in twips.", 2, 2, false, Resize},
    {"terminate", "",
     "Ends the current instance (it keeps its number; later commands on it see a "
     "terminated control).",
     0, 0, false, Terminate},
};

}  // namespace

std::span<const ScriptCommand> InstanceCommands() {
    return kCommands;
}

}  // namespace tabulon::cli::session
