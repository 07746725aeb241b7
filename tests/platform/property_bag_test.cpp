#include "platform/property_bag.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "common/files.h"
#include "support/failure.h"

namespace tabulon {
namespace {

using testing::TempDir;

TEST(PropertyConversion, BooleansFromBooleansNumbersAndText) {
    const std::pair<PropertyValue, bool> cases[] = {
        {true, true},
        {std::int64_t{0}, false},
        {std::int64_t{-1}, true},
        {std::int64_t{2}, true},
        {0.0, false},
        {std::string("True"), true},
        {std::string("false"), false},
        {std::string(" -1 "), true},
        {std::string("0"), false},
    };
    for (const auto& [value, expected] : cases) {
        EXPECT_EQ(PropertyToBool(value), expected) << PropertyToString(value);
    }
}

TEST(PropertyConversion, IntegersRoundHalfToEvenAndAreRangeCheckedAndAnythingIsText) {
    EXPECT_EQ(PropertyToInt32(true), -1);
    EXPECT_EQ(PropertyToInt32(std::int64_t{2745}), 2745);
    EXPECT_EQ(PropertyToInt32(2.5), 2);
    EXPECT_EQ(PropertyToInt32(std::string("3.5")), 4);
    EXPECT_EQ(PropertyToInt16(std::string(" 1e3 ")), 1000);
    EXPECT_EQ(PropertyToInt16(std::string("False")), 0);
    EXPECT_THROW(PropertyToInt16(std::int64_t{32768}), OverflowFailure);
    EXPECT_THROW(PropertyToInt32(std::int64_t{1} << 40), OverflowFailure);
    EXPECT_EQ(PropertyToString(true), "True");
    EXPECT_EQ(PropertyToString(std::int64_t{-7}), "-7");
    EXPECT_EQ(PropertyToString(0.1 + 0.2), "0.3");
    EXPECT_EQ(PropertyToString(std::string("Filter")), "Filter");
}

TEST(PropertyConversion, TextThatIsNotWhollyANumberIsATypeMismatch) {
    for (const char* text : {"", "abc", "12abc", "1,5", "Yes"}) {
        for (const auto& convert : std::initializer_list<std::function<void()>>{
                 [&] { PropertyToBool(std::string(text)); },
                 [&] { PropertyToInt32(std::string(text)); },
                 [&] { PropertyToInt16(std::string(text)); }}) {
            try {
                convert();
                ADD_FAILURE() << '"' << text << "\" converted";
            } catch (const RuntimeFailure& e) {
                EXPECT_STREQ(e.what(), "Type mismatch") << text;
            }
        }
    }
}

TEST(MemoryPropertyBag, AValueEqualToItsDefaultIsNotStored) {
    MemoryPropertyBag bag;
    bag.Write("GeneralProperty.lngRowHeightMin", std::int64_t{500}, std::int64_t{350});
    EXPECT_EQ(bag.ReadInt32("GeneralProperty.lngRowHeightMin", 350), 500);
    bag.Write("GeneralProperty.lngRowHeightMin", std::int64_t{350}, std::int64_t{350});
    EXPECT_TRUE(bag.values().empty());
    EXPECT_EQ(bag.ReadString("GeneralProperty.strFilterCaption", "Filter"), "Filter");
}

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
        {broken, "Cannot read property bag '" + broken + "': expected a string key at offset 8"},
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
