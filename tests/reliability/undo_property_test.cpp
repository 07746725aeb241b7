// Undo and redo give the document back byte for byte. Random generated documents
// (English and Metric, custom units, cells the host checks) take random gestures
// through `tabulon session`, among them the scripted host changing the column it is
// handed in AppGridEventHandler, Escape and the undo and redo keys, until the journal
// holds kMostSteps steps or kGestures gestures ran; then every step is undone and
// redone (undo_round_trip.h), with protective editing off and on. The seeds are fixed;
// the soak test runs the same check after much longer runs.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "control/control_access.h"
#include "generator/document_generator.h"
#include "reliability/choice_source.h"
#include "reliability/gesture_script.h"
#include "reliability/undo_round_trip.h"

namespace tabulon::reliability {
namespace {

constexpr int kGestures = 1000;
constexpr std::size_t kMostSteps = 200;
constexpr std::uint64_t kSeeds = 10;

GeneratedDocumentShape RandomShape(ChoiceSource& choices, std::uint64_t seed) {
    GeneratedDocumentShape shape;
    shape.keys = 2 + static_cast<int>(choices.Below(12));
    shape.valueColumns = 1 + static_cast<int>(choices.Below(4));
    shape.rows = 4 + static_cast<int>(choices.Below(6));
    shape.gridHeaders = 1 + static_cast<int>(choices.Below(3));
    shape.metric = choices.Below(2) == 0;
    shape.customUnits = static_cast<int>(choices.Below(4));
    shape.depth = 1 + static_cast<int>(choices.Below(3));
    shape.invalidEvery = static_cast<int>(choices.Below(2)) * 7;
    shape.hostCheckedEvery = 2 + static_cast<int>(choices.Below(4));
    shape.seed = seed;
    return shape;
}

class UndoProperty : public ::testing::TestWithParam<bool> {};

TEST_P(UndoProperty, UndoingEveryStepRestoresTheLoadedDocumentAndRedoingRestoresTheEdits) {
    const bool protective = GetParam();
    for (std::uint64_t seed = 1; seed <= kSeeds; ++seed) {
        SeededChoices choices(seed * 7919);
        const GeneratedDocumentShape shape = RandomShape(choices, seed);
        std::ostringstream out;
        cli::session::Session session(out);
        session.RunLine("loadxml-text " + QuoteWord(GenerateDocument(shape)));
        ASSERT_EQ(out.str(), "{\"result\": true}\n") << "seed " << seed;
        if (protective) session.RunLine("set-protective true");
        const Generic_SP_Control& control = session.control();
        const std::string loaded = control.XML();
        JournalTop top(control);

        const GestureScript script(GestureOptions{.hostChanges = true, .undoKeys = true});
        std::string run;
        for (int gesture = 0;
             gesture < kGestures && CoreOf(control).history.undoCount() < kMostSteps; ++gesture) {
            const std::string line = script.Next(session, choices);
            run += line + "\n";
            session.RunLine(line);
            top.Note(control);
        }
        const Problems problems = CheckUndoRedoRoundTrip(session, out, loaded, top);
        if (problems.empty()) continue;
        // The run as a script `tabulon session FILE` replays.
        const std::string replay = std::string(TABULON_BINARY_DIR) + "/undo-property-" +
                                   (protective ? "on-" : "off-") + std::to_string(seed) +
                                   ".session";
        std::ofstream(replay) << "loadxml-text " << QuoteWord(GenerateDocument(shape)) << "\n"
                              << (protective ? "set-protective true\n" : "") << run;
        ADD_FAILURE() << "seed " << seed << ": " << ::testing::PrintToString(problems)
                      << "\nthe run: " << replay;
    }
}

INSTANTIATE_TEST_SUITE_P(ProtectiveEditing, UndoProperty, ::testing::Bool(),
                         [](const ::testing::TestParamInfo<bool>& param) {
                             return std::string(param.param ? "On" : "Off");
                         });

}  // namespace
}  // namespace tabulon::reliability
