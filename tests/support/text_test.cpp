#include "support/text.h"

#include <gtest/gtest.h>

namespace tabulon {
namespace {

TEST(Trim, RemovesSpacesOnlyAtBothEnds) {
    EXPECT_EQ(Trim("  a b  "), "a b");
    EXPECT_EQ(Trim("\ta\t"), "\ta\t");  // tabs are not trimmed
    EXPECT_EQ(Trim("   "), "");
    EXPECT_EQ(Trim(""), "");
}

TEST(SplitList, KeepsEmptyItemsAndDoesNotTrim) {
    EXPECT_EQ(SplitList("a;;b"), (std::vector<std::string>{"a", "", "b"}));
    EXPECT_EQ(SplitList(" a ; b"), (std::vector<std::string>{" a ", " b"}));
    EXPECT_EQ(SplitList(""), (std::vector<std::string>{""}));
    EXPECT_EQ(SplitList(";"), (std::vector<std::string>{"", ""}));
}

TEST(CaseRules, FoldAsciiLettersOnly) {
    EXPECT_TRUE(EqualsIgnoreCase("sqft_to_sqm", "SQFT_TO_SQM"));
    EXPECT_FALSE(EqualsIgnoreCase("SQFT_TO_SQM", "SQFT_TO_SQMX"));
    EXPECT_FALSE(EqualsIgnoreCase("\xc3\xa9", "\xc3\x89"));  // é / É are not folded
    EXPECT_EQ(ToUpperAscii("metric \xc3\xa9"), "METRIC \xc3\xa9");
    EXPECT_EQ(CaseInsensitiveHash{}("Ft_To_M"), CaseInsensitiveHash{}("FT_TO_M"));
}

}  // namespace
}  // namespace tabulon
