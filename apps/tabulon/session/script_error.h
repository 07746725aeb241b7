// A command the session cannot run as written: unknown, wrong arguments, a file it
// cannot read, a gesture the control's state does not allow (no such tree node, no
// open pick list ...). The session prints {"error": what()} and goes on; the exit
// status becomes 2. Thrown before the command has touched any instance.
#pragma once

#include <stdexcept>
#include <string>

namespace tabulon::cli::session {

class ScriptError : public std::runtime_error {
public:
    explicit ScriptError(const std::string& what) : std::runtime_error(what) {}
};

}  // namespace tabulon::cli::session
