// Run-time failures and the reporter that turns them into the control's
// "Unexpected Error - NNNN" message.
//
// A procedure with a failure code wraps its body in Guarded(); anything thrown
// inside is shown once through the sink and the procedure returns normally.
// Members without a code let exceptions reach the host.
#pragma once

#include <exception>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "support/message_sink.h"

namespace tabulon {

// Base of every failure the control raises on its own (the platform's run-time error).
class RuntimeFailure : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

// A number does not fit the integer type it is converted to, or a magnitude is
// beyond what a double holds.
class OverflowFailure : public RuntimeFailure {
public:
    OverflowFailure() : RuntimeFailure("Overflow") {}
};

// An index or argument outside what a component accepts.
class InvalidArgumentFailure : public RuntimeFailure {
public:
    explicit InvalidArgumentFailure(const std::string& what) : RuntimeFailure(what) {}
};

// "Unexpected Error - " followed by the four-digit code.
std::string UnexpectedErrorText(std::string_view code);

// Shows "Unexpected Error - " + code as a critical message.
void ReportUnexpectedError(MessageSink& sink, std::string_view code);

// Runs body(); any exception is reported with code and false is returned.
// Returns true when body completed (a bool-returning body decides the result).
template <class Body>
bool Guarded(MessageSink& sink, std::string_view code, Body&& body) {
    try {
        if constexpr (std::is_same_v<decltype(body()), bool>) {
            return std::forward<Body>(body)();
        } else {
            std::forward<Body>(body)();
            return true;
        }
    } catch (...) {
        ReportUnexpectedError(sink, code);
        return false;
    }
}

// The description a failure reports about itself ("Overflow", ...); for unknown
// exceptions a generic text.
std::string DescribeCurrentException();

// Runs statement and swallows the failure it raises, if any, for the statements that
// are allowed to fail silently and go on with the next (the unit editors' look-ups and
// registrations). Guarded reports; this one does not.
template <class Statement>
void IgnoringFailure(Statement&& statement) {
    try {
        statement();
    } catch (const std::exception&) {
    }
}

}  // namespace tabulon
