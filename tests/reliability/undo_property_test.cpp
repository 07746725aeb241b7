// Undo and redo give the document back byte for byte. Random generated documents
// (English and Metric, custom units, cells the host checks) take random gestures
// through `tabulon session`, among them the scripted host changing the column it is
// handed in AppGridEventHandler, Escape and the undo and redo keys, until the journal
// holds the run's most steps or its gestures ran out; then every step is undone and
// redone (undo_round_trip.h), with protective editing off and on. The seeds are fixed:
// the short run keeps to 200 steps, the soak run takes other seeds much further.
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string_view>
#include <tuple>

#include "control/control_access.h"
#include "generator/document_generator.h"
#include "reliability/choice_source.h"
#include "reliability/gesture_script.h"
#include "reliability/undo_round_trip.h"

namespace tabulon::reliability {
namespace {

struct PropertyRun {
    std::string_view name;
    std::uint64_t firstSeed;
    std::uint64_t seeds;
    int gestures;
    std::size_t mostSteps;
};

constexpr PropertyRun kRuns[] = {
    {"Seeded", 1, 10, 1000, 200},
    {"Soak", 101, 20, 4000, 2000},
};

void PrintTo(const PropertyRun& plan, std::ostream* out) {
    *out << plan.name;
}

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

class UndoProperty : public ::testing::TestWithParam<std::tuple<PropertyRun, bool>> {};

TEST_P(UndoProperty, UndoingEveryStepRestoresTheLoadedDocumentAndRedoingRestoresTheEdits) {
    const auto& [plan, protective] = GetParam();
    for (std::uint64_t seed = plan.firstSeed; seed < plan.firstSeed + plan.seeds; ++seed) {
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
             gesture < plan.gestures && CoreOf(control).history.undoCount() < plan.mostSteps;
             ++gesture) {
            const std::string line = script.Next(session, choices);
            run += line + "\n";
            session.RunLine(line);
            top.Note(control);
        }
        // A host change may have left a value no fill can show: a state with it shows the
        // fill's failure again when an undo or redo returns to it, and only the document
        // can be compared then.
        const bool fillFailed = out.str().find("Unexpected Error - 1035") != std::string::npos;
        const Problems problems = CheckUndoRedoRoundTrip(session, out, loaded, top, !fillFailed);
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

INSTANTIATE_TEST_SUITE_P(ProtectiveEditing, UndoProperty,
                         ::testing::Combine(::testing::ValuesIn(kRuns), ::testing::Bool()),
                         [](const auto& param) {
                             return std::string(std::get<0>(param.param).name) +
                                    (std::get<1>(param.param) ? "On" : "Off");
                         });

}  // namespace
}  // namespace tabulon::reliability
