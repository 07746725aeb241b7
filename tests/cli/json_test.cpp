#include "session/json.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "support/utf8.h"

namespace tabulon::json {
namespace {

TEST(JsonQuote, EscapesWhatJsonRequiresAndRepairsInvalidUtf8) {
    const std::pair<std::string, std::string> cases[] = {
        {"", R"("")"},
        {"plain text", R"("plain text")"},
        {"say \"hi\" \\ now", R"("say \"hi\" \\ now")"},
        {"a\r\nb\tc\b\f", R"("a\r\nb\tc\b\f")"},
        {std::string("\x00\x1f\x7f", 3), "\"\\u0000\\u001f\x7f\""},
        {"é日😀", "\"é日😀\""},  // valid UTF-8 is kept as it is
        {"a\xff"
         "b",
         "\"a\xEF\xBF\xBD"
         "b\""},                                       // a stray byte
        {"\xE6\x97", "\"\xEF\xBF\xBD\""},              // a truncated character: one U+FFFD
        {"\xC0\xAF", "\"\xEF\xBF\xBD\xEF\xBF\xBD\""},  // an overlong form
        {"\xED\xA0\x80", "\"\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\""},  // an encoded surrogate
    };
    for (const auto& [text, quoted] : cases)
        EXPECT_EQ(Quote(text), quoted) << text;
}

TEST(JsonQuote, AnyBytesGiveOneLineThatParsesBack) {
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
            const auto object = ParseFlatObject("{\"k\":" + quoted + "}");
            const std::string& back = std::get<std::string>(object.at("k"));
            EXPECT_EQ(Quote(back), quoted);  // the repaired text is stable
            if (text == &valid) {
                EXPECT_EQ(back, valid);
            }
        }
    }
}

TEST(JsonParse, ReadsBooleansNumbersAndStrings) {
    const auto object = ParseFlatObject(
        " {\"t\": true, \"f\":false,\"i\" : -42,\"big\": 12345678901234567890,"
        "\"d\": 2.5e-1, \"one\": 1.0, \"s\": "
        "\"a\\\"\\\\\\/\\b\\f\\n\\r\\t\\u00e9\\ud83d\\ude00\"}\r\n");
    EXPECT_EQ(object.at("t"), FlatValue(true));
    EXPECT_EQ(object.at("f"), FlatValue(false));
    EXPECT_EQ(object.at("i"), FlatValue(std::int64_t{-42}));
    EXPECT_EQ(object.at("big"), FlatValue(12345678901234567890.0));
    EXPECT_EQ(object.at("d"), FlatValue(0.25));
    EXPECT_EQ(object.at("one"), FlatValue(1.0));
    EXPECT_EQ(object.at("s"), FlatValue(std::string("a\"\\/\b\f\n\r\té😀")));
    EXPECT_TRUE(ParseFlatObject("{}").empty());
}

TEST(JsonParse, RejectsAnythingElseWithReasonAndOffset) {
    struct Case {
        std::string text;
        const char* reason;
        std::size_t offset;
    };
    const Case cases[] = {
        {"", "expected '{'", 0},
        {"{\"a\" 1}", "expected ':'", 5},
        {"{\"a\":1,}", "expected a string key", 7},
        {"{\"a\":1 \"b\":2}", "expected ',' or '}'", 7},
        {"{\"a\":01}", "expected ',' or '}'", 6},
        {"{\"a\":1} x", "unexpected text after the object", 8},
        {"{\"a\":null}", "only booleans, numbers and strings allowed", 5},
        {"{\"a\":tru}", "expected a value", 5},
        {"{\"a\":-}", "invalid number", 5},
        {"{\"a\":1e999}", "number out of range", 5},
        {"{\"a\":1,\"a\":2}", "duplicate key", 7},
        {"{\"a\":\"x", "unterminated string", 7},
        {"{\"a\":\"\n\"}", "control character in string", 6},
        {"{\"a\":\"\\x\"}", "invalid escape", 6},
        {"{\"a\":\"\\u12g4\"}", "invalid \\u escape", 8},
        {"{\"a\":\"\\ud800x\"}", "unpaired surrogate", 6},
        {"{\"a\":\"\xff\"}", "invalid UTF-8", 6},
    };
    for (const Case& c : cases) {
        try {
            ParseFlatObject(c.text);
            ADD_FAILURE() << c.text << " parsed";
        } catch (const ParseError& e) {
            EXPECT_EQ(e.reason(), c.reason) << c.text;
            EXPECT_EQ(e.offset(), c.offset) << c.text;
            EXPECT_EQ(std::string(e.what()),
                      std::string(c.reason) + " at offset " + std::to_string(c.offset));
        }
    }
}

TEST(JsonWrite, SortsKeysOnePerLineAndKeepsDoublesExact) {
    const std::map<std::string, FlatValue> object = {
        {"b", std::int64_t{1}}, {"a", std::string("x\ny")}, {"c", 2.0}, {"d", 0.1}, {"e", true},
        {"f", 1e-300},
    };
    EXPECT_EQ(WriteFlatObject(object),
              "{\n  \"a\": \"x\\ny\",\n  \"b\": 1,\n  \"c\": 2.0,\n  \"d\": 0.1,\n"
              "  \"e\": true,\n  \"f\": 1e-300\n}");
    EXPECT_EQ(ParseFlatObject(WriteFlatObject(object)), object);
    EXPECT_EQ(WriteFlatObject({}), "{}");
    EXPECT_THROW(WriteFlatObject({{"n", std::nan("")}}), std::invalid_argument);
}

TEST(Utf8, CountsAndOffsetsTreatInvalidSequencesAsOneCharacter) {
    const std::string text =
        "a\xE6\x97"
        "b日";  // a, truncated character, b, 日
    EXPECT_EQ(CountUtf8(text), 4u);
    EXPECT_EQ(Utf8Offset(text, 2), 3u);
    EXPECT_EQ(Utf8Offset(text, 4), text.size());
    EXPECT_EQ(Utf8Offset(text, 9), text.size());
    std::string out;
    AppendUtf8(out, 0xD800);  // a surrogate is no character
    AppendUtf8(out, 0x1F600);
    EXPECT_EQ(out, "\xEF\xBF\xBD😀");
}

}  // namespace
}  // namespace tabulon::json
