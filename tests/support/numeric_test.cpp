#include "support/numeric.h"

#include <gtest/gtest.h>

#include "support/failure.h"

namespace tabulon {
namespace {

struct ReadCase {
    const char* text;
    double value;
};

TEST(ReadNumber, TakesTheLongestNumericPrefix) {
    const ReadCase cases[] = {
        {"", 0},         {"abc", 0},  {"12", 12}, {"  12abc", 12}, {"\t-3.5x", -3.5},
        {".5", 0.5},     {".", 0},    {"-", 0},   {"1e3", 1000},   {"1e", 1},
        {"2.5e1kg", 25}, {"0x10", 0}, {"inf", 0}, {"1,5", 1},      {"12.50(ft)", 12.5},
        {"1e-400", 0}};
    for (const auto& c : cases)
        EXPECT_DOUBLE_EQ(ReadNumber(c.text), c.value) << c.text;
    EXPECT_EQ(NumericPrefixLength("  12abc"), 4u);
    EXPECT_EQ(NumericPrefixLength("abc"), 0u);
}

TEST(ReadNumber, HugeMagnitudeIsAnOverflowNotInfinity) {
    EXPECT_THROW(ReadNumber("1e400"), OverflowFailure);
    EXPECT_THROW(ReadNumber("-1e999"), OverflowFailure);
}

TEST(NumberToText, UsesFifteenSignificantDigits) {
    EXPECT_EQ(NumberToText(0.1 + 0.2), "0.3");
    EXPECT_EQ(NumberToText(1e20), "1E+20");
    EXPECT_EQ(NumberToText(1e-5), "1E-05");
    EXPECT_EQ(NumberToText(-0.0), "0");
    EXPECT_EQ(NumberToText(123456789012345.0), "123456789012345");
    EXPECT_EQ(NumberToText(1234567890123456.0), "1.23456789012346E+15");
}

}  // namespace
}  // namespace tabulon
