// Every committed fuzz input, the seed corpora and every input that ever led to a
// finding (fuzz/regressions), replayed through the fuzzers' own drivers.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "common/control_harness.h"
#include "reliability/fuzz_drivers.h"

namespace tabulon::reliability {
namespace {

namespace fs = std::filesystem;

// The files of fuzz/corpus/TARGET and fuzz/regressions/TARGET, sorted (hidden files
// such as .gitkeep left out).
std::vector<fs::path> InputsOf(const std::string& target) {
    std::vector<fs::path> inputs;
    for (const char* kind : {"corpus", "regressions"}) {
        const fs::path folder = fs::path(TABULON_SOURCE_DIR) / "fuzz" / kind / target;
        if (!fs::is_directory(folder)) continue;
        for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
            const std::string name = entry.path().filename().string();
            if (entry.is_regular_file() && !name.starts_with('.') && name != "README.md") {
                inputs.push_back(entry.path());
            }
        }
    }
    std::sort(inputs.begin(), inputs.end());
    return inputs;
}

class LoadXmlInput : public ::testing::TestWithParam<fs::path> {};

TEST_P(LoadXmlInput, FindsNothing) {
    const DriverOutcome outcome = RunLoadXmlInput(testing::ReadFileBytes(GetParam()));
    EXPECT_EQ(outcome.findings, "");
}

INSTANTIATE_TEST_SUITE_P(Fuzz, LoadXmlInput, ::testing::ValuesIn(InputsOf("load_xml")));

class GestureInput : public ::testing::TestWithParam<fs::path> {};

TEST_P(GestureInput, FindsNothing) {
    const DriverOutcome outcome = RunGestureInput(testing::ReadFileBytes(GetParam()));
    EXPECT_EQ(outcome.findings, "");
}

INSTANTIATE_TEST_SUITE_P(Fuzz, GestureInput, ::testing::ValuesIn(InputsOf("gestures")));

}  // namespace
}  // namespace tabulon::reliability
