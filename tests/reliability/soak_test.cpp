// The soak: 10,000 seeded random gestures on each sample document, driven through
// `tabulon session` commands (undo and redo among them), with the control checked
// after every one of them, and at the end every step undone and redone
// (undo_round_trip.h).
//
// Every step: no exception reached the host (beyond the keyboard's designed one, see
// UnexpectedExceptions), no failure message appeared (the samples are valid, so
// "Unexpected Error" and its kin mean a fault), the grid agrees with the document and
// XML() validates against the built-in DTD. Every kFreshFillEvery steps, and after the
// last, a fresh control filled from XML() must show the same grid; the interval keeps
// a run at seconds under the sanitizers. Range flags are pinned by the editing tests.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>

#include "reliability/choice_source.h"
#include "reliability/fuzz_drivers.h"
#include "reliability/gesture_script.h"
#include "reliability/grid_invariants.h"
#include "reliability/undo_round_trip.h"
#include "session/session.h"

namespace tabulon::reliability {
namespace {

constexpr int kSteps = 10000;
constexpr int kFreshFillEvery = 100;

// Messages that only a fault can put on screen while a valid sample is edited.
constexpr std::array<std::string_view, 8> kFailureTexts = {
    "Unexpected Error - ",         "Error in XML validation",
    "Error in generating report.", "Unable the save the XML file.",
    "units defined in XML.",       "Invalid unit defined with UnitDrop value",
    "scrollbar error - ",          "Invalid control name",
};

Problems CheckSessionOutput(const std::string& command, const std::string& printed) {
    if (const std::string exceptions = UnexpectedExceptions(command, printed);
        !exceptions.empty()) {
        return {exceptions};
    }
    for (const std::string_view text : kFailureTexts) {
        if (printed.find(text) != std::string::npos) return {"printed: " + printed};
    }
    return {};
}

void Append(Problems& to, Problems more) {
    to.insert(to.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

struct SoakCase {
    std::string_view sample;
    std::uint64_t seed;
};

void PrintTo(const SoakCase& soak, std::ostream* out) {
    *out << soak.sample << " seed " << soak.seed;
}

class Soak : public ::testing::TestWithParam<SoakCase> {};

TEST_P(Soak, RandomGesturesKeepControlAndDocumentConsistent) {
    std::ostringstream out;
    cli::session::Session session(out);
    session.RunLine("loadxml " + QuoteWord(SamplePath(GetParam().sample)));
    ASSERT_NE(out.str().find("{\"result\": true}"), std::string::npos) << out.str();
    const Generic_SP_Control& control = session.control();
    const std::string loaded = control.XML();
    JournalTop top(control);
    SeededChoices choices(GetParam().seed);
    const GestureScript script(GestureOptions{.undoKeys = true});

    // The whole run as a session script, written out when a step fails so that
    // `tabulon session FILE` replays it.
    std::string scriptText = "loadxml " + QuoteWord(SamplePath(GetParam().sample)) + "\n";
    std::size_t rejected = 0;
    bool edited = false;
    for (int step = 1; step <= kSteps; ++step) {
        const std::string line = script.Next(session, choices);
        scriptText += line + "\n";
        out.str("");
        session.RunLine(line);
        top.Note(control);
        const std::string printed = out.str();
        if (printed.find("{\"error\"") != std::string::npos) ++rejected;

        Problems problems = CheckSessionOutput(line, printed);
        Append(problems, CheckGridAgainstDocument(control));
        edited = edited || control.XML() != loaded;
        Append(problems, CheckDocumentValidates(control));
        if (step % kFreshFillEvery == 0 || step == kSteps) {
            Append(problems, CheckAgainstFreshFill(control));
        }
        if (!problems.empty()) {
            const std::string replay = std::string(TABULON_BINARY_DIR) + "/soak-" +
                                       std::string(GetParam().sample) + ".session";
            std::ofstream(replay) << scriptText;
            FAIL() << "after step " << step << " (" << line << "):\n  "
                   << ::testing::PrintToString(problems) << "\nthe run: " << replay;
        }
    }
    const Problems undone = CheckUndoRedoRoundTrip(session, out, loaded, top);
    EXPECT_TRUE(undone.empty()) << ::testing::PrintToString(undone);
    // The run did what it claims: commands were accepted and the document was edited.
    EXPECT_LT(rejected, static_cast<std::size_t>(kSteps / 10));
    EXPECT_TRUE(edited);
}

INSTANTIATE_TEST_SUITE_P(Samples, Soak,
                         ::testing::Values(SoakCase{"english.xml", 1}, SoakCase{"metric.xml", 2},
                                           SoakCase{"filtered.xml", 3}),
                         [](const ::testing::TestParamInfo<SoakCase>& param) {
                             const std::string_view name = param.param.sample;
                             return std::string(name.substr(0, name.find('.')));
                         });

}  // namespace
}  // namespace tabulon::reliability
