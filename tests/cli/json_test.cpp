// The session's JSON: the string literals of its output, and the property-bag files of
// new-restore and save-bag.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <nlohmann/json.hpp>
#include <random>

#include "common/files.h"
#include "session/json.h"
#include "session/json_file_property_bag.h"
#include "support/failure.h"
#include "support/utf8.h"

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

TEST(JsonQuote, AnyBytesGiveOneLineThatAStrictParserReadsBack) {
    std::mt19937 random(7);
    std::uniform_int_distribution<int> byte(0, 255);
    std::uniform_int_distribution<int> codePoint(0, 0x10FFFF);
    for (int round = 0; round < 500; ++round) {
        std::string bytes;
        std::string valid;
        for (int i = round % 23; i > 0; --i) {
            bytes.push_back(static_cast<char>(byte(random)));
            AppendUtf8(valid, static_cast<char32_t>(codePoint(random)));
        }
        for (const std::string* text : {&bytes, &valid}) {
            const std::string quoted = Quote(*text);
            ASSERT_EQ(quoted.find('\n'), std::string::npos);
            const std::string back = nlohmann::json::parse(quoted).get<std::string>();
            EXPECT_EQ(Quote(back), quoted);  // the repaired text is stable
            if (text == &valid) {
                EXPECT_EQ(back, valid);
            }
        }
    }
}

// The values of a bag file with that text.
std::map<std::string, PropertyValue> Read(const std::string& text) {
    TempDir dir;
    return JsonFilePropertyBag::Load(dir.write("bag.json", text)).values();
}

TEST(JsonBagFile, ReadsBooleansNumbersAndStrings) {
    const auto values = Read(
        " {\"t\": true, \"f\":false,\"i\" : -42,\"big\": 12345678901234567890,"
        "\"d\": 2.5e-1, \"one\": 1.0, \"s\": "
        "\"a\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\\ud83d\\ude00\"}\r\n");
    EXPECT_EQ(values.at("t"), PropertyValue(true));
    EXPECT_EQ(values.at("f"), PropertyValue(false));
    EXPECT_EQ(values.at("i"), PropertyValue(std::int64_t{-42}));
    EXPECT_EQ(values.at("big"), PropertyValue(12345678901234567890.0));
    EXPECT_EQ(values.at("d"), PropertyValue(0.25));
    EXPECT_EQ(values.at("one"), PropertyValue(1.0));
    EXPECT_EQ(values.at("s"), PropertyValue(std::string("a\"\\/\b\f\n\r\té😀")));
    EXPECT_TRUE(Read("{}").empty());
}

TEST(JsonBagFile, RefusesAnythingButOneFlatObjectAndSaysWhy) {
    const std::pair<std::string, const char*> cases[] = {
        {"{\"a\" 1}", "parse error at line 1, column 6"},
        {"{\"a\":1} x", "parse error"},
        {"{\"a\":null}", "null is not a setting's value"},
        {"{\"a\":[1]}", "a setting's value cannot be an array"},
        {"{\"a\":{\"b\":1}}", "a setting's value cannot be an object"},
        {"[1]", "expected an object"},
        {"{\"a\":1e999}", "number overflow"},
        {"{\"a\":1,\"a\":2}", "the key \"a\" is given twice"},
        {"{\"a\":\"\\ud800x\"}", "parse error"},
        {"{\"a\":\"\xff\"}", "parse error"},
    };
    for (const auto& [text, reason] : cases) {
        try {
            Read(text);
            ADD_FAILURE() << text << " read";
        } catch (const RuntimeFailure& e) {
            EXPECT_THAT(e.what(), ::testing::HasSubstr(std::string("': ") + reason)) << text;
        }
    }
    try {
        JsonFilePropertyBag::Load("/nonexistent/bag.json");
        ADD_FAILURE() << "a missing file read";
    } catch (const RuntimeFailure& e) {
        EXPECT_STREQ(e.what(),
                     "Cannot read property bag '/nonexistent/bag.json': No such file or directory");
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
    EXPECT_EQ(JsonFilePropertyBag().ToJson(), "{}");
    bag.values() = {{"n", std::nan("")}};
    EXPECT_THROW(bag.ToJson(), std::invalid_argument);
}

}  // namespace
}  // namespace tabulon::json
