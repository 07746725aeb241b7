// The session's JSON: the string literals of its output, and the property-bag files of
// new-restore and save-bag.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "common/files.h"
#include "session/json.h"
#include "session/json_file_property_bag.h"
#include "support/failure.h"

namespace tabulon::json {
namespace {

using testing::TempDir;

TEST(JsonQuote, EscapesWhatJsonRequiresAndRepairsInvalidUtf8) {
    const std::pair<std::string, std::string> cases[] = {
        {"say \"hi\" \\ now", R"("say \"hi\" \\ now")"},
        {"a\r\nb\tc\b\f", R"("a\r\nb\tc\b\f")"},
        {std::string("\x00\x1f\x7f", 3), "\"\\u0000\\u001f\x7f\""},
        {"a\xff"
         "b",
         "\"a\xEF\xBF\xBD"
         "b\""},                                                       // a stray byte
        {"\xED\xA0\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},  // an encoded surrogate
    };
    for (const auto& [text, quoted] : cases)
        EXPECT_EQ(Quote(text), quoted) << text;
}

// The values of a bag file with that text.
std::map<std::string, PropertyValue> Read(const std::string& text) {
    TempDir dir;
    return JsonFilePropertyBag::Load(dir.write("bag.json", text)).values();
}

TEST(JsonBagFile, RefusesAnythingButOneFlatObjectAndSaysWhy) {
    const std::pair<std::string, const char*> cases[] = {
        {"{\"a\" 1}", "parse error at line 1, column 6"},
        {"{\"a\":null}", "null is not a setting's value"},
        {"{\"a\":[1]}", "a setting's value cannot be an array"},
        {"{\"a\":1,\"a\":2}", "the key \"a\" is given twice"},
    };
    for (const auto& [text, reason] : cases) {
        try {
            Read(text);
            ADD_FAILURE() << text << " read";
        } catch (const RuntimeFailure& e) {
            EXPECT_THAT(e.what(), ::testing::HasSubstr(std::string("': ") + reason)) << text;
        }
    }
}

TEST(JsonBagFile, WritesKeysSortedOnePerLineAndDoublesExact) {
    JsonFilePropertyBag bag;
    bag.values() = {
        {"b", std::int64_t{1}}, {"a", std::string("x\ny")}, {"c", 2.0}, {"d", 0.1}, {"e", true},
        {"f", 1e-300},
    };
    EXPECT_EQ(bag.ToJson(),
              "{\n  \"a\": \"x\\ny\",\n  \"b\": 1,\n  \"c\": 2.0,\n  \"d\": 0.1,\n"
              "  \"e\": true,\n  \"f\": 1e-300\n}");
    TempDir dir;
    const std::string path = dir.file("bag.json");
    bag.Save(path);
    EXPECT_EQ(JsonFilePropertyBag::Load(path).values(), bag.values());
}

}  // namespace
}  // namespace tabulon::json
