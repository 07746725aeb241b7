// tabulon generate: arguments, output and what the tool's own validate makes of it.
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

TEST(TabulonGenerate, OutputFileLoadsWithoutAnyMessage) {
    TempDir dir;
    const std::string path = dir.file("doc.xml");
    const ToolRun written =
        RunTool("generate --keys 30 --cols 4 --rows 9 --metric --custom-units 5 --depth 5 -o '" +
                path + "'");
    EXPECT_EQ(written.status, 0);
    EXPECT_EQ(written.out, "");
    for (const char* mode : {"", " --text"}) {
        const ToolRun validated = RunTool("validate '" + path + "'" + mode);
        EXPECT_EQ(validated.status, 0) << mode;
        EXPECT_EQ(validated.err, "") << mode;
        EXPECT_EQ(validated.out.rfind("tree ", 0), 0U) << validated.out;
    }
}

TEST(TabulonGenerate, BadArgumentsAreUsageErrorsAndAnUnwritableFileFails) {
    const char* bad[] = {
        "generate",
        "generate --keys 1 --cols 1",
        "generate --keys 1 --rows 1",
        "generate --cols 1 --rows 1",
        "generate --keys 0 --cols 1 --rows 1",
        "generate --keys -3 --cols 1 --rows 1",
        "generate --keys 1x --cols 1 --rows 1",
        "generate --keys 1 --cols 1 --rows 1 --depth 0",
        "generate --keys 1 --cols 1 --rows 1 --depth 201",
        "generate --keys 1 --cols 1 --rows 1 --custom-units -1",
        "generate --keys 1 --cols 1 --rows 1 --seed -1",
        "generate --keys 1 --cols 1 --rows 1 --keys 2",
        "generate --keys 1 --cols 1 --rows 1 --grids",
        "generate --keys 1 --cols 1 --rows 1 --colour red",
        "generate --keys 1 --cols 1 --rows 1 extra",
        "generate --keys 1 --cols 1 --rows 1 -o ''",
    };
    ExpectUsageErrors(bad, "usage: tabulon generate");
    TempDir dir;
    const ToolRun r =
        RunTool("generate --keys 1 --cols 1 --rows 1 -o '" + dir.file("no/such/dir.xml") + "'");
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("cannot write"), std::string::npos);
}

}  // namespace
}  // namespace tabulon::testing
