// The soak: 10,000 seeded random gestures on each sample document, driven through
// `tabulon session` commands (undo and redo among them), with the control checked
// after every one of them, and at the end every step undone and redone
// (UndoRedoFindings).
//
// Every step: no exception reached the host (beyond the keyboard's designed one, see
// UnexpectedExceptions), no failure message appeared (the samples are valid, so
// "Unexpected Error" and its kin mean a fault), the grid agrees with the document and
// XML() validates against the built-in DTD. Range flags are pinned by the editing tests.
#include <gtest/gtest.h>

#include <array>
#include <sstream>
#include <string>

#include "reliability/choice_source.h"
#include "reliability/fuzz_drivers.h"
#include "reliability/gesture_script.h"
#include "reliability/grid_invariants.h"
#include "session/session.h"

namespace tabulon::reliability {
namespace {

constexpr int kSteps = 10000;

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
    Generic_SP_Control& control = session.control();
    const std::string loaded = control.XML();
    SeededChoices choices(GetParam().seed);
    const GestureScript script(GestureOptions{.undoKeys = true});
    bool edited = false;
    for (int step = 1; step <= kSteps; ++step) {
        const std::string line = script.Next(session, choices);
        out.str("");
        session.RunLine(line);

        Problems problems = CheckSessionOutput(line, out.str());
        Append(problems, CheckGridAgainstDocument(control));
        edited = edited || control.XML() != loaded;
        Append(problems, CheckDocumentValidates(control));
        ASSERT_TRUE(problems.empty()) << "after step " << step << " (" << line << "):\n  "
                                      << ::testing::PrintToString(problems);
    }
    EXPECT_EQ(UndoRedoFindings(control, loaded), "");
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
