// The session's standard output: one JSON object per line, written and flushed as
// soon as it is known, so lines appear in the order things happened.
#pragma once

#include <cstdint>
#include <ostream>
#include <string_view>

#include "session/json_writer.h"

namespace tabulon::cli::session {

class Output {
public:
    explicit Output(std::ostream& out) : out_(out) {}

    void Line(const JsonObject& object);
    // {"error": reason}: a malformed command. Remembered for the exit status.
    void Error(std::string_view reason);
    // {"exception": what}: a failure the control let reach the host.
    void Exception(std::string_view what);
    // {"result": value} for the host calls that have a result.
    void Result(bool value);
    void Result(std::string_view value);
    void Result(const char* value) { Result(std::string_view(value)); }
    void Result(std::int64_t value);
    void Result(const JsonObject& record);
    void Result(const JsonArray& list);

    bool hadError() const { return hadError_; }

private:
    std::ostream& out_;
    bool hadError_ = false;
};

}  // namespace tabulon::cli::session
