// The edit journal's promise, checked from the outside: from wherever a run of
// gestures has left the control, undoing every step through the session gives XML()
// exactly as it was loaded, and redoing every step gives XML() exactly as it was
// when the newest step had just been made (JournalTop). After every undo and redo the
// grid must agree with the document and nothing may be printed but the command's
// result; after the last undo, the grid must be the one a fresh control shows.
#pragma once

#include <cstdint>
#include <sstream>
#include <string>

#include "reliability/grid_invariants.h"
#include "session/session.h"

namespace tabulon::reliability {

// XML() as it is whenever nothing is left to redo: what redoing every step must give.
class JournalTop {
public:
    explicit JournalTop(const Generic_SP_Control& control) : xml_(control.XML()) {}
    // Call after every gesture.
    void Note(const Generic_SP_Control& control);
    const std::string& xml() const { return xml_; }

private:
    std::string xml_;
    std::uint64_t recorded_ = 0;  // the journal's recordedSteps() when xml_ was taken
};

// session's output stream must be out (it is cleared between commands). With
// checkGrid false only the document is compared and messages are allowed (for runs
// that may leave documents the grid checks do not cover, whose refills may fail).
Problems CheckUndoRedoRoundTrip(cli::session::Session& session, std::ostringstream& out,
                                const std::string& loadedXml, const JournalTop& top,
                                bool checkGrid = true);

}  // namespace tabulon::reliability
