// A control instance for the one-shot commands (validate, report): created,
// initialised and shown as a host does at default size, with every message box
// written to a stream as one line "information: TEXT", "critical: TEXT" or
// "plain: TEXT" (the text as it is, line breaks included) and every event recorded.
#pragma once

#include <optional>
#include <ostream>
#include <string>

#include "control/generic_sp_control.h"
#include "testing/recording_host.h"
#include "testing/recording_sink.h"

namespace tabulon::cli {

// The bytes of a file; nullopt when it cannot be opened or read.
std::optional<std::string> ReadWholeFile(const std::string& path);

class HeadlessControl {
public:
    explicit HeadlessControl(std::ostream& messages);
    HeadlessControl(const HeadlessControl&) = delete;
    HeadlessControl& operator=(const HeadlessControl&) = delete;

    Generic_SP_Control& control() { return *control_; }
    const RecordingHost& host() const { return host_; }
    const RecordingSink& sink() const { return sink_; }

private:
    RecordingSink sink_;
    RecordingHost host_;
    std::unique_ptr<Generic_SP_Control> control_;
};

}  // namespace tabulon::cli
