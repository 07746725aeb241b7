// What the two fuzzers run for one input, kept here so that the parameterised
// regression test replays committed inputs through exactly the same code.
//
// A finding is anything that stops the process (a crash, a sanitizer report, a leak),
// an exception that reaches the host (the control catches every failure of a user
// gesture and of loading itself, so none may ever get out), or, for documents, the
// loader's quick validity check accepting a text the validating parse refuses.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "control/generic_sp_control.h"

namespace tabulon::reliability {

struct DriverOutcome {
    // The findings, one line each: what reached the host, or what the quick validity
    // check let through ("" when nothing was found).
    std::string findings;
    std::size_t commands = 0;  // session commands run (the gesture driver only)
};

// LoadXML with bytes as the document text, then every tree node clicked and on each the
// first few value cells; then every step is undone and redone, which must give the
// loaded and the edited text back. CertainlyValid may accept parsed bytes only if
// ValidateDocumentText accepts their serialised form.
DriverOutcome RunLoadXmlInput(std::string_view bytes);

// The first choice picks one of the three sample documents, which is loaded with
// LoadXML; the remaining bytes become session gestures (GestureScript, with host
// changes and extreme numbers), at most kMaxGestures of them; then every step is
// undone and redone (UndoRedoFindings).
inline constexpr std::size_t kMaxGestures = 400;
DriverOutcome RunGestureInput(std::string_view bytes);

// The exceptions printed for one session command that are findings, each line as
// printed ("" when none). Keyboard navigation has no failure handler of its own, by
// design: its failure (a scroll step beyond the grid's range) leaves through the key
// event for the host to report, so after a key stroke (key, type, button-key) the
// grid's "Invalid Row value" and "Invalid Col value" are by design, not findings.
std::string UnexpectedExceptions(std::string_view command, std::string_view printed);

// Every step left is redone, then every step undone, which must give loaded back, then
// every step redone, which must give the document as the first redo left it; "" when
// both hold.
std::string UndoRedoFindings(Generic_SP_Control& control, const std::string& loaded);

// How a fuzzer reports a finding: prints the findings and aborts when there are any.
void AbortOnFinding(const DriverOutcome& outcome);

// The sample documents by file name, in the order the gesture driver numbers them.
inline constexpr std::string_view kSampleNames[] = {"english.xml", "metric.xml", "filtered.xml"};
// The absolute path of samples/NAME in the source tree.
std::string SamplePath(std::string_view name);

}  // namespace tabulon::reliability
