#include "session/session_output.h"

namespace tabulon::cli::session {

void Output::Line(const JsonObject& object) {
    out_ << object.Text() << '\n';
    out_.flush();
}

void Output::Error(std::string_view reason) {
    hadError_ = true;
    Line(JsonObject().Str("error", reason));
}

void Output::Exception(std::string_view what) {
    Line(JsonObject().Str("exception", what));
}

void Output::Result(bool value) {
    Line(JsonObject().Bool("result", value));
}

void Output::Result(std::string_view value) {
    Line(JsonObject().Str("result", value));
}

void Output::Result(std::int64_t value) {
    Line(JsonObject().Int("result", value));
}

void Output::Result(const JsonObject& record) {
    Line(JsonObject().Obj("result", record));
}

void Output::Result(const JsonArray& list) {
    Line(JsonObject().Arr("result", list));
}

}  // namespace tabulon::cli::session
