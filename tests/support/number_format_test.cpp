#include "support/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

#include "support/failure.h"

namespace tabulon {
namespace {

struct FormatCase {
    double value;
    const char* format;
    const char* expected;
};

void ExpectFormats(std::initializer_list<FormatCase> cases) {
    for (const FormatCase& c : cases) {
        EXPECT_EQ(FormatNumber(c.value, c.format), c.expected)
            << "value " << c.value << " format \"" << c.format << "\"";
    }
}

TEST(FormatNumber, DigitPlaceholdersPadWithZerosOrShowNothing) {
    ExpectFormats({{0.5, "0.00", "0.50"},
                   {0.5, "#.0", ".5"},
                   {0, "#", ""},
                   {12345, "0", "12345"},
                   {7, "000", "007"},
                   {1.5, "0.0#", "1.5"},
                   {1.5, "0.#0", "1.50"},
                   {5, "0.##", "5."},
                   {12.5, ".00", "12.50"},
                   {0, "#.##", "."},
                   {5551234567, "(000) 000-0000", "(555) 123-4567"}});
}

TEST(FormatNumber, RoundsHalfAwayFromZeroOnTheDecimalValue) {
    ExpectFormats({{12.345, "0.00", "12.35"},
                   {9.995, "0.00", "10.00"},
                   {1.005, "0.00", "1.01"},
                   {-2.5, "0", "-3"},
                   {999.96, "#,##0.0", "1,000.0"},
                   {0.045, "0.0", "0.0"},
                   {1.0049999, "0.00", "1.00"}});
}

// Decision: a negative value whose shown digits are all zero carries no minus sign.
TEST(FormatNumber, NegativeThatRoundsToZeroShowsNoMinus) {
    ExpectFormats({
        {-0.001, "0.00", "0.00"},
        {-0.4, "#", ""},
        {-0.00000001, "#########0.0000000", "0.0000000"},
        {-0.001, "0.00E+00", "-1.00E-03"},  // scientific keeps the digits, so the sign stays
    });
}

TEST(FormatNumber, NegativeValuesGetTheMinusBeforeEverything) {
    ExpectFormats(
        {{-1234567.891, "#,##0.00", "-1,234,567.89"}, {-5, "$0", "-$5"}, {-0.5, "0%", "-50%"}});
}

TEST(FormatNumber, StorageFormatKeepsSevenDecimalsAndNoGrouping) {
    ExpectFormats({{3.5, kStorageFormat.data(), "3.5000000"},
                   {-0.0000001, kStorageFormat.data(), "-0.0000001"},
                   {1234567890123.25, kStorageFormat.data(), "1234567890123.2500000"},
                   {0.1 + 0.2, kStorageFormat.data(), "0.3000000"}});
}

TEST(FormatNumber, CommaBetweenIntegerPlaceholdersGroupsThousands) {
    ExpectFormats({{1234.56, "#,##0.0", "1,234.6"},
                   {0, "#,##0.0", "0.0"},
                   {12, "0,000", "0,012"},
                   {1234567, "$#,##0 \"USD\"", "$1,234,567 USD"}});
}

TEST(FormatNumber, CommaAfterTheLastIntegerPlaceholderScalesByThousands) {
    ExpectFormats({
        {1234567, "0,", "1235"},
        {1234567, "#,##0,.00", "1,234.57"},
        {1234567, "0.0,,", "1234567.0,,"},  // in the fraction a comma is only text
        {1500, "0,\\K", "2K"},
        {12, ",0", ",12"},  // before any placeholder a comma is only text
    });
}

TEST(FormatNumber, PercentMultipliesByAHundredWhereWritten) {
    ExpectFormats({
        {0.5, "0%", "50%"},
        {0.1234, "0.00%", "12.34%"},
        {0.5, "%0", "%50"},
        {0.5, "0%%", "5000%%"},  // decision: every % multiplies by 100
    });
}

TEST(FormatNumber, ExponentCodesGiveScientificNotation) {
    ExpectFormats(
        {{12345, "0.00E+00", "1.23E+04"},
         {12345, "0.00E-00", "1.23E04"},
         {9.995, "0.00E+00", "1.00E+01"},
         {1e300, "0.00E+00", "1.00E+300"},
         {5e-324, "0.00E+00", "5.00E-324"},  // the shortest decimal, not the binary value
         {12345, "00.0E+00", "12.3E+03"},    // as many mantissa digits as integer placeholders
         {12345, ".00E+00", ".12E+05"},
         {5, "0E+", "5E+"},  // no placeholder after the sign: plain text
         {5, "0E5", "5E5"}});
}

TEST(FormatNumber, LiteralsAreShownAsWritten) {
    ExpectFormats({
        {5, "\\#0", "#5"},
        {5, "\"#0.0%\"0", "#0.0%5"},
        {5, "0 \"ft;in\"", "5 ft;in"},
        {5,
         "0 \xC2\xB0"
         "C",
         "5 \xC2\xB0"
         "C"},
        {5, "0\\", "5"},            // a lone backslash at the end shows nothing
        {5, "0 \"open", "5 open"},  // an unclosed quote runs to the end
        {5, "0.0.0", "5.0.0"},      // only the first point is the decimal point
        {-5, "abc", "abc"},         // no digit codes: no number and no sign
    });
}

TEST(FormatNumber, NamedFormatsIgnoreCase) {
    ExpectFormats({
        {1234.5, "General Number", "1234.5"},
        {1234.567, "Fixed", "1234.57"},
        {1234.567, "Standard", "1,234.57"},
        {-1234.567, "standard", "-1,234.57"},
        {5, " Fixed", " Fixed"},  // not a name, and no digit codes in it
    });
}

TEST(FormatNumber, SectionsArePositiveNegativeZero) {
    ExpectFormats(
        {{5, "0.00;(0.00);\\Z\\e\\r\\o", "5.00"},
         {-5, "0.00;(0.00);\\Z\\e\\r\\o", "(5.00)"},
         {0, "0.00;(0.00);\\Z\\e\\r\\o", "Zero"},
         {-0.001, "0.00;(0.00);\\Z\\e\\r\\o", "(0.00)"},  // chosen by the value, not the rounding
         {-5, "0;0", "5"},        // a negative section supplies its own sign
         {-5, "0;", "-5"},        // empty negative section: the first, with a minus
         {0, "0.0;(0);", "0.0"},  // empty zero section: the first
         {5, ";(0)", "5"}});      // empty first section: the number as text
}

TEST(FormatNumber, NonFiniteValueIsAnOverflow) {
    EXPECT_THROW(FormatNumber(std::numeric_limits<double>::infinity(), "0"), OverflowFailure);
    EXPECT_THROW(FormatNumber(-std::numeric_limits<double>::infinity(), ""), OverflowFailure);
    EXPECT_THROW(FormatNumber(std::nan(""), "General Number"), OverflowFailure);
}

TEST(FormatNumber, AnyFormatTextIsSafe) {
    // Every short combination of code characters, for a few awkward values.
    const std::string alphabet = "0#.,%E+-e\\\";x";
    const double values[] = {0.0, -1.5, 9.995, 1e300, -1e-300, 123456789.0};
    for (const char a : alphabet)
        for (const char b : alphabet)
            for (const char c : alphabet)
                for (const double v : values)
                    EXPECT_NO_THROW(FormatNumber(v, std::string{a, b, c})) << a << b << c;
    EXPECT_NO_THROW(FormatNumber(1e300, std::string(2000, '%')));
    EXPECT_EQ(FormatNumber(1e300, "0" + std::string(200, ',')), "0");
}

}  // namespace
}  // namespace tabulon
