#include "platform/property_bag.h"

#include <gtest/gtest.h>

#include "support/failure.h"

namespace tabulon {
namespace {

// Settings files hold text; what they read as is the platform's conversion.
TEST(PropertyConversion, TextReadsAsBooleansAndHalfEvenIntegersOrIsATypeMismatch) {
    EXPECT_TRUE(PropertyToBool(std::string(" -1 ")));
    EXPECT_FALSE(PropertyToBool(std::string("false")));
    EXPECT_TRUE(PropertyToBool(std::string("True")));
    EXPECT_EQ(PropertyToInt32(true), -1);
    EXPECT_EQ(PropertyToInt32(2.5), 2);
    EXPECT_EQ(PropertyToInt32(std::string("3.5")), 4);
    EXPECT_EQ(PropertyToInt16(std::string(" 1e3 ")), 1000);
    EXPECT_THROW(PropertyToInt16(std::int64_t{32768}), OverflowFailure);
    EXPECT_EQ(PropertyToString(0.1 + 0.2), "0.3");
    for (const char* text : {"", "12abc", "1,5", "Yes"}) {
        try {
            PropertyToInt32(std::string(text));
            ADD_FAILURE() << '"' << text << "\" converted";
        } catch (const RuntimeFailure& e) {
            EXPECT_STREQ(e.what(), "Type mismatch") << text;
        }
    }
}

}  // namespace
}  // namespace tabulon
