#include "session/json_file_property_bag.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "common/files.h"
#include "support/failure.h"

namespace tabulon {
namespace {

using testing::TempDir;

TEST(JsonFilePropertyBag, SavesAndLoadsEveryKindOfValue) {
    TempDir dir;
    JsonFilePropertyBag bag;
    bag.values() = {{"b", false}, {"i", std::int64_t{-2}}, {"d", 2.0}, {"s", std::string("é\"\n")}};
    const std::string path = dir.file("bag.json");
    bag.Save(path);
    bag.Save(path);  // replacing an existing file
    EXPECT_EQ(JsonFilePropertyBag::Load(path).values(), bag.values());
    // Only the bag itself is left: the temporary file was renamed over it.
    EXPECT_EQ(dir.names(), std::vector<std::string>{"bag.json"});
}

TEST(JsonFilePropertyBag, LoadFailuresNameTheFileAndTheReason) {
    TempDir dir;
    const std::string missing = dir.file("none.json");
    const std::string broken = dir.write("broken.json", "{\"a\": 1,}");
    const std::pair<std::string, std::string> cases[] = {
        {missing, "Cannot read property bag '" + missing + "': No such file or directory"},
        {broken, "Cannot read property bag '" + broken +
                     "': parse error at line 1, column 9: syntax error while parsing object key - "
                     "unexpected '}'; expected string literal"},
    };
    for (const auto& [path, message] : cases) {
        try {
            JsonFilePropertyBag::Load(path);
            ADD_FAILURE() << path << " loaded";
        } catch (const RuntimeFailure& e) {
            EXPECT_EQ(e.what(), message);
        }
    }
}

TEST(JsonFilePropertyBag, AFailedSaveLeavesNoFileBehind) {
    TempDir dir;
    JsonFilePropertyBag bag;
    EXPECT_THROW(bag.Save(dir.file("no/such/folder/bag.json")), RuntimeFailure);
    EXPECT_THROW(bag.Save(dir.path().string()), RuntimeFailure);  // a folder
    EXPECT_TRUE(std::filesystem::is_empty(dir.path()));
}

}  // namespace
}  // namespace tabulon
