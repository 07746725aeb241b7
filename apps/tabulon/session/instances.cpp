#include "session/instances.h"

#include "session/script_error.h"

namespace tabulon::cli::session {

Instance::Instance(Output& output, const AppGridActions& appGrid) {
    // Each callback prints and forgets the event: the session keeps no history, so a
    // long script does not grow in memory.
    sink_.onShow = [this, &output](const RecordedMessage& message) {
        output.Line(
            JsonObject().Str("msg", MessageIconName(message.icon)).Str("text", message.text));
        sink_.clear();
    };
    const auto event = [this, &output](std::string_view name) {
        output.Line(JsonObject().Str("event", name));
        host_.clear();
    };
    host_.onOKClick = [event] { event("OKClick"); };
    host_.onCancelClick = [event] { event("CancelClick"); };
    host_.onHelpClick = [event] { event("HelpClick"); };
    host_.onPrintClick = [this, &output](const std::string& strXML) {
        output.Line(JsonObject().Str("event", "PrintClick").Str("strXML", strXML));
        host_.clear();
    };
    host_.onAppGridEventHandler = [this, &output, &appGrid](xml::Node& ValidationXML) {
        output.Line(
            JsonObject().Str("event", "AppGridEventHandler").Str("xml", ValidationXML.serialize()));
        host_.clear();
        appGrid.Apply(ValidationXML);
    };
    host_.onPropertyChanged = [this, &output](std::string_view name) {
        output.Line(JsonObject().Str("changed", name));
        host_.clear();
    };
    host_.onWaitCursor = [this](bool) { host_.clear(); };
    control_ = std::make_unique<Generic_SP_Control>(sink_, host_);
}

void Instances::Create(bool replace, const std::optional<ControlSize>& size, PropertyBag* bag) {
    if (replace && !instances_.empty()) {
        instances_[current_]->control().Terminate();
        instances_[current_].reset();
    }
    auto instance = std::make_unique<Instance>(output_, appGrid_);
    Instance& created = *instance;
    if (replace && !instances_.empty()) {
        instances_[current_] = std::move(instance);
    } else {
        instances_.push_back(std::move(instance));
        current_ = instances_.size() - 1;
    }
    if (bag == nullptr) {
        created.control().InitProperties();
    } else {
        created.control().ReadProperties(*bag);
    }
    if (size) created.control().Resize(size->width, size->height);
}

bool Instances::Use(std::size_t n) {
    if (n < 1 || n > instances_.size()) return false;
    current_ = n - 1;
    return true;
}

Instance& Instances::current() {
    if (instances_.empty()) throw ScriptError("no control instance (use new first)");
    if (!instances_[current_]) throw ScriptError("the current instance could not be created");
    return *instances_[current_];
}

}  // namespace tabulon::cli::session
