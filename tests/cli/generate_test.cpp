// tabulon generate: every option reaches the generator, and bad arguments are refused
// (docs/cli.md shows a generated file validated).
#include <gtest/gtest.h>

#include <string>

#include "common/files.h"
#include "generator/document_generator.h"
#include "session/tool_runner.h"

namespace tabulon::testing {
namespace {

TEST(TabulonGenerate, WritesTheGeneratedDocumentOfTheShapeGiven) {
    const std::pair<const char*, GeneratedDocumentShape> cases[] = {
        {"generate --keys 12 --cols 3 --rows 6 --grids 2 --metric --custom-units 3 --depth 4 "
         "--seed 77 --invalid 9",
         {12, 3, 6, 2, true, 3, 4, 77, 9}},
        // The rest: library defaults.
        {"generate --rows 2 --keys 3 --cols 1", {.keys = 3, .valueColumns = 1, .rows = 2}},
    };
    for (const auto& [args, shape] : cases) {
        const ToolRun r = RunTool(args);
        EXPECT_EQ(r.status, 0) << args;
        EXPECT_EQ(r.err, "") << args;
        EXPECT_EQ(r.out, GenerateDocument(shape)) << args;
    }
}

TEST(TabulonGenerate, BadArgumentsAreUsageErrors) {
    const char* bad[] = {
        "generate --keys 1 --cols 1",
        "generate --keys 1x --cols 1 --rows 1",
        "generate --keys 1 --cols 1 --rows 1 --depth 201",
        "generate --keys 1 --cols 1 --rows 1 -o ''",
    };
    ExpectUsageErrors(bad, "usage: tabulon generate");
}

}  // namespace
}  // namespace tabulon::testing
