// The control instances of a session, all on the session's one thread, numbered from
// 1 in the order they were added. Each has its own message sink and host, which print
// what the control shows and raises as it happens; the current instance receives the
// commands.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "control/generic_sp_control.h"
#include "platform/property_bag.h"
#include "propertypages/property_page.h"
#include "session/appgrid_actions.h"
#include "session/session_output.h"
#include "testing/recording_host.h"
#include "testing/recording_sink.h"

namespace tabulon::cli::session {

struct ControlSize {
    std::int32_t width;
    std::int32_t height;
};

// One instance: the sink and host outlive the control they serve.
class Instance {
public:
    Instance(Output& output, const AppGridActions& appGrid);
    Instance(const Instance&) = delete;
    Instance& operator=(const Instance&) = delete;

    Generic_SP_Control& control() { return *control_; }
    // Where the instance's message boxes go (they print as they happen).
    MessageSink& sink() { return sink_; }
    // The property page opened on this instance (null when none); it goes away with
    // the instance, before the control it edits.
    std::unique_ptr<PropertyPage>& page() { return page_; }

private:
    RecordingSink sink_;
    RecordingHost host_;
    std::unique_ptr<Generic_SP_Control> control_;
    std::unique_ptr<PropertyPage> page_;
};

class Instances {
public:
    Instances(Output& output, const AppGridActions& appGrid) : output_(output), appGrid_(appGrid) {}

    // Creates an instance and brings it up as a host does: first-time initialisation
    // (bag null) or restored settings, then the given size when there is one. replace:
    // the current instance terminates first and the new one takes its number;
    // otherwise the new one is added and becomes current.
    void Create(bool replace, const std::optional<ControlSize>& size, PropertyBag* bag);
    // Makes instance n (from 1) current; false when there is no such instance.
    bool Use(std::size_t n);

    bool empty() const { return instances_.empty(); }
    std::size_t count() const { return instances_.size(); }
    // The current instance; throws ScriptError when there is none yet.
    Instance& current();

private:
    Output& output_;
    const AppGridActions& appGrid_;
    std::vector<std::unique_ptr<Instance>> instances_;
    std::size_t current_ = 0;
};

}  // namespace tabulon::cli::session
