#include "platform/property_bag.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/failure.h"

namespace tabulon {
namespace {

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

}  // namespace
}  // namespace tabulon
