#include "reliability/undo_round_trip.h"

#include <sstream>

#include "control/control_access.h"

namespace tabulon::reliability {

namespace {

constexpr int kMostSteps = 100000;
constexpr std::string_view kTrue = "{\"result\": true}\n";

// Runs "undo" or "redo" until the control has nothing left to do; every command must
// print exactly {"result": true} and leave the grid in agreement with the document.
Problems RunAll(cli::session::Session& session, std::ostringstream& out, const std::string& command,
                bool (Generic_SP_Control::*more)() const, bool checkGrid) {
    Problems problems;
    const Generic_SP_Control& control = session.control();
    for (int step = 1; (control.*more)(); ++step) {
        if (step > kMostSteps) return {command + " never runs out"};
        out.str("");
        session.RunLine(command);
        // Without the grid checks the document may be one whose refill shows a message.
        const std::string printed = out.str();
        const bool clean = checkGrid ? printed == kTrue
                                     : printed.ends_with(kTrue) &&
                                           printed.find("{\"exception\"") == std::string::npos;
        if (!clean) {
            problems.push_back(command + " " + std::to_string(step) + " printed: " + printed);
        }
        if (checkGrid) {
            for (std::string& problem : CheckGridAgainstDocument(control))
                problems.push_back(command + " " + std::to_string(step) + ": " + problem);
        }
        if (!problems.empty()) break;
    }
    return problems;
}

}  // namespace

void JournalTop::Note(const Generic_SP_Control& control) {
    const EditHistory& history = CoreOf(control).history;
    if (history.redoCount() != 0 || history.recordedSteps() == recorded_) return;
    xml_ = control.XML();
    recorded_ = history.recordedSteps();
}

Problems CheckUndoRedoRoundTrip(cli::session::Session& session, std::ostringstream& out,
                                const std::string& loadedXml, const JournalTop& top,
                                bool checkGrid) {
    const Generic_SP_Control& control = session.control();
    Problems problems = RunAll(session, out, "undo", &Generic_SP_Control::CanUndo, checkGrid);
    if (!problems.empty()) return problems;
    if (control.XML() != loadedXml) return {"after undoing every step XML() is not as loaded"};
    // Unit rows of a Metric document show converted values: compared with a fresh fill
    // (of the document as loaded; the host may have left one no fill can show).
    if (checkGrid) problems = CheckAgainstFreshFill(control);
    if (!problems.empty()) return problems;
    for (std::string& problem :
         RunAll(session, out, "redo", &Generic_SP_Control::CanRedo, checkGrid))
        problems.push_back(std::move(problem));
    if (problems.empty() && control.XML() != top.xml()) {
        problems.push_back("after redoing every step XML() is not as after the newest step");
    }

    return problems;
}

}  // namespace tabulon::reliability
