// A session: runs a script of commands against headless control instances and prints
// what happens as JSON lines (see `tabulon session --help` for the commands).
#pragma once

#include <istream>
#include <ostream>
#include <string_view>

#include "control/generic_sp_control.h"
#include "session/appgrid_actions.h"
#include "session/instances.h"
#include "session/session_output.h"

namespace tabulon::cli::session {

class Session {
public:
    explicit Session(std::ostream& out) : output_(out), instances_(output_, appGrid_) {}
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    // Runs every line of script; returns the exit status (2 when any command was
    // malformed or the script could not be read to its end, else 0). A read failure (a
    // folder, an I/O error, a line that does not fit in memory) prints
    // {"error": "cannot read the script at line N: REASON"}.
    int Run(std::istream& script);
    // Runs one line (without its line end).
    void RunLine(std::string_view line);

    Output& output() { return output_; }
    Instances& instances() { return instances_; }
    AppGridActions& appGrid() { return appGrid_; }
    // The current instance's control; throws ScriptError when there is none.
    Generic_SP_Control& control() { return instances_.current().control(); }

private:
    // Before the first command: new and show, unless that command creates an
    // instance itself.
    void StartIfFirst(bool createsInstance);

    Output output_;
    AppGridActions appGrid_;
    Instances instances_;
    bool started_ = false;
};

}  // namespace tabulon::cli::session
